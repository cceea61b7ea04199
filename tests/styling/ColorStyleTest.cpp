// What a colour rule reaches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/styling/DispatchCases.h"
#include "tests/styling/StoreChanges.h"
#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VTempl.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;

constexpr Outcome kGeometry{"T+ fill border top"};
constexpr Outcome kStroke{"T+ border"};
constexpr Outcome kFill{"T+ fill"};
constexpr Outcome kTop{"T+ top"};
constexpr Outcome kText{"T+ text-fill text-stroke"};
constexpr Outcome kBothTexts{"T+ text-fill text-stroke, L+ text-fill text-stroke"};
constexpr Outcome kTxStroke{"T+ text-stroke"};
constexpr Outcome kBothTxStrokes{"T+ text-stroke, L+ text-stroke"};
constexpr Outcome kTxFill{"T+ text-fill"};
constexpr Outcome kBothTxFills{"T+ text-fill, L+ text-fill"};
constexpr Outcome kUnmarked{"T-"};
constexpr Outcome kBothUnmarked{"T-, L-"};
constexpr Outcome kNoRecords{"T empty"};
constexpr Outcome kGridColour{"grid"};
constexpr Outcome kNothing{""};
constexpr Outcome kInvalid{"", R"(warning, "elementType" is invalid.)"};

// clang-format off
constexpr ElementRow kRows[] = {
    //             land       geometry               labels                     grid         wildcard    outside
    //                        companion   alone      companion       alone
    {"all",        {kGeometry, kBothTexts, kText,     kBothTexts,     kText,     kGridColour, kNoRecords, kNothing}},
    {"labels",     {kGeometry, kBothTexts, kText,     kBothTexts,     kText,     kGeometry,   kNoRecords, kNothing}},
    {"geometry",   {kGeometry, kGeometry,  kGeometry, kGeometry,      kGeometry, kGeometry,   kNoRecords, kNothing}},
    {"stroke",     {kNothing,  kStroke,    kStroke,   kBothTxStrokes, kTxStroke, kGridColour, kNoRecords, kNothing}},
    {"fill",       {kFill,     kFill,      kFill,     kBothTxFills,   kTxFill,   kGridColour, kNoRecords, kNothing}},
    {"topsurface", {kTop,      kTop,       kTop,      kBothUnmarked,  kUnmarked, kGridColour, kNoRecords, kNothing}},
    everywhere("icon", kInvalid),
    everywhere("text", kInvalid),
    everywhere("", kInvalid),
    everywhere("Fill", kInvalid),
};
// clang-format on

class ColorDispatch : public testing::TestWithParam<DispatchCase> {};

TEST_P(ColorDispatch, ReachesWhatItsRowSays) {
    const auto& [element, outcome, audience, scope] = GetParam();
    LogCapture log;
    const auto store = markedStore();
    store->SetCustomColorStyle(audience.featureType, element, parsed(R"({"color":"#11223344"})").get(),
                               audience.includesLabels, nullptr, scope.allLevels, scope.level);
    EXPECT_EQ(changesIn(*store, 0x44332211, scope.keySuffix), expectedChanges(GetParam()));
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(ColorStyle, ColorDispatch, testing::ValuesIn(dispatchCases(kRows)),
                         [](const auto& each) { return dispatchCaseName(each.param); });

// ---- The value ------------------------------------------------------------------------------------------------------

struct ColorValueCase {
    const char* name;
    const char* stylers;
};

class ColorWithoutText : public testing::TestWithParam<ColorValueCase> {};

TEST_P(ColorWithoutText, IsReportedUnderTheNameOfTheStylers) {
    LogCapture log;
    const auto store = markedStore();
    store->SetCustomColorStyle(13, "icon", parsed(GetParam().stylers).get(), 0, nullptr, 1, 0);
    EXPECT_EQ(changesIn(*store, 0), "");
    EXPECT_THAT(log.take(), ElementsAre(R"(ZRX Custom Map: warning, "stylers" is illegal or absent)"));
}

const ColorValueCase kColorWithoutTextCases[] = {
    {"Absent", "{}"},
    {"Number", R"({"color":255})"},
    {"Null", R"({"color":null})"},
    {"Object", R"({"color":{"r":1}})"},
    {"Boolean", R"({"color":true})"},
};

INSTANTIATE_TEST_SUITE_P(ColorStyle, ColorWithoutText, testing::ValuesIn(kColorWithoutTextCases), caseName);

TEST(ColorStyle, AnOpaqueColourIsStoredWithoutSignExtension) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#ff0000")});
    EXPECT_EQ(firstRecordAt(*store, "13").m_fillColor, 0x00000000ff0000ffULL);
}

TEST(ColorStyle, ABoundaryIsOpaqueWhateverItsAlpha) {
    const auto store = loadedWith({rule("boundary", "geometry.stroke").color("#11223344"),
                                   rule("railway", "geometry.stroke").color("#11223344")});
    EXPECT_EQ(firstRecordAt(*store, "46").m_borderColor, 0xff332211U);
    EXPECT_EQ(firstRecordAt(*store, "24").m_borderColor, 0x44332211U);
}

TEST(ColorStyle, ColourZeroStillAppliesAndMarksTheRecord) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#00000000")});
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillColorSet = 1;
    expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), expected);
}

// ---- Rules that a person would write --------------------------------------------------------------------------------

TEST(ColorStyle, AllOnWaterColoursItsTextsAndNotItsGeometry) {
    const auto store = loadedWith({rule("water", "all").color("#ff0000")});
    tagCustomStyle expected = baseRecord(firstStyleId(2));
    expected.m_textFillColor = expected.m_textStrokeColor = 0xff0000ff;
    expected.m_textFillColorSet = expected.m_textStrokeColorSet = 1;
    expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "2"), expected);
}

TEST(ColorStyle, TopSurfaceOnBuildingColoursTheTopSurfaceOnly) {
    const auto store = loadedWith({rule("building", "geometry.topsurface").color("#112233")});
    tagCustomStyle expected = baseRecord(firstStyleId(3));
    expected.m_topSurfaceColor = 0xff332211;
    expected.m_topSurfaceColorSet = 1;
    expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "3"), expected);
}

TEST(ColorStyle, TheGridColourHasNoLevel) {
    const auto store = loadedWith({rule("grid", "geometry.fill").color("#112233").level("12")});
    EXPECT_EQ(store->m_gridColor, 0xff332211U);
    EXPECT_EQ(store->m_gridColorSet, 1);
    EXPECT_EQ(store->m_usedLevelSlots, 0);
}

TEST(ColorStyle, ALaterRuleForAllLevelsAddsToAnEarlierOne) {
    const auto store = loadedWith(
        {rule("highway", "geometry.fill").color("#000001"), rule("highway", "geometry.stroke").color("#000002")});
    EXPECT_EQ(firstRecordAt(*store, "13").m_fillColor, 0xff010000U);
    EXPECT_EQ(firstRecordAt(*store, "13").m_borderColor, 0xff020000U);
}

TEST(ColorStyle, ALabelTopSurfaceTakesTheRecordsOutOfUse) {
    const auto store = loadedWith(
        {rule("highway", "labels.text.fill").color("#000001"), rule("highway", "labels.topsurface").color("#000002")});
    for (const char* key : {"13", "28"}) {
        EXPECT_EQ(firstRecordAt(*store, key).m_custom, 0) << key;
        EXPECT_EQ(firstRecordAt(*store, key).m_textFillColor, 0xff010000U) << key;
    }
}

// ---- Levels over all levels -----------------------------------------------------------------------------------------

TEST(ColorStyle, ALevelStartsFromTheColoursForAllLevels) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#000001"),
                                   rule("highway", "geometry.stroke").color("#000002").level("15")});
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillColor = 0xff010000;
    expected.m_borderColor = 0xff020000;
    expected.m_fillColorSet = expected.m_borderColorSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13:15"), expected);
}

TEST(ColorStyle, OfTwoRulesForOneLevelTheSecondUndoesTheFirst) {
    const auto store = loadedWith({rule("highway", "geometry.topsurface").color("#000001"),
                                   rule("highway", "geometry.fill").color("#000002").level("15"),
                                   rule("highway", "geometry.stroke").color("#000003").level("15")});
    const tagCustomStyle& record = firstRecordAt(*store, "13:15");
    EXPECT_EQ(record.m_fillColorSet, 0);
    EXPECT_EQ(record.m_fillColor, 0U);
    EXPECT_EQ(record.m_borderColor, 0xff030000U);
    EXPECT_EQ(record.m_topSurfaceColor, 0xff010000U);
}

TEST(ColorStyle, WithoutARuleForAllLevelsTwoRulesForOneLevelAddUp) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#000002").level("15"),
                                   rule("highway", "geometry.stroke").color("#000003").level("15")});
    EXPECT_EQ(firstRecordAt(*store, "13:15").m_fillColor, 0xff020000U);
    EXPECT_EQ(firstRecordAt(*store, "13:15").m_borderColor, 0xff030000U);
}

TEST(ColorStyle, ARuleForAllLevelsDoesNotReachALevelThatIsThereAlready) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#000002").level("15"),
                                   rule("highway", "geometry.stroke").color("#000003")});
    EXPECT_EQ(firstRecordAt(*store, "13:15").m_borderColorSet, 0);
    EXPECT_EQ(firstRecordAt(*store, "13").m_borderColorSet, 1);
}

TEST(ColorStyle, ARecordThatTheKeyForAllLevelsLacksIsNotReset) {
    const auto store = loadedWith({rule("highway", "geometry.topsurface").color("#000001")});
    auto* late = _orvik_vi::VNewArray<tagCustomStyle>(1);
    late->m_ID = 7;
    store->m_typeStyleMaps[13][reinterpret_cast<void*>(7)] = late;
    const Tree rules = parsed(styleOf({rule("highway", "geometry.fill").color("#000002").level("15"),
                                       rule("highway", "geometry.stroke").color("#000003").level("15")}));
    store->ParseCustomConfig(rules.get());
    EXPECT_EQ(recordAt(*store, "13:15", 7)->m_fillColorSet, 1);
    EXPECT_EQ(recordAt(*store, "13:15", firstStyleId(13))->m_fillColorSet, 0);
}

}  // namespace
}  // namespace customstyle_test
