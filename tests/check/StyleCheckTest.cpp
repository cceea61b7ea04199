#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <variant>

#include "tests/check/CheckedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/TemporaryDirectory.h"
#include "tools/check/StyleCheck.h"
#include "tools/host/Files.h"
#include "tools/host/LoadLog.h"
#include "tools/study/DefaultMapping.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string styleOf(std::initializer_list<std::string> rules) {
    return fmt::format("[{}]", fmt::join(rules, ",\n"));
}

// One rule, and what is found in it.
struct RuleCase {
    const char* name;
    const char* featureType;
    const char* elementType;
    const char* stylers;
    std::vector<std::string> findings;
};

void PrintTo(const RuleCase& rule, std::ostream* out) {
    *out << rule.featureType << " " << rule.elementType << " " << rule.stylers;
}

class OneRule : public testing::TestWithParam<RuleCase> {};

TEST_P(OneRule, HasTheseFindings) {
    const auto& [name, featureType, elementType, stylers, findings] = GetParam();
    EXPECT_EQ(codesWithPlaces(checkedStyle(styleOf({ruleText(featureType, elementType, stylers)}))), findings);
}

INSTANTIATE_TEST_SUITE_P(
    InOrder, OneRule,
    testing::Values(
        RuleCase{"Color", "water", "geometry.fill", R"({"color": "#3366cc"})", {}},
        RuleCase{"ColorWithAlpha", "water", "geometry.fill", R"({"color": "#3366CC80"})", {}},
        RuleCase{"InvisibleBlack", "water", "geometry.fill", R"({"color": "#00000000"})", {}},
        RuleCase{"WeightWithZeros", "highway", "geometry", R"({"weight": "007"})", {}},
        RuleCase{"LargestWeight", "highway", "geometry", R"({"weight": "255"})", {}},
        RuleCase{"FontSizeZero", "city", "labels", R"({"fontsize": "000"})", {}},
        RuleCase{"LevelWithZero", "water", "geometry", R"({"color": "#3366cc", "level": "09"})", {}},
        RuleCase{"HighestLevel", "water", "geometry", R"({"color": "#3366cc", "level": "21"})", {}},
        RuleCase{"EveryIconHidden", "all", "labels.icon", R"({"visibility": "off"})", {}},
        RuleCase{"LandColor", "land", "geometry.fill", R"({"color": "#3366cc"})", {}},
        RuleCase{"GridColor", "grid", "geometry.fill", R"({"color": "#3366cc"})", {}},
        RuleCase{"ShortElement", "highway", "labels.fill", R"({"color": "#3366cc"})", {}},
        RuleCase{"OnlyUnknownStylers",
                 "water",
                 "geometry",
                 R"({"note": "x", "opacity": "1", "blend": "2"})",
                 {R"(no-styler: "opacity")", R"(member-unknown: "blend")"}},
        RuleCase{"BareIcon", "poilabel", "icon", R"({"visibility": "off"})", {R"(parent-answers-last: "poilabel")"}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Colors, OneRule,
    testing::Values(
        RuleCase{"ShortWithoutSign", "water", "geometry", R"({"color": "f00"})", {R"(color-without-sign: "f00")"}},
        RuleCase{"ShortWithAlpha", "water", "geometry", R"({"color": "#f008"})", {R"(color-short: "#f008")"}},
        RuleCase{"Empty", "water", "geometry", R"({"color": ""})", {R"(color-without-sign: "")"}},
        RuleCase{"SignOnly", "water", "geometry", R"({"color": "#"})", {R"(color-length: "#")"}},
        RuleCase{
            "Function", "water", "geometry", R"x({"color": "rgb(1,2,3)"})x", {R"x(color-without-sign: "rgb(1,2,3)")x"}},
        RuleCase{"NameInCapitals", "water", "geometry", R"({"color": "RED"})", {R"(color-name: "RED")"}},
        RuleCase{"BlankBehind", "water", "geometry", R"({"color": "#3366cc "})", {R"(color-bad-digit: "#3366cc ")"}},
        RuleCase{"OtherCharacter",
                 "water",
                 "geometry",
                 "{\"color\": \"#3366c\xC3\xA9\"}",
                 {"color-bad-digit: \"#3366c\xC3\xA9\""}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Levels, OneRule,
    testing::Values(
        RuleCase{"Negative", "water", "geometry", R"({"color": "#3366cc", "level": "-3"})", {R"(level-clamped: "-3")"}},
        RuleCase{"Huge",
                 "water",
                 "geometry",
                 R"({"color": "#3366cc", "level": "99999999999999999999"})",
                 {R"(level-clamped: "99999999999999999999")"}},
        RuleCase{"Blank", "water", "geometry", R"({"color": "#3366cc", "level": " 12"})", {}},
        RuleCase{"Minus", "water", "geometry", R"({"color": "#3366cc", "level": "-"})", {R"(level-malformed: "-")"}},
        RuleCase{"Null", "water", "geometry", R"({"color": "#3366cc", "level": null})", {"value-not-text: null"}},
        RuleCase{"OfEveryIcon",
                 "all",
                 "icon",
                 R"({"visibility": "off", "level": "9"})",
                 {R"(icon-on-all: "visibility": "off")"}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Members, OneRule,
    testing::Values(RuleCase{"LevelInCapitalsIsRead",
                             "water",
                             "geometry",
                             R"({"color": "#3366cc", "LEVEL": "9"})",
                             {R"(member-case-accepted: "LEVEL")"}},
                    RuleCase{"CapitalsBeforeTheRightOne",
                             "water",
                             "geometry",
                             R"({"COLOR": "#3366cc", "color": "#3366cc"})",
                             {R"(member-letter-case: "COLOR")", R"(member-doubled: "color")"}},
                    RuleCase{"CapitalsThatAreIgnoredEvenWhereTheStylerDoesNothing",
                             "all",
                             "labels.icon",
                             R"({"visibility": "off", "WEIGHT": "76"})",
                             {R"(member-letter-case: "WEIGHT")"}},
                    RuleCase{"TypeInStylers",
                             "water",
                             "geometry",
                             R"({"color": "#3366cc", "featureType": "x"})",
                             {R"(member-misplaced: "featureType")"}},
                    RuleCase{
                        "NotesAreNotRead",
                        "water",
                        "geometry",
                        R"({"color": "#3366cc", "Note": 1, "_x": 2, "$y": 3, "//": 4, "comment": 5, "comment": 6})",
                        {}},
                    RuleCase{"NumberBesidesAStyler",
                             "city",
                             "labels",
                             R"({"color": "#3366cc", "fontsize": 12})",
                             {"value-not-text: 12"}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Elements, OneRule,
    testing::Values(
        RuleCase{"TextWithoutLabelsIsGeometry",
                 "highway",
                 "text.fill",
                 R"({"color": "#3366cc"})",
                 {R"(element-unusual: "text.fill")"}},
        RuleCase{
            "ForeignFirstWord", "highway", "road.fill", R"({"color": "#3366cc"})", {R"(element-unusual: "road.fill")"}},
        RuleCase{"LabelWithoutS",
                 "highway",
                 "label.text.fill",
                 R"({"color": "#3366cc"})",
                 {R"(element-unusual: "label.text.fill")"}},
        RuleCase{"AllOnLabelTypesIsFine", "highwaylabel", "all", R"({"color": "#3366cc"})", {}},
        RuleCase{
            "OnForNothing", "land", "labels", R"({"visibility": "on"})", {R"(nothing-reached: "visibility": "on")"}},
        RuleCase{"OnForNothingByAnUnusualPath",
                 "land",
                 "names.labels",
                 R"({"visibility": "on"})",
                 {R"(nothing-reached: "visibility": "on")"}}),
    caseName);

// The component does not get as far as the stylers.
TEST(StyleCheck, DoesNotBlameAMemberForARuleThatIsSkippedForItsType) {
    EXPECT_EQ(
        codesWithPlaces(checkedStyle(R"([{"featureType": true, "elementType": "all", "stylers": {"hue": "1"}}])")),
        (std::vector<std::string>{"type-not-text: true", R"(member-unknown: "hue")"}));
}

TEST(StyleCheck, SaysWhatIsDrawnInsteadOfAMalformedColor) {
    const CheckedFile checked = checkedStyle(styleOf({ruleText("water", "geometry", R"({"color": "red"})")}));
    EXPECT_THAT(messagesOf(checked, Code::ColorName),
                ElementsAre(R"("red" is a word, and colours have no names; it is read as #ed0000 alpha ff)"));
    EXPECT_EQ(checked.findings[0].remedy, R"(write "#ff0000")");
}

TEST(StyleCheck, SaysWhatAnUnusualElementComesTo) {
    const CheckedFile checked = checkedStyle(styleOf({ruleText("highway", "text.fill", R"({"color": "#3366cc"})")}));
    EXPECT_THAT(messagesOf(checked, Code::ElementUnusual),
                ElementsAre(R"("text.fill" has the effect of "geometry.fill")"));
}

TEST(StyleCheck, ProposesNamesThatAreMeant) {
    const auto remedyOf = [](const std::string& rule) { return checkedStyle(styleOf({rule})).findings.at(0).remedy; };
    EXPECT_EQ(remedyOf(ruleText("hihgway", "geometry", R"({"color": "#3366cc"})")), R"(did you mean "highway"?)");
    EXPECT_EQ(remedyOf(ruleText("water", "geometry", R"({"colour": "#3366cc"})")), R"(did you mean "color"?)");
    EXPECT_THAT(remedyOf(ruleText("water", "geomtry.fill", R"({"weight": "3"})")), HasSubstr(R"("geometry.fill")"));
    EXPECT_EQ(remedyOf(ruleText("water", "geometry", R"({"color": 255})")), R"(write "#0000ff")");
}

TEST(StyleCheck, FindsRulesBehindTheEnd) {
    const std::string style = styleOf({ruleText("water", "geometry", R"({"color": "#3366cc"})")});
    EXPECT_THAT(codesWithPlaces(checkedStyle(style + std::string("\0\0 []\n", 6))), ElementsAre("text-after-end: []"));
    EXPECT_THAT(codesWithPlaces(checkedStyle(style + std::string("\0\n", 2))), IsEmpty());
}

TEST(StyleCheck, QuotesWhatTheComponentLogsAboutAFileThatIsNoJson) {
    const TemporaryDirectory directory;
    auto source = readSource(directory.write("style.json", "[1,"), "style file");
    const CheckedStyle checked = checkStyle(std::get<0>(std::move(source)), Mapping::everyMap(), {}, {}, logOfStyle);
    const std::vector<Finding>& findings = checked.findings;
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(findings[0].log, "ZRX Custom Map: custom config file parse failed, format error");
}

TEST(StyleCheck, NamesTheRuleThatOverwrites) {
    const CheckedFile checked = checkedStyle(styleOf({ruleText("water", "geometry.fill", R"({"color": "#111111"})"),
                                                      ruleText("water", "geometry", R"({"color": "#222222"})")}));
    EXPECT_THAT(messagesOf(checked, Code::NoEffect),
                ElementsAre("the rule has no effect on the map: rule 2 overwrites all that it writes"));
    ASSERT_EQ(checked.findings[0].related.size(), 1U);
}

TEST(StyleCheck, NamesTheStylerOfARuleThatHasNoEffect) {
    const CheckedFile checked =
        checkedStyle(styleOf({ruleText("water", "geometry.fill", R"({"color": "#111111", "weight": "3"})"),
                              ruleText("water", "geometry", R"({"color": "#222222"})")}));
    EXPECT_THAT(codesWithPlaces(checked), ElementsAre(R"(no-effect: "color": "#111111")"));
}

TEST(StyleCheck, SaysThatAnotherTypeAnswers) {
    std::string mapping = defaultMapping();
    const std::size_t building = mapping.find("1003");
    mapping.replace(building, 4, "1002");  // that of "water"
    const CheckedFile checked =
        checkedStyle(styleOf({ruleText("water", "geometry.fill", R"({"color": "#111111"})"),
                              ruleText("building", "geometry.fill", R"({"color": "#222222"})")}),
                     mapping);
    EXPECT_THAT(messagesOf(checked, Code::NoEffect),
                ElementsAre("the rule has no effect on the map: other feature types answer for all its style ids"));
}

TEST(StyleCheck, ShowsPartialEffectsOnRequestOnly) {
    const std::string style = styleOf({ruleText("water", "geometry", R"({"color": "#111111"})"),
                                       ruleText("water", "geometry", R"({"color": "#222222", "level": "9"})")});
    EXPECT_THAT(codesWithPlaces(checkedStyle(style)), IsEmpty());
    EXPECT_THAT(messagesOf(checkedStyle(style, {}, true), Code::PartialEffect),
                ElementsAre("the rule has an effect only at levels 4-8, 10-21, other"));
}

TEST(StyleCheck, ReportsProgressOfTheProofs) {
    const auto file =
        std::make_shared<SourceFile>("style.json", styleOf({ruleText("water", "geometry", R"({"color": "#111111"})")}));
    std::size_t all = 0;
    checkStyle(file, Mapping::everyMap(), {.progress = [&](std::size_t, std::size_t cases) { all = cases; }});
    EXPECT_EQ(all, 1U);
}

TEST(StyleCheck, ReportsProgressOfTheProofsInWhicheverLaneTheyAreMade) {
    const std::string rule = ruleText("water", "geometry", R"({"color": "#111111"})");
    std::string rules = rule;
    for (int i = 1; i < 1000; ++i) rules += "," + rule;
    const auto file = std::make_shared<SourceFile>("style.json", styleOf({rules}));
    const Spread inSecondLane{.lanes = 2, .run = [](std::size_t items, const WorkItem& work) {
                                  for (std::size_t item = 0; item < items; ++item) work(item, 1);
                              }};
    std::size_t most = 0;
    const auto note = [&](std::size_t done, std::size_t) { most = std::max(most, done); };
    checkStyle(file, Mapping::everyMap(), {.progress = note}, inSecondLane, {});
    EXPECT_EQ(most, 1000U);
}

TEST(StyleCheck, KeepsTheOrderOfTheFile) {
    const CheckedFile checked = checkedStyle(contentOf(CUSTOMSTYLE_EXAMPLES_DIR "/styles/mistakes.json"));
    EXPECT_TRUE(
        std::ranges::is_sorted(checked.findings, {}, [](const Finding& finding) { return finding.range.begin; }));
}

}  // namespace
}  // namespace customstyle_test
