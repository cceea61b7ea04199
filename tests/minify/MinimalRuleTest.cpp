#include <gtest/gtest.h>

#include <string>

#include "customstyle/CustomConfig.h"
#include "tests/study/Sources.h"
#include "tests/support/CaseName.h"
#include "tools/minify/Compact.h"
#include "tools/minify/MinimalRule.h"
#include "tools/minify/ShortValues.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::caseName;

struct RuleCase {
    const char* name;
    std::string style;
    std::string minimal;
};

class MinimalRules : public testing::TestWithParam<RuleCase> {};

TEST_P(MinimalRules, SayWhatTheComponentReads) {
    EXPECT_EQ(textOf(minimalRules(customstyle_test::StyleText(GetParam().style).source())), GetParam().minimal);
}

std::string ruleOf(const std::string& stylers) {
    return R"([{"featureType":"water","elementType":"fill","stylers":{)" + stylers + "}}]";
}

INSTANTIATE_TEST_SUITE_P(
    Styles, MinimalRules,
    testing::Values(
        RuleCase{"AnEmptyStyleStaysEmpty", "[ ]", "[]"},
        RuleCase{"SpacesInNamesStay", R"([{"featureType":"my water","elementType":"fill","stylers":{"weight":"3"}}])",
                 R"([{"featureType":"my water","elementType":"fill","stylers":{"weight":"3"}}])"},
        RuleCase{"UnknownMembersGo", ruleOf(R"("note":"x","weight":"3")"), ruleOf(R"("weight":"3")")},
        RuleCase{"OfDoubledMembersTheFirstStays", ruleOf(R"("weight":"3","weight":"4")"), ruleOf(R"("weight":"3")")},
        RuleCase{"StylersInCapitalsGo", ruleOf(R"("weight":"3","Color":"#3366cc")"), ruleOf(R"("weight":"3")")},
        RuleCase{"AStylerInCapitalsShutsOutTheOther", ruleOf(R"("Weight":"3","weight":"4","color":"#3366cc")"),
                 ruleOf(R"("color":"#3366cc")")},
        RuleCase{"AMemberInCapitalsIsWrittenAsTheComponentSpellsIt",
                 R"([{"FEATURETYPE":"water","elementtype":"fill","Stylers":{"weight":"3"}}])",
                 ruleOf(R"("weight":"3")")},
        RuleCase{"StylersThatAreNoTextsGo", ruleOf(R"("weight":3,"fontsize":"3")"), ruleOf(R"("fontsize":"3")")},
        RuleCase{"ALevelThatIsNoTextGoes", ruleOf(R"("weight":"3","level":12)"), ruleOf(R"("weight":"3")")},
        RuleCase{"ALevelIsHeldInTheRange", ruleOf(R"("weight":"3","level":"99")"),
                 ruleOf(R"("weight":"3","level":"21")")},
        RuleCase{"ALevelIsWrittenShort", ruleOf(R"("weight":"3","level":" +007.5")"),
                 ruleOf(R"("weight":"3","level":"7")")},
        RuleCase{"ATextEndsAtItsZeroCharacter", ruleOf(R"("weight":"3\u00004")"), ruleOf(R"("weight":"3")")},
        RuleCase{"EscapesGo", ruleOf(R"("visibility":"\u006ff\u0066")"), ruleOf(R"("visibility":"off")")},
        RuleCase{"QuotesAndControlCharactersStayEscaped", ruleOf(R"("weight":"\"\\\u0001\n")"),
                 ruleOf(R"("weight":"\"\\\u0001\n")")},
        RuleCase{"RulesWithoutStylerGo", ruleOf(R"("level":"12")"), "[]"},
        RuleCase{"WhatIsNoRuleGoes", R"([null,12,"x",[],{},{"featureType":"water"}])", "[]"},
        RuleCase{"RulesInAnObjectCount",
                 R"({"x":{"featureType":"water","elementType":"fill","stylers":{"weight":"3"}}})",
                 ruleOf(R"("weight":"3")")}),
    caseName);

TEST(CompactText, HasAllButTheBlanksBetweenThings) {
    const customstyle_test::StyleText text(
        "[ {\"a b\" : [ 1 , 2.50, [ ] ],\n\t\"c\": {\"d\": null, \"e\" : \" x \"} }, true , [false] ]\n");
    EXPECT_EQ(compactText(text.source().document()), R"([{"a b":[1,2.50,[]],"c":{"d":null,"e":" x "}},true,[false]])");
}

struct ValueCase {
    const char* name;
    const char* type;
    const char* styler;
    std::string value;
    std::string shortest;
};

class ShortValue : public testing::TestWithParam<ValueCase> {};

TEST_P(ShortValue, IsReadTheSame) {
    const _orvik_framework::CustomConfig component;
    const auto& [name, type, styler, value, shortest] = GetParam();
    EXPECT_EQ(shortValue(component, type, styler, value), shortest);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ShortValue,
    testing::Values(ValueCase{"OpaqueAlphaGoes", "water", "color", "#3366CCff", "#3366cc"},
                    ValueCase{"OtherAlphaStays", "water", "color", "#3366cc80", "#3366cc80"},
                    ValueCase{"EveryAlphaOfABoundaryGoes", "boundary", "color", "#3366cc80", "#3366cc"},
                    ValueCase{"WrongDigitsBecomeRightOnes", "water", "color", "#gg00cc", "#0000cc"},
                    ValueCase{"AShortColorStaysShort", "water", "color", "#f00", "#f00"},
                    ValueCase{"WhatFollowsTheAlphaGoes", "water", "color", "#3366cc80aa", "#3366cc80"},
                    ValueCase{"LeadingZerosGo", "water", "weight", "0007", "7"},
                    ValueCase{"NothingButZerosIsOneZero", "water", "fontsize", "000", "0"},
                    ValueCase{"LargeNumbersBecomeTheLargest", "water", "fontsize", "99999", "255"},
                    ValueCase{"WhatIsRefusedStays", "water", "weight", "1.5", "1.5"},
                    ValueCase{"OtherStylersStay", "water", "visibility", "off", "off"}),
    caseName);

}  // namespace
