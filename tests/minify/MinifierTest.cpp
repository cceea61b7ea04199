#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/StyleBuilder.h"
#include "tests/support/TestStore.h"
#include "tools/minify/Minifier.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::caseName;
using customstyle_test::rule;
using customstyle_test::styleOf;
using customstyle_test::testMapping;

Minified minifiedText(const std::string& style, const std::optional<std::string>& mapping = {}) {
    const SourceFile file("style.json", style);
    return minified(StyleSource(file, std::get<JsonDocument>(parseJson(file.text()))), mapping);
}

struct Case {
    const char* name;
    std::string style;
    std::string minified;
};

class MinifiedStyle : public testing::TestWithParam<Case> {};

TEST_P(MinifiedStyle, IsTheShortestWithTheSameEffect) {
    const Minified result = minifiedText(GetParam().style);
    EXPECT_EQ(result.text, GetParam().minified);
    EXPECT_EQ(result.thoroughness, Thoroughness::Full);
}

const auto kFill = rule("water", "fill").color("#3366cc");
const auto kFillAt12 = rule("water", "fill").color("#3366cc").level("12");
const auto kHeavyAt12 = rule("water", "fill").weight("3").level("12");

std::string text(std::initializer_list<customstyle_test::RuleBuilder> rules) {
    std::string compact;
    for (const char byte : styleOf(rules)) {
        if (byte != ' ' && byte != '\n') compact += byte;
    }
    return compact;
}

INSTANTIATE_TEST_SUITE_P(
    Styles, MinifiedStyle,
    testing::Values(
        Case{"AnEmptyStyleStaysEmpty", "[\n]\n", "[]"},
        Case{"ALongPathIsCut", styleOf({rule("water", "geometry.fill").color("#3366cc")}), text({kFill})},
        Case{"APathOfLabelsKeepsItsMark", styleOf({rule("water", "labels.text.fill").color("#3366cc")}),
             text({rule("water", "all.fill").color("#3366cc")})},
        Case{"ARefusedRuleGoes", styleOf({rule("lake", "fill").color("#3366cc"), kFill}), text({kFill})},
        Case{"ARefusedStylerGoes", styleOf({rule("water", "fill").color("#3366cc").fontsize("3")}), text({kFill})},
        Case{"AnOverwrittenRuleGoes", styleOf({rule("water", "fill").color("#000000"), kFill}), text({kFill})},
        Case{"OfTwoEqualRulesOneGoes", styleOf({kFill, kFill}), text({kFill})},
        Case{"ALevelThatRepeatsAllLevelsGoes", styleOf({kFill, kFillAt12}), text({kFill})},
        Case{"ARuleResetByAnotherGoes",
             styleOf({kFill, rule("water", "stroke").color("#000000").level("12"), kHeavyAt12}),
             text({kFill, kHeavyAt12})},
        Case{"AStylerThatResetsAnotherStays",
             styleOf({kFill, rule("water", "stroke").color("#000000").weight("3").level("12")}),
             text({kFill, rule("water", "stroke").weight("3").level("12")})},
        Case{"RulesForTheSameElementAreMerged",
             styleOf({kFill, rule("green", "fill").color("#000000"), rule("water", "fill").weight("3")}),
             text({rule("water", "fill").color("#3366cc").weight("3"), rule("green", "fill").color("#000000")})},
        Case{"RulesForALevelAreMergedWhereNothingResetsThem",
             styleOf({rule("water", "fill").color("#3366cc").level("12"), kHeavyAt12}),
             text({rule("water", "fill").color("#3366cc").weight("3").level("12")})},
        Case{"OtherLevelsAreNotMerged", styleOf({kFillAt12, rule("water", "fill").weight("3").level("13")}),
             text({kFillAt12, rule("water", "fill").weight("3").level("13")})},
        Case{"OtherElementsAreNotMerged", styleOf({kFill, rule("water", "stroke").weight("3")}),
             text({kFill, rule("water", "stroke").weight("3")})},
        Case{
            "EqualColoursOfAllElementsAreThoseOfTheGeometry",
            styleOf({rule("water", "geometry.fill").color("#3366cc"), rule("water", "geometry.stroke").color("#3366cc"),
                     rule("water", "geometry.topsurface").color("#3366cc")}),
            text({rule("water", "geometry").color("#3366cc")})},
        Case{
            "AnElementThatDiffersComesAfterTheGeometry",
            styleOf({rule("water", "geometry.fill").color("#3366cc"), rule("water", "geometry.stroke").color("#3366cc"),
                     rule("water", "geometry.topsurface").color("#000000")}),
            text({rule("water", "geometry").color("#3366cc"), rule("water", "topsurface").color("#000000")})},
        Case{"EqualTextColoursAreThoseOfTheLabels",
             styleOf({rule("city", "labels.text.fill").color("#3366cc"),
                      rule("city", "labels.text.stroke").color("#3366cc")}),
             text({rule("city", "all").color("#3366cc")})},
        Case{"AFontSizeGoesWithTheColour",
             styleOf({rule("city", "labels.text.fill").color("#3366cc"), rule("city", "labels").fontsize("12")}),
             text({rule("city", "all.fill").color("#3366cc").fontsize("12")})},
        Case{"ALevelThatAllLevelsShareGoes", styleOf({rule("all", "icon").visibility("off").level("12")}),
             text({rule("all", "icon").visibility("off")})},
        Case{"TheSameRuleForAnotherTypeStays", styleOf({kFill, rule("green", "fill").color("#3366cc")}),
             text({kFill, rule("green", "fill").color("#3366cc")})},
        Case{"TheSameColorForTheGridIsSaidOnce",
             styleOf({rule("grid", "fill").color("#3366cc"), rule("grid", "fill").color("#3366cc")}),
             text({rule("grid", "all").color("#3366cc")})},
        Case{"EveryIconIsHiddenOnce",
             styleOf({rule("all", "icon").visibility("off"), rule("all", "icon").visibility("off")}),
             text({rule("all", "icon").visibility("off")})},
        Case{"WhatHasNoEffectOnAnyMapGoes", styleOf({rule("highwaylabel", "labels.text.topsurface").color("#3366cc")}),
             "[]"},
        Case{"ATypeThatKeepsAnIconShownStays",
             styleOf({rule("highwaylabel", "topsurface").visibility("on").weight("2"),
                      rule("highwaylabel", "all.topsurface").color("#3366cc"),
                      rule("poilabel", "icon").visibility("off")}),
             text({rule("highwaylabel", "all.topsurface").color("#3366cc"),
                   rule("poilabel", "icon").visibility("off")})},
        Case{"ATypeThatKeepsAnIconShownStaysBesideAGridColour",
             styleOf({rule("grid", "fill").color("#112233"),
                      rule("highwaylabel", "topsurface").visibility("on").weight("2"),
                      rule("highwaylabel", "all.topsurface").color("#3366cc"),
                      rule("poilabel", "icon").visibility("off")}),
             text({rule("grid", "all").color("#112233"), rule("highwaylabel", "all.topsurface").color("#3366cc"),
                   rule("poilabel", "icon").visibility("off")})},
        Case{"LabelsThatAreReachedThroughTheirTypeAreNamedShorter",
             styleOf({rule("highway", "labels").color("#112233"),
                      rule("highwaylabel", "labels.text.stroke").weight("1")}),
             text({rule("highway", "all").color("#112233"), rule("highway", "all.stroke").weight("1")})},
        Case{"RulesForATypeAndForItsLabelsAreMerged",
             styleOf({rule("highway", "labels.icon").visibility("off"), rule("highway", "all").color("#112233"),
                      rule("highwaylabel", "labels").weight("1")}),
             text({rule("highwaylabel", "labels").visibility("off").weight("1"),
                   rule("highway", "all").color("#112233")})},
        Case{"IconsOfAHiddenMapNeedNoRule",
             styleOf({rule("all", "icon").visibility("off"), kFill, rule("highwaylabel", "fill").fontsize("2"),
                      rule("poilabel", "labels.text.topsurface").color("#3366cc")}),
             text({rule("all", "icon").visibility("off"), kFill})}),
    caseName);

std::string mappingWithWater(const std::string& ids) {
    std::string mapping = testMapping();
    const std::size_t begin = mapping.find('[', mapping.find("\"water\""));
    return mapping.replace(begin, mapping.find(']', begin) - begin + 1, ids);
}

// Too many to try all pairs.
TEST(Minifier, MergesTheRulesForEachOfManyLevels) {
    std::string style;
    for (int level = 4; level <= 21; ++level) {
        const std::string number = std::to_string(level);
        style += (style.empty() ? "[" : ",") + rule("water", "fill").weight(number).level(number).json() + "," +
                 rule("water", "fill").color("#33" + std::to_string(level + 10) + "cc").level(number).json();
    }
    EXPECT_EQ(minifiedText(style + "]").rules, 18U);
}

TEST(Minifier, MergesTheElementsForEachOfManyLevels) {
    std::string style;
    std::string geometry;
    for (int level = 4; level <= 21; ++level) {
        const std::string number = std::to_string(level);
        const auto colored = [&](const char* element) {
            return rule("water", element).color("#33" + std::to_string(level + 10) + "cc").level(number).json();
        };
        for (const char* element : {"fill", "stroke", "topsurface"})
            style += (style.empty() ? "[" : ",") + colored(element);
        geometry += (geometry.empty() ? "[" : ",") + colored("geometry");
    }
    std::erase(geometry, ' ');
    EXPECT_EQ(minifiedText(style + "]").text, geometry + "]");
}

TEST(Minifier, UsesWhatTheMappingCannotShow) {
    EXPECT_EQ(minifiedText(styleOf({kFill})).rules, 1U);
    EXPECT_EQ(minifiedText(styleOf({kFill}), mappingWithWater("[]")).text, "[]");
    EXPECT_EQ(minifiedText(styleOf({kFill}), mappingWithWater("[-5]")).text, "[]");
    EXPECT_EQ(minifiedText(styleOf({kFill}), mappingWithWater("[-5,7]")).text, text({kFill}));
}

TEST(Minifier, KeepsWhatHidesIconsThatTheMappingDoesNotList) {
    const std::string emptyMapping = mappingText([](int) { return std::vector<int>{}; });
    const std::string hidden = text({rule("all", "icon").visibility("off")});
    EXPECT_EQ(minifiedText(styleOf({rule("all", "labels.icon").visibility("off"), kFill}), emptyMapping).text, hidden);
}

TEST(Minifier, DropsWhatOnlySharedStyleIdsWouldShow) {
    // Every style id of "water" is one of "green", which answers first.
    const std::string mapping = mappingWithWater("[1010,1011]");
    const auto green = rule("green", "fill").color("#000000");
    EXPECT_EQ(minifiedText(styleOf({kFill, green}), mapping).text, text({green}));
}

TEST(Minifier, KeepsTheEffectOfAStyleThatFillsEverySlot) {
    // More keys than slots: which rules are refused depends on the order of all of them.
    const _orvik_framework::CustomConfig catalogue;
    std::string style;
    for (int level = 4; level <= 21; ++level) {
        for (int type = 0; type < 72; ++type) {
            const auto each = rule(catalogue.GetFeatureTypeName(type), "geometry.fill");
            style += (style.empty() ? "[" : ",") +
                     customstyle_test::RuleBuilder(each).color("#3366cc").level(std::to_string(level)).json();
        }
    }
    const Minified result = minifiedText(style + "]");
    EXPECT_LE(result.text.size(), style.size() + 1);
    EXPECT_GE(result.rules, 1241U);
}

TEST(Minifier, LeavesTheSwitchAsItWas) {
    g_zrsdk_custom_style_enable = 0;
    minifiedText("[]");
    EXPECT_EQ(g_zrsdk_custom_style_enable, 0);
}

}  // namespace
