// Advice that can be followed: what is said to have no effect, who is to blame for it, and what is not said.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/check/CheckedText.h"
#include "tests/study/Sources.h"
#include "tests/support/CaseName.h"
#include "tests/support/RandomFiles.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/StoreDifference.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Written {
    const char* featureType;
    const char* elementType;
    const char* stylers;
};

CheckedFile checked(const std::vector<Written>& rules, std::string_view mapping = {}, bool effects = false) {
    std::string text = "[";
    for (const auto& [featureType, elementType, stylers] : rules) {
        text += (text.size() > 1 ? ",\n" : "") + ruleText(featureType, elementType, stylers);
    }
    return checkedStyle(text + "]", mapping, effects);
}

// "1 no-effect: message", in the order of the findings.
std::vector<std::string> saidOf(const CheckedFile& file) {
    std::vector<std::string> said;
    for (const Finding& finding : file.findings) {
        said.push_back(fmt::format("{} {}: {}", *finding.rule + 1, infoOf(finding.code).name, finding.message));
    }
    return said;
}

std::string mappingWith(std::initializer_list<std::pair<const char*, std::vector<int>>> lists) {
    return mappingText([&](int featureType) {
        for (const auto& [name, ids] : lists) {
            if (catalogue().GetFeatureTypeName(featureType) == name) return ids;
        }
        return std::vector<int>();
    });
}

// ---- All that is said about a style ---------------------------------------------------------------------------------

struct SaidCase {
    const char* name;
    std::vector<Written> rules;
    std::vector<std::string> said;
};

void PrintTo(const SaidCase& each, std::ostream* out) {
    *out << each.name;
}

class AllThatIsSaid : public testing::TestWithParam<SaidCase> {};

TEST_P(AllThatIsSaid, IsThis) {
    EXPECT_EQ(saidOf(checked(GetParam().rules)), GetParam().said);
}

// ---- What can go ----------------------------------------------------------------------------------------------------

TEST(WhatCanGo, IsOneOfTwoRulesThatSayTheSame) {
    const CheckedFile file =
        checked({{"water", "geometry", R"({"color": "#3366cc"})"}, {"water", "geometry", R"({"color": "#3366cc"})"}});
    EXPECT_THAT(saidOf(file),
                ElementsAre("2 no-effect: the rule has no effect on the map: it says the same as rule 1"));
    EXPECT_TRUE(file.findings[0].canGo);
}

// The last rule overwrites the records that the second one hides, but not the colour of the grid.
TEST(WhatCanGo, IsNotOverwrittenWhereTheGridColourStays) {
    EXPECT_THAT(saidOf(checked({{"grid", "geometry.fill", R"({"color": "#111111"})"},
                                {"grid", "geometry.fill", R"({"color": "#111111", "visibility": "off"})"},
                                {"grid", "all", R"({"visibility": "off"})"}})),
                testing::Contains("2 no-effect: the rule has no effect on the map"));
}

TEST(WhatCanGo, IsARuleThatWritesWhatNoRuleHasSet) {
    EXPECT_THAT(
        saidOf(checked({{"highway", "all", R"({"weight": "3"})"}, {"highway", "all", R"({"visibility": "on"})"}})),
        ElementsAre("2 no-effect: the rule has no effect on the map: it writes what is already there"));
}

// A rule for each type and level: more than the store has slots.
std::string rulesForEverySlot() {
    std::string rules;
    for (int level = 4; level <= 21; ++level) {
        for (int type = 0; type < 72; ++type) {
            rules +=
                ",\n" + ruleText(catalogue().GetFeatureTypeName(type), "geometry.fill",
                                 fmt::format(R"({{"color": "#{:06x}", "level": "{}"}})", 100 * type + level, level));
        }
    }
    return rules;
}

// A rule for "all" takes a slot; where all are taken, that one would go to a rule that is refused. Of the last rule one
// half is there already, and the other half finds no slot.
TEST(WhatCanGo, LeavesTheSlotsOfAFullStoreAsTheyAre) {
    const std::string forAll = ruleText("all", "geometry", R"({"color": "#112233"})");
    const CheckedFile alone = checkedStyle("[" + forAll + "]");
    ASSERT_EQ(alone.findings.size(), 1U);
    EXPECT_TRUE(alone.findings[0].canGo);

    const CheckedFile file =
        checkedStyle("[" + forAll + ",\n" + ruleText("highway", "geometry.fill", R"({"color": "#112233"})") +
                     rulesForEverySlot() + ",\n" + ruleText("highway", "labels.fill", R"({"color": "#112233"})") + "]");
    EXPECT_EQ(file.findings[0].code, Code::AllReachesNothing);
    EXPECT_FALSE(file.findings[0].canGo);
    const std::string dropped =
        "dropped: the file needs 1281 style keys, 40 more than the store holds, and none is left for ";
    EXPECT_EQ(messagesOf(file, Code::SlotsExceeded).front(), dropped + "\"nationalwaysign\" at level 21");
    const std::vector<std::string> said = saidOf(file);
    EXPECT_THAT(said, testing::Not(testing::Contains(testing::StartsWith("1299 no-effect"))));
    EXPECT_EQ(said.back(), "1299 slots-exceeded: " + dropped + "\"highwaylabel\" at all levels");
    EXPECT_FALSE(file.findings.back().canGo);
}

// Without the third rule the second shows, and so the third can only go after it.
TEST(WhatCanGo, CanGoByItself) {
    EXPECT_THAT(saidOf(checked({{"city", "geometry", R"({"color": "#445566"})"},
                                {"city", "geometry.stroke", R"({"color": "#112233", "level": "10"})"},
                                {"city", "geometry", R"({"color": "#445566", "level": "10"})"}})),
                ElementsAre("2 no-effect: the rule has no effect on the map: rule 3 overwrites all that it writes"));
}

// Each of the last two rules hides the second, so one of them has to stay.
TEST(WhatCanGo, CanGoTogether) {
    EXPECT_THAT(saidOf(checked({{"city", "geometry", R"({"color": "#445566"})"},
                                {"city", "geometry.stroke", R"({"color": "#112233", "level": "10"})"},
                                {"city", "geometry", R"({"color": "#445566", "level": "10"})"},
                                {"city", "geometry", R"({"color": "#445566", "level": "10"})"}})),
                ElementsAre("2 no-effect: the rule has no effect on the map: rule 3 overwrites all that it writes",
                            "4 no-effect: the rule has no effect on the map: it says the same as rule 3"));
}

TEST(WhatCanGo, IsNoRuleThatHidesEveryIconOfAMapWithoutStyleIds) {
    EXPECT_THAT(saidOf(checked({{"all", "labels.icon", R"({"visibility": "off"})"}}, R"({"land": []})")), IsEmpty());
}

std::vector<bool> stepsThatCanGo(const CheckedFile& file) {
    std::vector<bool> steps(file.study->steps().size());
    for (const Finding& finding : file.findings) {
        if (!finding.canGo) continue;
        const auto [begin, end] = file.study->stepsOf(*finding.rule);
        for (std::size_t i = finding.step.value_or(begin); i < (finding.step ? *finding.step + 1 : end); ++i) {
            steps[i] = true;
        }
    }
    return steps;
}

class RandomAdvice : public testing::TestWithParam<unsigned> {};

// Shared, negative, repeated and missing style ids among them.
TEST_P(RandomAdvice, LeavesEveryAnswerAsItIsWhenAllOfItIsFollowed) {
    RandomFiles files(GetParam());
    const std::string mapping = GetParam() % 8 == 0 ? Mapping::everyMap().text() : files.mapping();
    const CheckedFile file = checkedStyle(randomStyle(files, 25), GetParam() % 8 == 0 ? "" : mapping);
    const std::vector<bool> canGo = stepsThatCanGo(file);
    const ComponentGuard guard;
    _orvik_framework::CustomConfig rest;
    rest.ParseMappingConfig(componentTree(mapping).get());
    for (std::size_t i = 0; i < canGo.size(); ++i) {
        if (!canGo[i]) rest.ParseCustomConfig(file.study->singles()[i].document().get());
    }
    EXPECT_FALSE(fullDifferenceBetween(*storeOf(mapping, file.file->text()), rest).any());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomAdvice, testing::Range(0U, 40U));

// ---- Why a rule has no effect ---------------------------------------------------------------------------------------

// The last rule starts over from the style for all levels, which looks the same: it overwrites nothing of the second.
TEST(Reasons, AreNotMadeUp) {
    EXPECT_THAT(saidOf(checked({{"water", "geometry.fill", R"({"color": "#112233"})"},
                                {"water", "geometry.fill", R"({"color": "#112233", "level": "10"})"},
                                {"water", "geometry.stroke", R"({"color": "#445566", "level": "10"})"}})),
                ElementsAre("2 no-effect: the rule has no effect on the map"));
}

// The last rule says the same of the fill as the second, and starts the stroke over.
TEST(Reasons, CountOnlyWhatIsWrittenAgain) {
    EXPECT_THAT(saidOf(checked({{"water", "geometry", R"({"color": "#112233"})"},
                                {"water", "geometry", R"({"color": "#112233", "level": "10"})"},
                                {"water", "geometry.fill", R"({"color": "#112233", "level": "10"})"}})),
                ElementsAre("2 no-effect: the rule has no effect on the map",
                            "3 no-effect: the rule has no effect on the map: it says the same as rule 2"));
}

TEST(Reasons, AreTheSameForAGridWithoutStyleIds) {
    EXPECT_THAT(saidOf(checked({{"grid", "geometry.fill", R"({"color": "#112233"})"},
                                {"grid", "geometry.fill", R"({"color": "#445566"})"}},
                               mappingWith({}))),
                ElementsAre("1 no-effect: the rule has no effect on the map: rule 2 overwrites all that it writes"));
}

TEST(Reasons, AreThatTheMappingListsNothingWhateverTheStyler) {
    EXPECT_THAT(
        saidOf(
            checked({{"poilabel", "labels.icon", R"({"visibility": "on"})"}, {"all", "all", R"({"visibility": "on"})"}},
                    mappingWith({}))),
        ElementsAre("1 type-without-ids: the mapping lists no style id that the rule could reach for "
                    "\"poilabel\"; nothing changes",
                    "2 all-reaches-nothing: \"all\" does not mean the other types; nothing on the map changes"));
}

// ---- Who answers instead --------------------------------------------------------------------------------------------

TEST(SharedIds, AreReportedForEachTypeThatAnswersWithItsLevels) {
    const std::string mapping = mappingWith({{"water", {1, 2}}, {"green", {1}}, {"land", {2}}});
    const CheckedFile file = checked({{"green", "geometry", R"({"color": "#3366cc", "level": "12"})"},
                                      {"land", "geometry", R"({"color": "#cc3366"})"},
                                      {"water", "geometry", R"({"color": "#112233"})"}},
                                     mapping);
    EXPECT_THAT(messagesOf(file, Code::SharedIdsLost),
                ElementsAre("style ids that \"water\" shares with \"green\", such as 1, follow \"green\" at level 12",
                            "style ids that \"water\" shares with \"land\", such as 2, follow \"land\" at all levels"));
}

// Of two parents the first gives a style id its style, and each of them can hide its icon.
TEST(SharedIds, LetARuleChangeIconsOnly) {
    const CheckedFile file = checked({{"manmade", "geometry.fill", R"({"color": "#3366cc"})"},
                                      {"poilabel", "icon", R"({"visibility": "off"})"},
                                      {"poilabel", "icon", R"({"visibility": "on", "level": "12"})"}},
                                     mappingWith({{"manmade", {1}}, {"poilabel", {1}}}), true);
    EXPECT_THAT(messagesOf(file, Code::PartialEffect),
                ElementsAre("the rule has an effect only at levels 4-11, 13-21, other on icons",
                            "the rule has an effect only on icons"));
}

// ---- Who is to blame ------------------------------------------------------------------------------------------------

TEST(Culprits, AreThoseThatWriteTheValuesAgain) {
    EXPECT_THAT(saidOf(checked({{"highway", "geometry.fill", R"({"color": "#112233"})"},
                                {"highway", "geometry.stroke", R"({"color": "#112233"})"},
                                {"highway", "geometry.topsurface", R"({"color": "#112233"})"},
                                {"highway", "geometry", R"({"color": "#445566"})"}})),
                ElementsAre("1 no-effect: the rule has no effect on the map: rule 4 overwrites all that it writes",
                            "2 no-effect: the rule has no effect on the map: rule 4 overwrites all that it writes",
                            "3 no-effect: the rule has no effect on the map: rule 4 overwrites all that it writes"));
}

TEST(Culprits, AreNamedByTheStylerThatWrites) {
    EXPECT_THAT(
        saidOf(checked({{"highway", "geometry.fill", R"({"color": "#112233"})"},
                        {"highway", "geometry", R"({"color": "#445566", "weight": "3"})"}})),
        ElementsAre("1 no-effect: the rule has no effect on the map: the color of rule 2 overwrites all that it "
                    "writes"));
}

TEST(Culprits, AreAllNamed) {
    EXPECT_THAT(
        saidOf(checked({{"highway", "geometry", R"({"weight": "2"})"},
                        {"highway", "geometry.fill", R"({"weight": "3"})"},
                        {"highway", "geometry.stroke", R"({"weight": "4"})"}})),
        ElementsAre("1 no-effect: the rule has no effect on the map: rules 2 and 3 overwrite all that it writes"));
}

TEST(Culprits, AreRulesFirstAndThenStylers) {
    EXPECT_THAT(saidOf(checked({{"water", "geometry", R"({"color": "#445566"})"},
                                {"water", "geometry.fill", R"({"color": "#112233"})"},
                                {"water", "geometry.stroke", R"({"color": "#112233"})"},
                                {"water", "geometry.topsurface", R"({"color": "#112233", "visibility": "on"})"}})),
                testing::Contains("1 no-effect: the rule has no effect on the map: rules 2 and 3, and the color of "
                                  "rule 4 overwrite all that it writes"));
}

TEST(Victims, NameWhatHidesThemAndItNamesThem) {
    const CheckedFile file = checked({{"highwaylabel", "labels.text.fill", R"({"color": "#112233"})"},
                                      {"highwaylabel", "labels.text.stroke", R"({"color": "#445566"})"},
                                      {"highwaylabel", "labels", R"({"fontsize": "9"})"},
                                      {"highwaylabel", "labels.text.topsurface", R"({"color": "#112233"})"}});
    const auto hidden = [](const char* fields) {
        return fmt::format(" hidden-by-rule: the {} that it gives \"highwaylabel\" is not drawn: rule 4 disables it",
                           fields);
    };
    EXPECT_THAT(saidOf(file),
                ElementsAre("1" + hidden("text fill"), "2" + hidden("text stroke"), "3" + hidden("font size"),
                            "4 element-matches-nothing: labels of \"highwaylabel\" have no such element: nothing is "
                            "written, and this hides what rules 1, 2 and 3 set"));
    for (const Finding& finding : file.findings) EXPECT_FALSE(finding.canGo);
    EXPECT_EQ(file.findings[0].remedy, "correct the element of rule 4");
    EXPECT_EQ(file.findings[3].related.size(), 3U);
}

// A record for one level lives on where that for all levels is hidden, and the other way round.
INSTANTIATE_TEST_SUITE_P(
    HiddenLevels, AllThatIsSaid,
    testing::Values(
        SaidCase{"AllButOne",
                 {{"highwaylabel", "labels.text.fill", R"({"color": "#112233"})"},
                  {"highwaylabel", "labels.text.topsurface", R"({"color": "#112233"})"},
                  {"highwaylabel", "labels.text.fill", R"({"color": "#445566", "level": "9"})"},
                  {"city", "labels.text.fill", R"({"color": "#112233", "level": "7"})"}},
                 {"1 hidden-by-rule: the text fill that it gives \"highwaylabel\" is not drawn at levels 4-8, 10-21, "
                  "other: rule 2 disables it",
                  "2 element-matches-nothing: labels of \"highwaylabel\" have no such element: nothing is written, and "
                  "this hides what rule 1 set"}},
        SaidCase{"One",
                 {{"highwaylabel", "labels.text.fill", R"({"color": "#112233", "level": "9"})"},
                  {"highwaylabel", "labels.text.topsurface", R"({"color": "#112233", "level": "9"})"}},
                 {"1 hidden-by-rule: the text fill that it gives \"highwaylabel\" is not drawn at level 9: rule 2 "
                  "disables it",
                  "2 element-matches-nothing: labels of \"highwaylabel\" have no such element: nothing is written, and "
                  "this hides what rule 1 set"}}),
    caseName);

TEST(Victims, AreNoneWhereALaterRuleBringsThemBack) {
    EXPECT_THAT(saidOf(checked({{"town", "labels.text.fill", R"({"color": "#112233"})"},
                                {"town", "labels.text.topsurface", R"({"color": "#112233"})"},
                                {"town", "labels", R"({"fontsize": "9"})"}})),
                ElementsAre("2 element-matches-nothing: nothing is written: labels of \"town\" have no such element"));
}

// ---- Backgrounds ----------------------------------------------------------------------------------------------------

const std::string kNoFill =
    "land-invisible: the land's background becomes #000000 alpha 00 (invisible) at all levels: the land is customised, "
    "and no rule gives it a fill";

INSTANTIATE_TEST_SUITE_P(
    Backgrounds, AllThatIsSaid,
    testing::Values(
        SaidCase{"Weight", {{"land", "geometry", R"({"weight": "3"})"}}, {"1 " + kNoFill}},
        SaidCase{"IconOn", {{"land", "icon", R"({"visibility": "on"})"}}, {"1 " + kNoFill}},
        SaidCase{"AllOn", {{"land", "all", R"({"visibility": "on"})"}}, {"1 " + kNoFill}},
        SaidCase{"TopSurface", {{"land", "geometry.topsurface", R"({"color": "#112233"})"}}, {"1 " + kNoFill}},
        SaidCase{"Filled",
                 {{"land", "geometry", R"({"weight": "3"})"}, {"land", "geometry.fill", R"({"color": "#112233"})"}},
                 {}},
        SaidCase{"Off",
                 {{"land", "geometry", R"({"visibility": "off"})"}},
                 {"1 land-hidden: the land's background becomes #000000 alpha 00 (invisible) at all levels"}},
        SaidCase{"AtOneLevel",
                 {{"land", "geometry", R"({"weight": "3", "level": "9"})"}},
                 {"1 land-invisible: the land's background becomes #000000 alpha 00 (invisible) at level 9: the "
                  "land is customised, and no rule gives it a fill"}},
        SaidCase{"GridGeometry",
                 {{"grid", "geometry", R"({"color": "#112233"})"}},
                 {"1 grid-unchanged: the grid's background stays as it is"}},
        SaidCase{"GridGeometryAfterAColour",
                 {{"grid", "all", R"({"color": "#445566"})"}, {"grid", "geometry", R"({"color": "#112233"})"}},
                 {"2 grid-unchanged: the grid's background stays #445566 alpha ff"}},
        SaidCase{"GridLevel",
                 {{"grid", "geometry.fill", R"({"color": "#112233", "level": "9"})"}},
                 {"1 grid-level-lost: the grid has one colour for all levels; the level is lost"}}),
    caseName);

// ---- What "on" brings back ------------------------------------------------------------------------------------------

const std::string kNotRestored =
    " on-restores-no-color: \"on\" brings back icons only; what \"off\" made transparent stays transparent";

INSTANTIATE_TEST_SUITE_P(
    Restoring, AllThatIsSaid,
    testing::Values(
        SaidCase{"AllAfterOff",
                 {{"city", "all", R"({"visibility": "off"})"}, {"city", "all", R"({"visibility": "on"})"}},
                 {"2" + kNotRestored}},
        SaidCase{"IconsAlone",
                 {{"highway", "all", R"({"visibility": "off"})"}, {"highway", "icon", R"({"visibility": "on"})"}},
                 {}},
        SaidCase{"ColoursThatCameBack",
                 {{"city", "labels", R"({"visibility": "off"})"},
                  {"city", "labels", R"({"color": "#112233"})"},
                  {"city", "labels", R"({"visibility": "on"})"}},
                 {"1 no-effect: the rule has no effect on the map: rules 2 and 3 overwrite all that it writes"}}),
    caseName);

// ---- False alarms ---------------------------------------------------------------------------------------------------

TEST(NoAlarm, IsGivenForAnElementThatOnlyAnotherStylerLacks) {
    EXPECT_THAT(codesWithPlaces(checked({{"green", "geometry.fill", R"({"visibility": "on", "weight": "x"})"}})),
                ElementsAre(R"(on-restores-no-color: "visibility": "on")", R"(size-not-digits: "x")"));
}

TEST(NoAlarm, IsGivenForTheGeometryOfTypesThatHaveNone) {
    for (const char* const type : {"city", "hotellabel"}) {
        EXPECT_THAT(saidOf(checked({{type, "labels", R"({"weight": "3"})"}})), IsEmpty()) << type;
    }
}

TEST(NoAlarm, IsGivenForNamesOfTheLand) {
    for (const std::string& said : saidOf(checked({{"land", "geometry", R"({"visibility": "off"})"}}))) {
        EXPECT_THAT(said, testing::Not(HasSubstr("names")));
    }
}

TEST(NoAlarm, IsGivenForALevelThatTheComponentReads) {
    for (const char* const level : {" 12", "+12", "012", "\\t9"}) {
        const std::string stylers = fmt::format(R"({{"color": "#3366cc", "level": "{}"}})", level);
        EXPECT_THAT(saidOf(checked({{"water", "geometry", stylers.c_str()}})), IsEmpty()) << level;
    }
}

TEST(NoAlarm, IsGivenBecauseOfAStyleIdThatNoQuestionFinds) {
    std::string mapping = defaultMapping();
    mapping.replace(mapping.find("[1002]"), 6, "[-5,7]");
    EXPECT_THAT(saidOf(checked({{"water", "geometry", R"({"color": "#3366cc"})"}}, mapping)), IsEmpty());
}

// ---- Files that are not JSON ----------------------------------------------------------------------------------------

TEST(BrokenFile, IsCheckedAsFarAsItCanBeRead) {
    const CheckedFile file = checkedStyle("[" + ruleText("lake", "all", R"({"color": "#3366cc"})") + ",\n" +
                                          R"({"featureType": "water" "elementType": "all"},)" + "\n" +
                                          ruleText("water", "geometry", R"({"color": "#36c"})") + "]");
    EXPECT_THAT(codesWithPlaces(file),
                ElementsAre(R"(type-unknown: "lake")", "json-syntax:  ", R"(color-short: "#36c")"));
}

TEST(BrokenFile, IsNotProven) {
    const std::string rule = ruleText("water", "geometry", R"({"color": "#3366cc"})");
    EXPECT_THAT(codesWithPlaces(checkedStyle("[" + rule + "," + rule + " " + rule + "]")),
                ElementsAre("json-syntax:  "));
}

struct LenientCase {
    const char* name;
    const char* note;
    bool isLenient;
};

class Leniency : public testing::TestWithParam<LenientCase> {};

TEST_P(Leniency, IsReported) {
    const std::string rule = fmt::format(
        R"([{{"featureType": "water", "elementType": "geometry", "stylers": {{"color": "#3366cc"}}, "note": {}}}])",
        GetParam().note);
    const CheckedFile file = checkedStyle(rule);
    EXPECT_EQ(file.findings.size(), GetParam().isLenient ? 1U : 0U);
    for (const Finding& finding : file.findings) EXPECT_EQ(finding.code, Code::JsonLenient);
}

INSTANTIATE_TEST_SUITE_P(
    Values, Leniency,
    testing::Values(LenientCase{"ZeroInFront", "007", true}, LenientCase{"PointAtTheEnd", "1.", true},
                    LenientCase{"PointInFront", "-.5", true}, LenientCase{"LineBreak", "\"a\nb\"", true},
                    LenientCase{"ByteAbove127", "\"\xE9\"", true}, LenientCase{"Zero", "0", false},
                    LenientCase{"Exponent", "-1.5E+3", false}, LenientCase{"Utf8", "\"\xC3\xA9\"", false},
                    LenientCase{"EscapeWithFourDigits", R"("\u00e9\u00C9")", false},
                    LenientCase{"EscapedBackslashBeforeU", R"("C:\\users")", false}),
    caseName);

TEST(Leniency, OfAnEscapeWithoutFourDigitsIsReportedBesideWhatIsCut) {
    EXPECT_THAT(
        codesWithPlaces(checkedStyle(
            R"([{"featureType": "water", "elementType": "geometry", "stylers": {"color": "#3366cc"}, "note": "C:\users"}])")),
        ElementsAre(R"(json-lenient: "C:\users")", R"(text-cut-at-nul: "C:\users")"));
}

TEST(AnObjectAsStyle, HasRulesOrIsSaidToHaveNone) {
    EXPECT_THAT(codesWithPlaces(checkedStyle("{}")), ElementsAre("no-rules: {}", "not-a-list: {"));
    EXPECT_THAT(
        codesWithPlaces(checkedStyle(R"({"a": )" + ruleText("water", "geometry", R"({"color": "#3366cc"})") + "}")),
        ElementsAre("not-a-list: {"));
}

}  // namespace
}  // namespace customstyle_test
