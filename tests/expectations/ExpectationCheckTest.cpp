// Which expectations hold.
#include <gtest/gtest.h>

#include <string>

#include "tests/study/LoadedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "tools/expectations/ExpectationCheck.h"

namespace customstyle_test {
namespace {

using customstyle_tool::ExpectationFailure;
using customstyle_tool::ExpectationFile;
using customstyle_tool::SourceFile;
using customstyle_tool::StyleStudy;

// Highway has the style ids 1130 and 1131, its labels 1280 and 1281; education shares 1131.
std::unique_ptr<StyleStudy> style() {
    std::string mapping = testMapping();
    mapping.insert(mapping.find('[', mapping.find("\"education\"")) + 1, std::to_string(secondStyleId(13)) + ",");
    return loadedText(
        mapping, styleOf({rule("highway", "geometry.fill").color("#ff0000"),
                          rule("highway", "geometry.fill").color("#00ff0080").level("12"),
                          rule("highway", "labels.text").weight("3"), rule("highway", "labels.text.fill").weight("3"),
                          rule("highwaylabel", "labels.icon").visibility("off").level("5"),
                          rule("education", "labels.text.fill").color("#0000ff"),
                          rule("land", "geometry").color("#112233"), rule("grid", "all").color("#445566"),
                          rule("education", "geometry.fill").color("#ff0000").level("5")}));
}

std::string found(const ExpectationFailure& failure) {
    std::string text = failure.value ? std::to_string(*failure.value) : "none";
    text += " at " + customstyle_tool::levelsText(failure.levels) + " for";
    for (const unsigned int id : failure.styleIds) text += " " + std::to_string(id);
    return text;
}

struct CheckCase {
    const char* name;
    const char* line;
    std::vector<std::string> failures;
};

class Expected : public testing::TestWithParam<CheckCase> {};

TEST_P(Expected, HoldsOrFailsWhereItIsWrong) {
    const QueriesEnabled enabled;
    const auto loaded = style();
    const SourceFile file("file", GetParam().line);
    const ExpectationFile parsed = parseExpectations(file, loaded->mapping());
    ASSERT_EQ(parsed.expectations.size(), 1U);
    std::vector<std::string> failures;
    for (const auto& failure : failuresOf(parsed.expectations, *loaded)) failures.push_back(found(failure));
    EXPECT_EQ(failures, GetParam().failures);
}

const std::string kOpaqueRed = std::to_string(0xFF0000FF);
const std::string kGreen = std::to_string(0x8000FF00);

INSTANTIATE_TEST_SUITE_P(
    Lines, Expected,
    testing::Values(
        CheckCase{"AStyleIdThatHolds", "id 1130 4-11,13-21,other fill #ff0000", {}},
        CheckCase{"AnAlphaThatHolds", "id 1130 12 fill #00ff0080", {}},
        CheckCase{"AnAlphaThatIsWrong", "id 1130 12 fill #00ff00", {kGreen + " at 12 for 1130"}},
        CheckCase{"SomeLevelsAreWrong", "id 1130 10-13 fill #00ff0080", {kOpaqueRed + " at 10-11, 13 for 1130"}},
        CheckCase{"SomeStyleIdsOfATypeAreWrong", "highway 4 fill #ff0000", {"none at 4 for 1131"}},
        CheckCase{"SeveralWrongAnswers",
                  "id 1130 11,12 fill #00ff00",
                  {kOpaqueRed + " at 11 for 1130", kGreen + " at 12 for 1130"}},
        CheckCase{"OneWrongAnswerAtDifferentLevels",
                  "highway 4,5 fill none",
                  {kOpaqueRed + " at 4-5 for 1130", kOpaqueRed + " at 5 for 1131"}},
        CheckCase{
            "AllStyleIdsOfATypeTogether", "highwaylabel all text-fill-weight 4", {"3 at all levels for 1280 1281"}},
        CheckCase{"ASizeThatHolds", "highwaylabel 6 text-fill-weight 3", {}},
        CheckCase{"NotCustomisedHolds", "highway 4 stroke none", {}},
        CheckCase{"NotCustomisedIsWrong", "id 1130 4 fill none", {kOpaqueRed + " at 4 for 1130"}},
        CheckCase{"NoCustomStyleHolds", "town all none", {}},
        CheckCase{"TheIconOfAnUnmappedId", "id 7 all icon shown", {}},
        CheckCase{"NoCustomStyleIsWrong", "id 1130 4 none", {"13 at 4 for 1130"}},
        CheckCase{"TheTypeThatAnswersHolds", "id 1131 all type education", {}},
        CheckCase{"TheTypeThatAnswersIsWrong", "highway 4 type highway", {"6 at 4 for 1131"}},
        CheckCase{"TheTypeWhereNoneAnswers", "town 4 type town", {"none at 4 for 1520 1521"}},
        CheckCase{"AnIconThatHolds", "highwaylabel 5 icon hidden", {}},
        CheckCase{"AnIconThatIsWrong", "highwaylabel 4,5 icon hidden", {"0 at 4 for 1280 1281"}},
        CheckCase{"TheLandHolds", "land all background #112233", {}},
        CheckCase{"TheGridIsWrong", "grid 4 background none", {std::to_string(0xFF665544) + " at 4 for"}}),
    caseName);

TEST(FailureText, TellsWhatWasExpectedWhatIsAndWhy) {
    const QueriesEnabled enabled;
    const auto loaded = style();
    const SourceFile file("map.expect", "\n  highway 12,13 fill #00ff0080 // comment");
    const ExpectationFile parsed = parseExpectations(file, loaded->mapping());
    const auto failures = failuresOf(parsed.expectations, *loaded);
    EXPECT_EQ(
        customstyle_tool::failuresText(failures, file, *loaded, customstyle_tool::Swatches::None),
        "map.expect:2:3: highway 12,13 fill #00ff0080\n"
        "  expected #00ff00 alpha 80\n"
        "  found    #ff0000 alpha ff at level 13 for style id 1130\n"
        "  style id 1130 at level 13: 13 highway answers with its style for all levels\n"
        "  fill                #ff0000 alpha ff\n"
        "    from rule 1, style.json:1:68: color \"#ff0000\" on highway geometry.fill\n"
        "map.expect:2:3: highway 12,13 fill #00ff0080\n"
        "  expected #00ff00 alpha 80\n"
        "  found    not customised at levels 12-13 for style id 1131\n"
        "  style id 1131 at level 12: 6 education answers with its style for all levels\n"
        "  fill                not customised\n"
        "    lost #ff0000 alpha ff from rule 1, style.json:1:68: color \"#ff0000\" on highway geometry.fill: "
        "overwritten by rule 2 (color)\n"
        "    lost #00ff00 alpha 80 from rule 2, style.json:1:154: color \"#00ff0080\" on highway geometry.fill at "
        "level \"12\": 6 education answers first\n");
}

}  // namespace
}  // namespace customstyle_test
