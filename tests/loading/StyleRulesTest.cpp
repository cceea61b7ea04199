// The frame of the rules of a style file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr char kFeatureTypeLine[] = R"(ZRX Custom Map: warning, "featureType" is  illegal or absent)";
constexpr char kElementTypeLine[] = R"(ZRX Custom Map: warning, "elementType" is illegal or absent)";
constexpr char kStylersLine[] = R"(ZRX Custom Map: warning, "stylers" is illegal or absent)";
constexpr char kUndefinedLine[] = R"(ZRX Custom Map: warning, "stylers" is undefined)";

/// A store with the base records of the test mapping, to which the rules of a text have been applied.
std::unique_ptr<CustomConfig> styledWith(const std::string& json) {
    std::unique_ptr<CustomConfig> config = loadedWith({});
    EXPECT_EQ(config->ParseCustomConfig(parsed(json).get()), 1);
    return config;
}

// ---- Refused rules --------------------------------------------------------------------------------------------------

struct RefusedCase {
    const char* name;
    std::string rule;
    std::string line;
};

const RefusedCase kRefused[] = {
    {"NoMembers", "{}", kFeatureTypeLine},
    {"Null", "null", kFeatureTypeLine},
    {"True", "true", kFeatureTypeLine},
    {"Number", "13", kFeatureTypeLine},
    {"Text", R"("highway")", kFeatureTypeLine},
    {"Array", R"(["highway", "fill", {"color": "#112233"}])", kFeatureTypeLine},
    {"NoFeatureType", R"({"elementType":"fill","stylers":{"color":"#112233"}})", kFeatureTypeLine},
    {"FeatureTypeIsANumber", R"({"featureType":13,"elementType":"fill","stylers":{"color":"#112233"}})",
     kFeatureTypeLine},
    {"FeatureTypeIsNull", R"({"featureType":null,"elementType":"fill","stylers":{"color":"#112233"}})",
     kFeatureTypeLine},
    {"FeatureTypeIsAList", R"({"featureType":["land"],"elementType":"fill","stylers":{"color":"#112233"}})",
     kFeatureTypeLine},
    {"UnknownFeatureType", rule("lake", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:lake" is illegal)"},
    {"EmptyFeatureType", rule("", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:" is illegal)"},
    {"CapitalFeatureType", rule("Land", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:Land" is illegal)"},
    {"BlankBehindTheFeatureType", rule("highway ", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:highway " is illegal)"},
    {"FeatureTypeIsAnId", rule("13", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:13" is illegal)"},
    {"FeatureTypeWithPercentSigns", rule("100%s%n%d", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:100%s%n%d" is illegal)"},
    {"FeatureTypeWithQuotes", rule(R"(a"b)", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:a"b" is illegal)"},
    {"FeatureTypeInAnotherScript", rule("湖", "fill").color("#112233").json(),
     R"(ZRX Custom Map: warning, "featureType:湖" is illegal)"},
    {"FeatureTypeIsNotUtf8", "{\"featureType\":\"la\xFFke\"}",
     "ZRX Custom Map: warning, \"featureType:la\xEF\xBF\xBDke\" is illegal"},
    {"FeatureTypeOfManyCharacters", "{\"featureType\":\"" + std::string(5000, 'x') + "\"}",
     "ZRX Custom Map: warning, \"featureType:" + std::string(5000, 'x') + "\" is illegal"},
    {"NoElementType", R"({"featureType":"land","stylers":{"color":"#112233"}})", kElementTypeLine},
    {"ElementTypeIsANumber", R"({"featureType":"land","elementType":1,"stylers":{"color":"#112233"}})",
     kElementTypeLine},
    {"ElementTypeIsNull", R"({"featureType":"land","elementType":null,"stylers":{"color":"#112233"}})",
     kElementTypeLine},
    {"ElementTypeIsAnObject", R"({"featureType":"land","elementType":{},"stylers":{"color":"#112233"}})",
     kElementTypeLine},
    {"NoStylers", R"({"featureType":"land","elementType":"fill"})", kStylersLine},
    {"StylersAreAList", R"({"featureType":"land","elementType":"fill","stylers":[{"color":"#112233"}]})", kStylersLine},
    {"StylersAreAText", R"({"featureType":"land","elementType":"fill","stylers":"color"})", kStylersLine},
    {"StylersAreANumber", R"({"featureType":"land","elementType":"fill","stylers":1})", kStylersLine},
    {"StylersAreNull", R"({"featureType":"land","elementType":"fill","stylers":null})", kStylersLine},
    {"StylersAreEmpty", rule("land", "fill").json(), kUndefinedLine},
    {"ALevelAlone", rule("land", "fill").level("10").json(), kUndefinedLine},
    {"WeightIsANumber", rule("land", "fill").styler("weight", "3").json(), kUndefinedLine},
    {"NoStylerIsAText",
     rule("land", "fill").styler("color", "1").styler("visibility", "true").styler("fontsize", "{}").json(),
     kUndefinedLine},
    {"OtherStylers", rule("land", "fill").styler("colour", R"("#112233")").json(), kUndefinedLine},
    {"CapitalStyler", rule("land", "fill").styler("Color", R"("#112233")").json(), kUndefinedLine},
    {"CapitalStylerInFrontOfTheGoodOne", rule("land", "fill").styler("COLOR", R"("#1")").color("#112233").json(),
     kUndefinedLine},
    // The frame is checked from the feature type to the stylers, and the first problem is reported.
    {"EverythingIsWrong", R"({"featureType":1,"elementType":2,"stylers":3})", kFeatureTypeLine},
    {"UnknownFeatureTypeAndNothingElse", R"({"featureType":"lake"})",
     R"(ZRX Custom Map: warning, "featureType:lake" is illegal)"},
    {"ElementTypeAndStylersAreWrong", R"({"featureType":"land","elementType":2,"stylers":3})", kElementTypeLine},
    {"UnknownElementAndNoStylers", R"({"featureType":"land","elementType":"lake"})", kStylersLine},
    {"UnknownElementAndEmptyStylers", rule("land", "lake").json(), kUndefinedLine},
};

class RefusedRule : public testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedRule, IsLoggedAndTheNextOnesStillApply) {
    LogCapture log;
    const std::string next = rule("water", "geometry").color("#112233").json();
    const auto config = styledWith("[" + GetParam().rule + "," + next + "," + GetParam().rule + "]");
    EXPECT_THAT(log.take(), ElementsAre(GetParam().line, GetParam().line));
    EXPECT_THAT(keysOf(*config), ElementsAre("2"));
    EXPECT_EQ(firstRecordAt(*config, "2").m_fillColor, 0xff332211U);
}

INSTANTIATE_TEST_SUITE_P(StyleRules, RefusedRule, testing::ValuesIn(kRefused), caseName);

// ---- Roots ----------------------------------------------------------------------------------------------------------

struct RootCase {
    const char* name;
    const char* json;
};

const RootCase kEmptyRoots[] = {
    {"Array", "[]"}, {"Object", "{}"}, {"Number", "5"}, {"True", "true"}, {"Null", "null"}, {"Text", R"("text")"},
};

class EmptyRoot : public testing::TestWithParam<RootCase> {};

TEST_P(EmptyRoot, IsAStyleWithoutRules) {
    const LogCapture silent;
    EXPECT_THAT(keysOf(*styledWith(GetParam().json)), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(StyleRules, EmptyRoot, testing::ValuesIn(kEmptyRoots), caseName);

TEST(StyleRules, TheMembersOfAnObjectAreRules) {
    const LogCapture silent;
    const auto config = styledWith("{\"a\":" + rule("land", "fill").color("#112233").json() +
                                   ",\"b\":" + rule("water", "geometry").color("#445566").json() + "}");
    EXPECT_THAT(keysOf(*config), UnorderedElementsAre("0", "2"));
}

TEST(StyleRules, ARuleAsTheRootIsNotARule) {
    LogCapture log;
    const auto config = styledWith(rule("land", "fill").color("#112233").json());
    EXPECT_THAT(log.take(), ElementsAre(kFeatureTypeLine, kFeatureTypeLine, kFeatureTypeLine));
    EXPECT_THAT(keysOf(*config), IsEmpty());
}

TEST(StyleRules, OneHundredThousandRulesLoad) {
    const LogCapture silent;
    const std::string one = rule("highway", "geometry.fill").color("#112233").json();
    std::string json = "[" + one;
    for (int i = 1; i < 99999; ++i) json += "," + one;
    const auto config = styledWith(json + "," + rule("highway", "geometry.fill").color("#445566").json() + "]");
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillColor, 0xff665544U);
    EXPECT_EQ(config->m_usedLevelSlots, 1);
}

// ---- The element path -----------------------------------------------------------------------------------------------

// The message about a font size shows what became of a path: whether it names labels, and its last word.
struct PathCase {
    const char* name;
    const char* path;
    const char* line;
};

const PathCase kPaths[] = {
    {"OneWord", "geometry", R"(ZRX Custom Map: Error, "geometry" not include labels element)"},
    {"TwoWords", "geometry.stroke", R"(ZRX Custom Map: Error, "stroke" not include labels element)"},
    {"ThreeWords", "a.b.c", R"(ZRX Custom Map: Error, "c" not include labels element)"},
    {"Labels", "labels.icon", R"(ZRX Custom Map: warning, "icon" is not set for font size style.)"},
    {"LabelsDeeper", "labels.text.icon", R"(ZRX Custom Map: warning, "icon" is not set for font size style.)"},
    {"LabelsInTheMiddle", "a.labels.b", R"(ZRX Custom Map: warning, "b" is not set for font size style.)"},
    {"LabelsInsideAWord", "xlabelsx.b", R"(ZRX Custom Map: warning, "b" is not set for font size style.)"},
    {"OneLabelIsNone", "label.icon", R"(ZRX Custom Map: Error, "icon" not include labels element)"},
    {"CapitalLabelsAreNone", "Labels.icon", R"(ZRX Custom Map: Error, "icon" not include labels element)"},
    {"AllInsideAWord", "wall", R"(ZRX Custom Map: warning, "wall" is not set for font size style.)"},
    {"AllInsideAnEarlierWord", "wall.icon", R"(ZRX Custom Map: warning, "icon" is not set for font size style.)"},
    {"AllAcrossADotIsNone", "a.ll", R"(ZRX Custom Map: Error, "ll" not include labels element)"},
    {"CapitalAllIsNone", "ALL", R"(ZRX Custom Map: Error, "ALL" not include labels element)"},
    {"Empty", "", R"(ZRX Custom Map: Error, "" not include labels element)"},
    {"DotInFront", ".fill", R"(ZRX Custom Map: Error, ".fill" not include labels element)"},
    {"DotInFrontOfSeveralWords", ".a.fill", R"(ZRX Custom Map: Error, ".a.fill" not include labels element)"},
    {"DotInFrontOfLabels", ".labels.fill",
     R"(ZRX Custom Map: warning, ".labels.fill" is not set for font size style.)"},
    {"DotBehind", "geometry.", R"(ZRX Custom Map: Error, "" not include labels element)"},
    {"TwoDots", "geometry..fill", R"(ZRX Custom Map: Error, ".fill" not include labels element)"},
    {"DotAlone", ".", R"(ZRX Custom Map: Error, "." not include labels element)"},
    {"BlankBehind", "fill ", R"(ZRX Custom Map: Error, "fill " not include labels element)"},
    {"PercentSigns", "labels.%s%n", R"(ZRX Custom Map: warning, "%s%n" is not set for font size style.)"},
    {"AnotherScript", "标.签", R"(ZRX Custom Map: Error, "签" not include labels element)"},
};

class ElementPath : public testing::TestWithParam<PathCase> {};

TEST_P(ElementPath, IsReducedToItsLastWordAfterTheSearchForLabels) {
    LogCapture log;
    const auto config = loadedWith({rule("highway", GetParam().path).fontsize("12")});
    EXPECT_THAT(log.take(), ElementsAre(GetParam().line));
    EXPECT_THAT(keysOf(*config), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(StyleRules, ElementPath, testing::ValuesIn(kPaths), caseName);

struct WordCase {
    const char* name;
    const char* path;
    std::vector<std::string> keys;
    bool fillsText;
    bool fillsGeometry;
};

const WordCase kWords[] = {
    {"TheFillOfTheGeometry", "geometry.fill", {"13"}, false, true},
    {"TheFillOfLabelTexts", "labels.text.fill", {"13", "28"}, true, false},
    {"TheFillOfAnythingWithAll", "wall.fill", {"13", "28"}, true, false},
    {"TheFillOfAnything", "x.y.fill", {"13"}, false, true},
    {"Labels", "labels", {"13", "28"}, true, false},
    {"All", "all", {"13", "28"}, true, false},
    {"GeometryBehindLabels", "labels.geometry", {"13"}, false, true},
};

class ElementWord : public testing::TestWithParam<WordCase> {};

TEST_P(ElementWord, ReachesTheColourStyling) {
    const LogCapture silent;
    const auto config = loadedWith({rule("highway", GetParam().path).color("#112233")});
    EXPECT_THAT(keysOf(*config), testing::UnorderedElementsAreArray(GetParam().keys));
    EXPECT_EQ(firstRecordAt(*config, "13").m_textFillColorSet, GetParam().fillsText);
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillColorSet, GetParam().fillsGeometry);
}

INSTANTIATE_TEST_SUITE_P(StyleRules, ElementWord, testing::ValuesIn(kWords), caseName);

}  // namespace
}  // namespace customstyle_test
