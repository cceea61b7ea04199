// The writers of geometry and text colours, called without a dispatcher.
#include <gtest/gtest.h>

#include "tests/styling/StoreChanges.h"
#include "tests/styling/WriterCases.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

constexpr std::uint64_t kColour = 0x44332211;

class GeometryColour : public testing::TestWithParam<WriterCase> {};

TEST_P(GeometryColour, WritesTheFieldsOfItsElement) {
    const LogCapture silent;
    const auto store = markedStore();
    store->SetTypeColor(13, GetParam().element, kColour, 1, 0);
    EXPECT_EQ(changesIn(*store, kColour), std::string("13") + GetParam().changes);
}

TEST_P(GeometryColour, WritesTheSameFieldsAtALevel) {
    const LogCapture silent;
    const auto store = markedStore();
    store->SetTypeColor(13, GetParam().element, kColour, 0, 21);
    EXPECT_EQ(changesIn(*store, kColour, ":21"), std::string("13") + GetParam().changes);
}

constexpr WriterCase kGeometryColourRows[] = {
    {"all", "+ fill border top"},
    {"geometry", "+ fill border top"},
    {"labels", "+ fill border top"},
    {"stroke", "+ border"},
    {"fill", "+ fill"},
    {"topsurface", "+ top"},
    {"icon", "-"},
    {"text", "-"},
    {"", "-"},
    {"Fill", "-"},
};

INSTANTIATE_TEST_SUITE_P(ColorWriters, GeometryColour, testing::ValuesIn(kGeometryColourRows),
                         [](const auto& each) { return writerCaseName(each.param); });

class TextColour : public testing::TestWithParam<WriterCase> {};

TEST_P(TextColour, WritesTheFieldsOfItsElement) {
    const LogCapture silent;
    const auto store = markedStore();
    store->SetFontColorStyle(13, GetParam().element, kColour, 1, 0);
    EXPECT_EQ(changesIn(*store, kColour), std::string("13") + GetParam().changes);
}

TEST_P(TextColour, WritesTheSameFieldsAtALevel) {
    const LogCapture silent;
    const auto store = markedStore();
    store->SetFontColorStyle(13, GetParam().element, kColour, 0, 4);
    EXPECT_EQ(changesIn(*store, kColour, ":4"), std::string("13") + GetParam().changes);
}

constexpr WriterCase kTextColourRows[] = {
    {"all", "+ text-fill text-stroke"},
    {"geometry", "+ text-fill text-stroke"},
    {"labels", "+ text-fill text-stroke"},
    {"stroke", "+ text-stroke"},
    {"fill", "+ text-fill"},
    {"topsurface", "-"},
    {"icon", "-"},
    {"text", "-"},
    {"", "-"},
    {"Fill", "-"},
};

INSTANTIATE_TEST_SUITE_P(ColorWriters, TextColour, testing::ValuesIn(kTextColourRows),
                         [](const auto& each) { return writerCaseName(each.param); });

TEST(ColorWriters, StoreAllSixtyFourBits) {
    const auto store = loadedWith({});
    store->SetTypeColor(13, "fill", 0x8877665544332211, 1, 0);
    store->SetFontColorStyle(13, "fill", 0x1122334455667788, 1, 0);
    EXPECT_EQ(firstRecordAt(*store, "13").m_fillColor, 0x8877665544332211U);
    EXPECT_EQ(firstRecordAt(*store, "13").m_textFillColor, 0x1122334455667788U);
}

TEST(ColorWriters, KeepTheFieldsOfOtherElements) {
    const auto store = loadedWith({});
    store->SetTypeColor(13, "all", 1, 1, 0);
    store->SetTypeColor(13, "fill", 2, 1, 0);
    EXPECT_EQ(firstRecordAt(*store, "13").m_fillColor, 2U);
    EXPECT_EQ(firstRecordAt(*store, "13").m_borderColor, 1U);
    EXPECT_EQ(firstRecordAt(*store, "13").m_topSurfaceColor, 1U);
}

TEST(ColorWriters, AnUnknownElementTakesACustomisedRecordOutOfUseAndKeepsItsFields) {
    const auto store = loadedWith({});
    store->SetTypeColor(13, "fill", 2, 1, 0);
    store->SetFontColorStyle(13, "topsurface", 3, 1, 0);
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillColor = 2;
    expected.m_fillColorSet = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), expected);
}

TEST(ColorWriters, ResetALevelEvenForAnUnknownElement) {
    const auto store = loadedWith({});
    store->SetTypeColor(13, "fill", 2, 1, 0);
    store->SetTypeColor(13, "stroke", 3, 0, 15);
    store->SetFontColorStyle(13, "icon", 4, 0, 15);
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillColor = 2;
    expected.m_fillColorSet = 1;
    EXPECT_EQ(firstRecordAt(*store, "13:15"), expected);
}

TEST(ColorWriters, ResetALevelFromRecordsThatAreNotInUse) {
    const auto store = loadedWith({});
    store->SetTypeColor(13, "fill", 2, 1, 0);
    store->SetTypeColor(13, "icon", 3, 1, 0);
    store->SetTypeColor(13, "stroke", 4, 0, 15);
    EXPECT_EQ(firstRecordAt(*store, "13:15").m_fillColor, 2U);
    EXPECT_EQ(firstRecordAt(*store, "13:15").m_custom, 1);
    EXPECT_EQ(firstRecordAt(*store, "13").m_custom, 0);
}

TEST(ColorWriters, DoNothingForATypeThatDoesNotExist) {
    const LogCapture silent;
    const auto store = markedStore();
    for (const int type : {-2147483647 - 1, -1, 73, 2147483647}) {
        store->SetTypeColor(type, "fill", kColour, 0, -2147483647 - 1);
        store->SetFontColorStyle(type, "fill", kColour, 1, 0);
    }
    EXPECT_EQ(changesIn(*store, kColour), "");
    EXPECT_TRUE(store->m_styleEffectLevels.empty());
}

TEST(ColorWriters, RegisterATypeWithoutRecords) {
    const LogCapture silent;
    CustomConfig store;
    store.SetTypeColor(13, "fill", kColour, 1, 0);
    store.SetFontColorStyle(28, "icon", kColour, 0, 9);
    EXPECT_EQ(store.m_usedLevelSlots, 2);
    EXPECT_EQ(store.m_keyStyleMaps.at("13")->GetCount(), 0);
    EXPECT_EQ(store.m_keyStyleMaps.at("28:9")->GetCount(), 0);
}

TEST(ColorWriters, AnyOtherValueThanZeroMeansAllLevels) {
    const auto store = markedStore();
    store->SetTypeColor(13, "fill", kColour, 5, 15);
    EXPECT_EQ(changesIn(*store, kColour), "13+ fill");
}

TEST(GridColour, IsStoredWhole) {
    CustomConfig store;
    store.SetGridColorStyle(0x8877665544332211);
    EXPECT_EQ(store.m_gridColor, 0x8877665544332211U);
    EXPECT_EQ(store.m_gridColorSet, 1);
}

TEST(GridColour, ZeroIsAColour) {
    CustomConfig store;
    store.SetGridColorStyle(5);
    store.SetGridColorStyle(0);
    EXPECT_EQ(store.m_gridColor, 0U);
    EXPECT_EQ(store.m_gridColorSet, 1);
}

}  // namespace
}  // namespace customstyle_test
