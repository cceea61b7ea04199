// The writers of geometry and text weights, called without a dispatcher.
#include <gtest/gtest.h>

#include "tests/styling/StoreChanges.h"
#include "tests/styling/WriterCases.h"
#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

class GeometryWeight : public testing::TestWithParam<WriterCase> {};

TEST_P(GeometryWeight, WritesTheFieldsOfItsElement) {
    LogCapture log;
    const auto store = markedStore();
    store->SetTypeWeight(13, GetParam().element, 7, 1, 0);
    EXPECT_EQ(changesIn(*store, 7), std::string("13") + GetParam().changes);
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

TEST_P(GeometryWeight, WritesTheSameFieldsAtALevel) {
    LogCapture log;
    const auto store = markedStore();
    store->SetTypeWeight(13, GetParam().element, 7, 0, 18);
    EXPECT_EQ(changesIn(*store, 7, ":18"), std::string("13") + GetParam().changes);
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

constexpr char kTypeMessage[] = R"(warning, "elementType" is invalid in setTypeWeight.)";

constexpr WriterCase kGeometryWeightRows[] = {
    {"all", "+ fill-weight border-weight"},
    {"geometry", "+ fill-weight border-weight"},
    {"labels", "+ fill-weight border-weight"},
    {"stroke", "+ border-weight"},
    {"fill", "+ fill-weight"},
    {"topsurface", "-", kTypeMessage},
    {"icon", "-", kTypeMessage},
    {"text", "-", kTypeMessage},
    {"", "-", kTypeMessage},
    {"Fill", "-", kTypeMessage},
};

INSTANTIATE_TEST_SUITE_P(WeightWriters, GeometryWeight, testing::ValuesIn(kGeometryWeightRows),
                         [](const auto& each) { return writerCaseName(each.param); });

class TextWeight : public testing::TestWithParam<WriterCase> {};

TEST_P(TextWeight, WritesTheFieldsOfItsElement) {
    LogCapture log;
    const auto store = markedStore();
    store->SetFontWeightStyle(13, GetParam().element, 7, 1, 0);
    EXPECT_EQ(changesIn(*store, 7), std::string("13") + GetParam().changes);
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

TEST_P(TextWeight, WritesTheSameFieldsAtALevel) {
    LogCapture log;
    const auto store = markedStore();
    store->SetFontWeightStyle(13, GetParam().element, 7, 0, 18);
    EXPECT_EQ(changesIn(*store, 7, ":18"), std::string("13") + GetParam().changes);
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

constexpr char kFontMessage[] = R"(warning, "elementType" is invalid in setFontWeightStyle.)";

constexpr WriterCase kTextWeightRows[] = {
    {"all", "+ text-fill-weight text-stroke-weight"},
    {"geometry", "+ text-fill-weight text-stroke-weight"},
    {"labels", "+ text-fill-weight text-stroke-weight"},
    {"stroke", "+ text-stroke-weight"},
    {"fill", "+ text-fill-weight"},
    {"topsurface", "-", kFontMessage},
    {"icon", "-", kFontMessage},
    {"text", "-", kFontMessage},
    {"", "-", kFontMessage},
    {"Fill", "-", kFontMessage},
};

INSTANTIATE_TEST_SUITE_P(WeightWriters, TextWeight, testing::ValuesIn(kTextWeightRows),
                         [](const auto& each) { return writerCaseName(each.param); });

struct LowBitsCase {
    const char* name;
    int weight;
    int stored;
};

class WeightBits : public testing::TestWithParam<LowBitsCase> {};

TEST_P(WeightBits, AreTheLowestEight) {
    const auto store = loadedWith({});
    store->SetTypeWeight(13, "fill", GetParam().weight, 1, 0);
    store->SetFontWeightStyle(13, "stroke", GetParam().weight, 1, 0);
    EXPECT_EQ(firstRecordAt(*store, "13").m_fillWeight, GetParam().stored);
    EXPECT_EQ(firstRecordAt(*store, "13").m_textStrokeWeight, GetParam().stored);
}

const LowBitsCase kWeightBitsCases[] = {
    {"Zero", 0, 0}, {"All", 255, 255}, {"None", 256, 0}, {"SomeMore", 0x1234, 0x34}, {"Negative", -1, 255},
};

INSTANTIATE_TEST_SUITE_P(WeightWriters, WeightBits, testing::ValuesIn(kWeightBitsCases), caseName);

TEST(WeightWriters, AWeightOfZeroAppliesAndMarks) {
    const auto store = loadedWith({});
    store->SetTypeWeight(13, "fill", 0, 1, 0);
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillWeightSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), expected);
}

TEST(WeightWriters, AnUnknownElementKeepsTheValuesAndTakesTheRecordOutOfUse) {
    LogCapture log;
    const auto store = loadedWith({});
    store->SetTypeWeight(13, "fill", 7, 1, 0);
    store->SetTypeWeight(13, "icon", 8, 1, 0);
    EXPECT_EQ(log.take().size(), 2U);
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillWeight = 7;
    expected.m_fillWeightSet = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), expected);
}

TEST(WeightWriters, ATypeWithoutRecordsLogsNothing) {
    const LogCapture silent;
    CustomConfig store;
    store.SetTypeWeight(13, "icon", 7, 1, 0);
    store.SetFontWeightStyle(13, "icon", 7, 0, 12);
    EXPECT_EQ(store.m_usedLevelSlots, 2);
}

TEST(WeightWriters, ATypeThatDoesNotExistLogsNothingAndRegistersNothing) {
    const LogCapture silent;
    const auto store = markedStore();
    for (const int type : {-1, 73}) {
        store->SetTypeWeight(type, "icon", 7, 1, 0);
        store->SetFontWeightStyle(type, "fill", 7, 0, 12);
    }
    EXPECT_EQ(changesIn(*store, 7), "");
}

TEST(WeightWriters, StartALevelFromTheStyleForAllLevels) {
    const auto store = loadedWith({});
    store->SetTypeWeight(13, "fill", 5, 1, 0);
    store->SetTypeWeight(13, "stroke", 6, 0, 12);
    store->SetFontWeightStyle(13, "fill", 7, 0, 12);
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fillWeight = 5;
    expected.m_textFillWeight = 7;
    expected.m_fillWeightSet = expected.m_textFillWeightSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*store, "13:12"), expected);
}

}  // namespace
}  // namespace customstyle_test
