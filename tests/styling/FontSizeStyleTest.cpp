// What a font size rule reaches.
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

constexpr Outcome kBoth{"T+ size, L+ size"};
constexpr Outcome kAlone{"T+ size"};
constexpr Outcome kNoType{"", R"(Error, "featureType" not include labels element)"};

// Types without labels are refused first, paths without labels second, and elements last.
constexpr ElementRow row(const char* element, Outcome noLabels, Outcome companion, Outcome alone) {
    return {element, {kNoType, noLabels, noLabels, companion, alone, kNoType, kNoType, kNoType}};
}

constexpr ElementRow kRows[] = {
    row("all", {"", R"(Error, "all" not include labels element)"}, kBoth, kAlone),
    row("labels", {"", R"(Error, "labels" not include labels element)"}, kBoth, kAlone),
    row("stroke", {"", R"(Error, "stroke" not include labels element)"}, kBoth, kAlone),
    row("fill", {"", R"(Error, "fill" not include labels element)"}, kBoth, kAlone),
    row("geometry", {"", R"(Error, "geometry" not include labels element)"},
        {"", R"(warning, "geometry" is not set for font size style.)"},
        {"", R"(warning, "geometry" is not set for font size style.)"}),
    row("topsurface", {"", R"(Error, "topsurface" not include labels element)"},
        {"", R"(warning, "topsurface" is not set for font size style.)"},
        {"", R"(warning, "topsurface" is not set for font size style.)"}),
    row("icon", {"", R"(Error, "icon" not include labels element)"},
        {"", R"(warning, "icon" is not set for font size style.)"},
        {"", R"(warning, "icon" is not set for font size style.)"}),
    row("text", {"", R"(Error, "text" not include labels element)"},
        {"", R"(warning, "text" is not set for font size style.)"},
        {"", R"(warning, "text" is not set for font size style.)"}),
    row("", {"", R"(Error, "" not include labels element)"}, {"", R"(warning, "" is not set for font size style.)"},
        {"", R"(warning, "" is not set for font size style.)"}),
    row("Fill", {"", R"(Error, "Fill" not include labels element)"},
        {"", R"(warning, "Fill" is not set for font size style.)"},
        {"", R"(warning, "Fill" is not set for font size style.)"}),
};

class FontSizeDispatch : public testing::TestWithParam<DispatchCase> {};

TEST_P(FontSizeDispatch, ReachesWhatItsRowSays) {
    const auto& [element, outcome, audience, scope] = GetParam();
    LogCapture log;
    const auto store = markedStore();
    store->SetCustomFontSizeStyle(audience.featureType, element, parsed(R"({"fontsize":"12"})").get(),
                                  audience.includesLabels, nullptr, scope.allLevels, scope.level);
    EXPECT_EQ(changesIn(*store, 12, scope.keySuffix), expectedChanges(GetParam()));
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(FontSizeStyle, FontSizeDispatch, testing::ValuesIn(dispatchCases(kRows)),
                         [](const auto& each) { return dispatchCaseName(each.param); });

// ---- The value ------------------------------------------------------------------------------------------------------

struct ValueCase {
    const char* name;
    const char* stylers;
    const char* line;
};

constexpr char kAbsentLine[] = R"(ZRX Custom Map: Error, "fontsize" is illegal or absent)";
constexpr char kAlphaLine[] = R"(ZRX Custom Map: Error, "fontsize" contain alpha, is illegal)";

class RefusedFontSize : public testing::TestWithParam<ValueCase> {};

TEST_P(RefusedFontSize, IsLoggedBeforeTypeAndElementAreLookedAtAndWritesNothing) {
    LogCapture log;
    const auto store = markedStore();
    store->SetCustomFontSizeStyle(0, "icon", parsed(GetParam().stylers).get(), 0, nullptr, 1, 0);
    store->SetCustomFontSizeStyle(13, "labels", parsed(GetParam().stylers).get(), 1, nullptr, 1, 0);
    EXPECT_THAT(log.take(), ElementsAre(GetParam().line, GetParam().line));
    EXPECT_EQ(changesIn(*store, 0), "");
}

const ValueCase kRefusedFontSizeCases[] = {
    {"Absent", "{}", kAbsentLine},
    {"Number", R"({"fontsize":12})", kAbsentLine},
    {"Boolean", R"({"fontsize":true})", kAbsentLine},
    {"Null", R"({"fontsize":null})", kAbsentLine},
    {"Object", R"({"fontsize":{}})", kAbsentLine},
    {"Empty", R"({"fontsize":""})", kAlphaLine},
    {"Unit", R"({"fontsize":"12px"})", kAlphaLine},
    {"Negative", R"({"fontsize":"-1"})", kAlphaLine},
    {"Fraction", R"({"fontsize":"1.5"})", kAlphaLine},
    {"LeadingBlank", R"({"fontsize":" 12"})", kAlphaLine},
    {"DigitsOfAnotherScript", R"({"fontsize":"１２"})", kAlphaLine},
};

INSTANTIATE_TEST_SUITE_P(FontSizeStyle, RefusedFontSize, testing::ValuesIn(kRefusedFontSizeCases), caseName);

struct StoredCase {
    const char* name;
    std::string text;
    int stored;
};

class StoredFontSize : public testing::TestWithParam<StoredCase> {};

TEST_P(StoredFontSize, IsClampedAndSetsItsFlagAndTheMark) {
    const LogCapture silent;
    const auto store = loadedWith({rule("poilabel", "labels").fontsize(GetParam().text)});
    tagCustomStyle expected = baseRecord(firstStyleId(53));
    expected.m_fontSize = static_cast<std::uint8_t>(GetParam().stored);
    expected.m_fontSizeSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "53"), expected);
}

const StoredCase kStoredFontSizeCases[] = {
    {"Zero", "0", 0},
    {"Twelve", "12", 12},
    {"TheEnd", "255", 255},
    {"JustAboveTheEnd", "256", 255},
    {"Above", "300", 255},
    {"LeadingZeros", "0000000007", 7},
    {"BeyondInt", "4294967303", 255},
    {"BeyondLong", "18446744073709551623", 255},
    {"VeryLong", std::string(5000, '9'), 255},
    {"VeryManyZeros", std::string(5000, '0') + "9", 9},
};

INSTANTIATE_TEST_SUITE_P(FontSizeStyle, StoredFontSize, testing::ValuesIn(kStoredFontSizeCases), caseName);

// ---- Rules that a person would write --------------------------------------------------------------------------------

TEST(FontSizeStyle, ASizeReachesTheTypeAndItsCompanion) {
    const auto store = loadedWith({rule("arterial", "labels").fontsize("12")});
    EXPECT_EQ(firstRecordAt(*store, "17").m_fontSize, 12);
    EXPECT_EQ(firstRecordAt(*store, "36").m_fontSize, 12);
    EXPECT_EQ(store->m_usedLevelSlots, 2);
}

TEST(FontSizeStyle, ALabelTypeIsReachedAlone) {
    const auto store = loadedWith({rule("poilabel", "labels").fontsize("12")});
    EXPECT_EQ(firstRecordAt(*store, "53").m_fontSize, 12);
    EXPECT_EQ(store->m_usedLevelSlots, 1);
}

TEST(FontSizeStyle, ABoundaryHasASize) {
    const auto store = loadedWith({rule("boundary", "all").fontsize("12")});
    EXPECT_EQ(firstRecordAt(*store, "46").m_fontSize, 12);
}

TEST(FontSizeStyle, ALevelStartsFromTheStyleForAllLevels) {
    const auto store = loadedWith({rule("arterial", "labels").color("#000001"),
                                   rule("arterial", "labels").color("#000002").fontsize("12").level("9")});
    for (const int type : {17, 36}) {
        tagCustomStyle expected = baseRecord(firstStyleId(type));
        expected.m_textFillColor = expected.m_textStrokeColor = 0xff010000;
        expected.m_textFillColorSet = expected.m_textStrokeColorSet = 1;
        expected.m_fontSize = 12;
        expected.m_fontSizeSet = expected.m_custom = 1;
        EXPECT_EQ(firstRecordAt(*store, std::to_string(type) + ":9"), expected);
    }
}

}  // namespace
}  // namespace customstyle_test
