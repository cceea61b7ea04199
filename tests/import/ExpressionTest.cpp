#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/support/CaseName.h"
#include "tools/import/Expression.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

constexpr double kZoom = 10;

const Feature& road() {
    static const Feature feature{"LineString", {{"class", "motorway"}, {"lanes", 4}, {"toll", true}}};
    return feature;
}

struct ExpressionCase {
    std::string name;
    std::string expression;
    std::string value;  ///< empty where it is not understood
};

class MapExpression : public testing::TestWithParam<ExpressionCase> {};

TEST_P(MapExpression, HasTheValueThatRenderersGive) {
    const auto found = valueOf(MapJson::parse(GetParam().expression), road(), kZoom);
    if (GetParam().value.empty()) {
        EXPECT_FALSE(found) << found->json;
        return;
    }
    ASSERT_TRUE(found);
    const MapJson wanted = MapJson::parse(GetParam().value);
    if (wanted.is_string() && wanted.get<std::string>().starts_with("#")) {
        EXPECT_EQ(found->color, cssColorIn(wanted.get<std::string>()));
    } else {
        EXPECT_EQ(found->json, wanted);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Values, MapExpression,
    testing::Values(
        ExpressionCase{"APlainNumber", "3.5", "3.5"}, ExpressionCase{"APlainColour", R"("#abc")", R"("#aabbcc")"},
        ExpressionCase{"Rgba", R"j("rgba(255, 0, 16, 0.5)")j", R"("#ff001080")"},
        ExpressionCase{"Hsl", R"j("hsl(120, 100%, 25%)")j", R"("#008000")"},
        ExpressionCase{"HslWithAlpha", R"j("hsla(0, 0%, 100%, 0)")j", R"("#ffffff00")"},
        ExpressionCase{"RgbBeyondItsRangeWithBlanks", R"j("rgb( 300, -5, 0 )")j", R"("#ff0000")"},
        ExpressionCase{"HslOfAllThreeParts", R"j("hsl(210, 50%, 40%)")j", R"("#336699")"},
        ExpressionCase{"HslInDegrees", R"j("hsl(120deg, 100%, 25%)")j", R"("#008000")"},
        ExpressionCase{"HslOfAGrey", R"j("hsl(0, 0%, 80%)")j", R"("#cccccc")"},
        ExpressionCase{"AColourFromAText", R"(["to-color", "#102030"])", R"("#102030")"},
        ExpressionCase{"AProperty", R"(["get", "class"])", R"("motorway")"},
        ExpressionCase{"AnAbsentProperty", R"(["get", "oneway"])", "null"},
        ExpressionCase{"AMatch", R"(["match", ["get", "class"], ["trunk", "motorway"], 1, "path", 2, 3])", "1"},
        ExpressionCase{"AMatchWithALaterLabel", R"(["match", ["get", "class"], "path", 1, "motorway", 2, 3])", "2"},
        ExpressionCase{"AMatchWithoutAny", R"(["match", ["get", "class"], "path", 2, 3])", "3"},
        ExpressionCase{"ACase", R"(["case", ["==", ["get", "lanes"], 2], "a", [">", ["get", "lanes"], 3], "b", "c"])",
                       R"("b")"},
        ExpressionCase{"AStepBelow", R"(["step", ["zoom"], 1, 10.5, 2])", "1"},
        ExpressionCase{"AStepAtItsZoom", R"(["step", ["zoom"], 1, 10, 2, 11, 3])", "2"},
        ExpressionCase{"ALinearWay", R"(["interpolate", ["linear"], ["zoom"], 8, 0, 12, 4])", "2.0"},
        ExpressionCase{"AnExponentialWay", R"(["interpolate", ["exponential", 2], ["zoom"], 8, 0, 12, 15])", "3.0"},
        ExpressionCase{"AWayOfColours", R"(["interpolate", ["linear"], ["zoom"], 8, "#000000", 12, "#804020"])",
                       R"("#402010")"},
        ExpressionCase{"AWayBeforeItsBegin", R"(["interpolate", ["linear"], ["zoom"], 11, 1, 12, 4])", "1"},
        ExpressionCase{"Stops", R"({"stops": [[8, 1], [12, 3]]})", "2.0"},
        ExpressionCase{"StopsWithBase", R"({"base": 2, "stops": [[8, 0], [12, 15]]})", "3.0"},
        ExpressionCase{"Coalesced", R"(["coalesce", ["get", "oneway"], ["get", "lanes"]])", "4"},
        ExpressionCase{"ALiteral", R"(["literal", ["a", "b"]])", R"(["a", "b"])"},
        ExpressionCase{"Channels", R"(["rgb", 16, 32, 48])", R"("#102030")"},
        ExpressionCase{"AnUnknownOperator", R"(["concat", "a", "b"])", ""},
        ExpressionCase{"AnUnknownOperatorInside", R"(["step", ["zoom"], 1, 9, ["pi"]])", ""},
        ExpressionCase{"AnUnknownWay", R"(["interpolate", ["cubic-bezier", 0, 0, 1, 1], ["zoom"], 8, 0, 12, 4])", ""},
        ExpressionCase{"StopsOfAProperty", R"({"property": "lanes", "stops": [[1, 1], [2, 2]]})", ""},
        ExpressionCase{"AWayOfTexts", R"(["interpolate", ["linear"], ["zoom"], 8, "a", 12, "b"])", ""},
        ExpressionCase{"AStepAtAText", R"(["step", ["zoom"], 1, "9", 2])", ""},
        ExpressionCase{"AWayFromAText", R"(["interpolate", ["linear"], ["zoom"], "8", 0, 12, 4])", ""},
        ExpressionCase{"AStopThatIsNoPair", R"({"stops": [[8], [12, 3]]})", ""},
        ExpressionCase{"AStopThatIsNoList", R"({"stops": [8, [12, 3]]})", ""},
        ExpressionCase{"AStopAtAText", R"({"stops": [["8", 1], [12, 3]]})", ""},
        ExpressionCase{"APropertyThatIsNoText", R"(["get", 1])", ""},
        ExpressionCase{"APropertyOfSomethingElse", R"(["get", "class", ["properties"]])", ""},
        ExpressionCase{"AWayToBlack", R"(["interpolate", ["linear"], ["zoom"], 8, "#804020", 12, "#000000"])",
                       R"("#402010")"},
        ExpressionCase{"AWayBetweenInvisibleColours",
                       R"(["interpolate", ["linear"], ["zoom"], 8, "#00000000", 12, "#00000000"])", R"("#00000000")"},
        ExpressionCase{"AWayBetweenFaintColours",
                       R"(["interpolate", ["linear"], ["zoom"], 8, "#ff000001", 12, "#ff000001"])", R"("#ff000001")"},
        ExpressionCase{"APlainList", R"([1, 2])", R"([1, 2])"}, ExpressionCase{"AnEmptyList", R"([])", R"([])"},
        ExpressionCase{"AFallback", R"(["case", ["==", ["get", "lanes"], 2], "a", "c"])", R"("c")"},
        ExpressionCase{"AFallbackAlone", R"(["case", "a"])", R"("a")"},
        ExpressionCase{"ChannelsWithAlpha", R"(["rgba", 16, 32, 48, 0.5])", R"("#10203080")"},
        ExpressionCase{"AWayFromTheUnknown", R"(["interpolate", ["linear"], ["zoom"], 8, ["pi"], 12, 1])", ""},
        ExpressionCase{"AWayFromANumberToAColour", R"(["interpolate", ["linear"], ["zoom"], 8, 1, 12, "#000000"])", ""},
        ExpressionCase{"AStepOverTexts", R"(["step", ["get", "class"], 1, 2, 3])", ""},
        ExpressionCase{"AStepOverTheUnknown", R"(["step", ["pi"], 1, 2, 3])", ""},
        ExpressionCase{"AStepWithoutItsValue", R"(["step", ["zoom"], 1, 2])", ""},
        ExpressionCase{"AWayOverTexts", R"(["interpolate", ["linear"], ["get", "class"], 8, 0, 12, 4])", ""},
        ExpressionCase{"TooFewOperands", R"(["match"])", ""}),
    caseName);

class NoCssColor : public testing::TestWithParam<std::string> {};

TEST_P(NoCssColor, IsTakenForOne) {
    EXPECT_FALSE(cssColorIn(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Texts, NoCssColor,
                         testing::Values("", "#", "#12", "#gggggg", "rgb(1, 2)", "rgb(1, 2, 3", "rgb(nan, 0, 0)",
                                         "rgb(0, inf, 0)", "rgba(0, 0, 0, 1e999)", "rgb(0x10, 0, 0)", "rgb(1-2, 3, 4)",
                                         "rgb(1e, 2, 3)", "rgb(--1, 2, 3)", "hsl(0, 1, 1)", "hsl(0, 1%, 1)",
                                         "hsl(0, 1, 1%)", "rgb(%, %, %)", "whitesmoke", "lab(1, 2, 3)"));

struct FilterCase {
    std::string name;
    std::string filter;
    std::optional<bool> passes;
};

class MapFilter : public testing::TestWithParam<FilterCase> {};

TEST_P(MapFilter, PassesWhatRenderersDraw) {
    EXPECT_EQ(passes(MapJson::parse(GetParam().filter), road(), kZoom), GetParam().passes);
}

INSTANTIATE_TEST_SUITE_P(
    Filters, MapFilter,
    testing::Values(
        FilterCase{"None", "null", true}, FilterCase{"Equal", R"(["==", ["get", "class"], "motorway"])", true},
        FilterCase{"TheOlderEqual", R"(["==", "class", "motorway"])", true},
        FilterCase{"TheOlderUnequal", R"(["!=", "brunnel", "tunnel"])", true},
        FilterCase{"TheOlderIn", R"(["in", "class", "trunk", "motorway"])", true},
        FilterCase{"TheOlderNotIn", R"(["!in", "class", "trunk", "motorway"])", false},
        FilterCase{"NumbersComeNotBeforeTexts", R"(["<", ["get", "lanes"], "a"])", false},
        FilterCase{"TextsCompare", R"(["<", ["get", "class"], "n"])", true},
        FilterCase{"InOfTheUnknown", R"(["in", ["pi"], ["literal", ["a"]]])", std::nullopt},
        FilterCase{"InSomethingElse", R"(["in", "a", ["get", "lanes"]])", std::nullopt},
        FilterCase{"TheOlderInOfANumber", R"(["in", 1, "a"])", std::nullopt},
        FilterCase{"TheOlderInANumber", R"(["in", "lanes", 4])", true},
        FilterCase{"TheOlderInOfOne", R"(["in", "class", "motorway"])", true},
        FilterCase{"TheOlderHas", R"(["has", "brunnel"])", false},
        FilterCase{"TheOlderHasNot", R"(["!has", "brunnel"])", true},
        FilterCase{"HasANumber", R"(["has", 1])", std::nullopt},
        FilterCase{"HasOfSomethingElse", R"(["has", "class", {}])", std::nullopt},
        FilterCase{"EqualFromTheRight", R"(["==", "path", ["get", "class"]])", false},
        FilterCase{"Less", R"(["<", "lanes", 4])", false}, FilterCase{"LessThanMore", R"(["<", "lanes", 5])", true},
        FilterCase{"LessOrEqual", R"(["<=", "lanes", 4])", true},
        FilterCase{"LessOrEqualToLess", R"(["<=", "lanes", 3])", false},
        FilterCase{"Greater", R"([">", "lanes", 4])", false},
        FilterCase{"GreaterThanLess", R"([">", "lanes", 3])", true},
        FilterCase{"GreaterOrEqualToMore", R"([">=", "lanes", 5])", false},
        FilterCase{"AllOfNothing", R"(["all"])", true}, FilterCase{"AnyOfNothing", R"(["any"])", false},
        FilterCase{"NoneOfNothing", R"(["none"])", true},
        FilterCase{"APropertyNamedLikeTheGeometry", R"(["has", "$types"])", false},
        FilterCase{"TheGeometry", R"(["==", "$type", "LineString"])", true},
        FilterCase{"TheGeometryType", R"(["==", ["geometry-type"], "Polygon"])", false},
        FilterCase{"In", R"(["in", ["get", "class"], ["literal", ["motorway"]]])", true},
        FilterCase{"All", R"(["all", ["==", "class", "motorway"], [">=", "lanes", 4]])", true},
        FilterCase{"AllButOne", R"(["all", ["==", "class", "motorway"], ["<", "lanes", 4]])", false},
        FilterCase{"NoneOf", R"(["none", ["==", "class", "path"]])", true},
        FilterCase{"Not", R"(["!", ["==", ["get", "class"], "motorway"]])", false},
        FilterCase{"NotOfANumber", R"(["!", ["get", "lanes"]])", std::nullopt},
        FilterCase{"ANumberAmongConditions", R"(["all", ["get", "lanes"]])", std::nullopt},
        FilterCase{"TextsAndNumbersDoNotCompare", R"(["<", ["get", "class"], 4])", false},
        FilterCase{"WhatDecidesCounts", R"(["all", ["within", {}], ["==", "class", "path"]])", false},
        FilterCase{"WhatIsNotUnderstood", R"(["all", ["within", {}], ["==", "class", "motorway"]])", std::nullopt}),
    caseName);

}  // namespace
}  // namespace customstyle_test
