// What a weight rule reaches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/styling/DispatchCases.h"
#include "tests/styling/StoreChanges.h"
#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;

constexpr Outcome kNothing{""};
constexpr Outcome kNoRecords{"T empty"};
constexpr Outcome kGeometry{"T+ fill-weight border-weight"};
constexpr Outcome kBorder{"T+ border-weight"};
constexpr Outcome kFill{"T+ fill-weight"};
constexpr Outcome kApart{"T+ fill-weight border-weight, L+ text-fill-weight text-stroke-weight"};
constexpr Outcome kTogether{"T+ fill-weight border-weight text-fill-weight text-stroke-weight"};
constexpr Outcome kLabelStroke{"L+ text-stroke-weight"};
constexpr Outcome kLabelFill{"L+ text-fill-weight"};
constexpr Outcome kInvalid{"", R"(warning, "elementType" is invalid.)"};

// clang-format off
constexpr ElementRow kRows[] = {
    //           land       geometry              labels                      grid       wildcard    outside
    //                      companion  alone      companion     alone
    {"all",      {kGeometry, kApart,    kTogether, kApart,       kTogether,    kGeometry, kNoRecords, kNothing}},
    {"labels",   {kGeometry, kApart,    kTogether, kApart,       kTogether,    kGeometry, kNoRecords, kNothing}},
    {"geometry", {kGeometry, kGeometry, kGeometry, kGeometry,    kGeometry,    kGeometry, kNoRecords, kNothing}},
    {"stroke",   {kBorder,   kBorder,   kBorder,   kLabelStroke, kLabelStroke, kBorder,   kNoRecords, kNothing}},
    {"fill",     {kFill,     kFill,     kFill,     kLabelFill,   kLabelFill,   kFill,     kNoRecords, kNothing}},
    everywhere("topsurface", kInvalid),
    everywhere("icon", kInvalid),
    everywhere("text", kInvalid),
    everywhere("", kInvalid),
    everywhere("Fill", kInvalid),
};
// clang-format on

class WeightDispatch : public testing::TestWithParam<DispatchCase> {};

TEST_P(WeightDispatch, ReachesWhatItsRowSays) {
    const auto& [element, outcome, audience, scope] = GetParam();
    LogCapture log;
    const auto store = markedStore();
    store->SetCustomWeightStyle(audience.featureType, element, parsed(R"({"weight":"7"})").get(),
                                audience.includesLabels, nullptr, scope.allLevels, scope.level);
    EXPECT_EQ(changesIn(*store, 7, scope.keySuffix), expectedChanges(GetParam()));
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(WeightStyle, WeightDispatch, testing::ValuesIn(dispatchCases(kRows)),
                         [](const auto& each) { return dispatchCaseName(each.param); });

class WeightOfABoundary : public testing::TestWithParam<const char*> {};

TEST_P(WeightOfABoundary, IsIgnoredInSilenceEvenWhenItIsWrong) {
    const LogCapture silent;
    const auto store = markedStore();
    for (const char* stylers : {R"({"weight":"7"})", R"({"weight":"x"})", R"({"weight":7})", "{}"}) {
        for (const int includesLabels : {0, 1}) {
            store->SetCustomWeightStyle(46, GetParam(), parsed(stylers).get(), includesLabels, nullptr, 1, 0);
            store->SetCustomWeightStyle(46, GetParam(), parsed(stylers).get(), includesLabels, nullptr, 0, 12);
        }
    }
    EXPECT_EQ(changesIn(*store, 7), "");
}

INSTANTIATE_TEST_SUITE_P(WeightStyle, WeightOfABoundary,
                         testing::Values("all", "labels", "geometry", "stroke", "fill", "icon"),
                         [](const auto& each) { return std::string(each.param); });

// ---- The value ------------------------------------------------------------------------------------------------------

struct ValueCase {
    const char* name;
    const char* stylers;
    const char* line;
};

constexpr char kAbsentLine[] = R"(ZRX Custom Map: warning, "weight" is illegal or absent)";
constexpr char kAlphaLine[] = R"(ZRX Custom Map: Error, "weight" contain alpha, is illegal)";

class RefusedWeight : public testing::TestWithParam<ValueCase> {};

TEST_P(RefusedWeight, IsLoggedBeforeTheElementIsLookedAtAndWritesNothing) {
    LogCapture log;
    const auto store = markedStore();
    store->SetCustomWeightStyle(13, "unknown", parsed(GetParam().stylers).get(), 0, nullptr, 1, 0);
    store->SetCustomWeightStyle(13, "geometry", parsed(GetParam().stylers).get(), 0, nullptr, 1, 0);
    EXPECT_THAT(log.take(), ElementsAre(GetParam().line, GetParam().line));
    EXPECT_EQ(changesIn(*store, 0), "");
}

const ValueCase kRefusedWeightCases[] = {
    {"Absent", "{}", kAbsentLine},
    {"Number", R"({"weight":4})", kAbsentLine},
    {"Boolean", R"({"weight":true})", kAbsentLine},
    {"Null", R"({"weight":null})", kAbsentLine},
    {"Array", R"({"weight":["4"]})", kAbsentLine},
    {"Empty", R"({"weight":""})", kAlphaLine},
    {"Negative", R"({"weight":"-2"})", kAlphaLine},
    {"Signed", R"({"weight":"+2"})", kAlphaLine},
    {"Fraction", R"({"weight":"2.5"})", kAlphaLine},
    {"Unit", R"({"weight":"3px"})", kAlphaLine},
    {"LeadingBlank", R"({"weight":" 3"})", kAlphaLine},
    {"TrailingBlank", R"({"weight":"3 "})", kAlphaLine},
    {"DigitsOfAnotherScript", R"({"weight":"٣"})", kAlphaLine},
};

INSTANTIATE_TEST_SUITE_P(WeightStyle, RefusedWeight, testing::ValuesIn(kRefusedWeightCases), caseName);

struct StoredCase {
    const char* name;
    std::string text;
    int stored;
};

class StoredWeight : public testing::TestWithParam<StoredCase> {};

TEST_P(StoredWeight, IsClampedAndSetsItsFlagAndTheMark) {
    const LogCapture silent;
    const auto store = loadedWith({rule("highway", "geometry.stroke").weight(GetParam().text)});
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_borderWeight = static_cast<std::uint8_t>(GetParam().stored);
    expected.m_borderWeightSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), expected);
}

const StoredCase kStoredWeightCases[] = {
    {"Zero", "0", 0},
    {"One", "1", 1},
    {"JustBelowTheEnd", "254", 254},
    {"TheEnd", "255", 255},
    {"JustAboveTheEnd", "256", 255},
    {"Above", "999", 255},
    {"LeadingZeros", "0000000007", 7},
    {"BeyondInt", "4294967303", 255},
    {"VeryLong", std::string(5000, '9'), 255},
    {"VeryManyZeros", std::string(5000, '0') + "9", 9},
};

INSTANTIATE_TEST_SUITE_P(WeightStyle, StoredWeight, testing::ValuesIn(kStoredWeightCases), caseName);

// ---- Rules that a person would write --------------------------------------------------------------------------------

TEST(WeightStyle, LabelsWeighTheGeometryOfTheTypeAndTheTextOfItsCompanion) {
    const auto store = loadedWith({rule("highway", "labels").weight("6")});
    tagCustomStyle type = baseRecord(firstStyleId(13));
    type.m_fillWeight = type.m_borderWeight = 6;
    type.m_fillWeightSet = type.m_borderWeightSet = type.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), type);
    tagCustomStyle companion = baseRecord(firstStyleId(28));
    companion.m_textFillWeight = companion.m_textStrokeWeight = 6;
    companion.m_textFillWeightSet = companion.m_textStrokeWeightSet = companion.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "28"), companion);
}

TEST(WeightStyle, ALabelStrokeWeighsTheTextStrokeOfTheCompanionOnly) {
    const auto store = loadedWith({rule("highway", "labels.stroke").weight("6")});
    EXPECT_FALSE(store->m_keyStyleMaps.contains("13"));
    EXPECT_EQ(firstRecordAt(*store, "28").m_textStrokeWeight, 6);
    EXPECT_EQ(firstRecordAt(*store, "28").m_textFillWeightSet, 0);
}

TEST(WeightStyle, ALabelFillOfLandWeighsItsGeometry) {
    const auto store = loadedWith({rule("land", "labels.fill").weight("6")});
    EXPECT_EQ(firstRecordAt(*store, "0").m_fillWeight, 6);
    EXPECT_EQ(firstRecordAt(*store, "0").m_textFillWeightSet, 0);
}

TEST(WeightStyle, ALabelIconHasNoWeight) {
    LogCapture log;
    const auto store = loadedWith({rule("highway", "labels.icon").weight("6")});
    EXPECT_THAT(log.take(), ElementsAre(R"(ZRX Custom Map: warning, "elementType" is invalid.)"));
    EXPECT_EQ(store->m_usedLevelSlots, 0);
}

TEST(WeightStyle, AtALevelTheWeightReplacesTheColourOfTheSameRule) {
    const auto store = loadedWith({rule("highway", "geometry.fill").color("#000001"),
                                   rule("highway", "geometry.fill").weight("6").color("#000002").level("12")});
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillColor = 0xff010000;
    expected.m_fillWeight = 6;
    expected.m_fillColorSet = expected.m_fillWeightSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13:12"), expected);
}

TEST(WeightStyle, AtALevelWithoutAStyleForAllLevelsColourAndWeightStandTogether) {
    const auto store = loadedWith({rule("highway", "geometry.fill").weight("6").color("#000002").level("12")});
    EXPECT_EQ(firstRecordAt(*store, "13:12").m_fillColor, 0xff020000U);
    EXPECT_EQ(firstRecordAt(*store, "13:12").m_fillWeight, 6);
}

TEST(WeightStyle, OnATypeThatKeepsItsLabelsAtALevelTheTextWeightsReplaceThoseOfTheGeometry) {
    const auto store =
        loadedWith({rule("water", "geometry").color("#000001"), rule("water", "labels").weight("6").level("12")});
    EXPECT_EQ(firstRecordAt(*store, "2:12").m_textFillWeight, 6);
    EXPECT_EQ(firstRecordAt(*store, "2:12").m_fillWeightSet, 0);
}

}  // namespace
}  // namespace customstyle_test
