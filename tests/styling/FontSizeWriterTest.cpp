// The writer of font sizes, called without a dispatcher.
#include <gtest/gtest.h>

#include "tests/styling/StoreChanges.h"
#include "tests/styling/WriterCases.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

class FontSize : public testing::TestWithParam<WriterCase> {};

TEST_P(FontSize, IsWrittenForItsElements) {
    LogCapture log;
    const auto store = markedStore();
    store->setFontSizeStyle(13, GetParam().element, 12, 1, 0);
    EXPECT_EQ(changesIn(*store, 12), std::string("13") + GetParam().changes);
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

TEST_P(FontSize, IsWrittenTheSameAtALevel) {
    LogCapture log;
    const auto store = markedStore();
    store->setFontSizeStyle(13, GetParam().element, 12, 0, 10);
    EXPECT_EQ(changesIn(*store, 12, ":10"), std::string("13") + GetParam().changes);
    EXPECT_EQ(log.take(), expectedLog(GetParam()));
}

constexpr char kMessage[] = R"(warning, "elementType" is invalid in setFontSizeStyle.)";

constexpr WriterCase kFontSizeRows[] = {
    {"all", "+ size"},           {"labels", "+ size"},          {"fill", "+ size"},      {"stroke", "+ size"},
    {"geometry", "-", kMessage}, {"topsurface", "-", kMessage}, {"icon", "-", kMessage}, {"text", "-", kMessage},
    {"", "-", kMessage},         {"Fill", "-", kMessage},
};

INSTANTIATE_TEST_SUITE_P(FontSizeWriter, FontSize, testing::ValuesIn(kFontSizeRows),
                         [](const auto& each) { return writerCaseName(each.param); });

TEST(FontSizeWriter, AnUnknownElementKeepsTheSizeAndTakesTheRecordOutOfUse) {
    LogCapture log;
    const auto store = loadedWith({});
    store->setFontSizeStyle(13, "labels", 12, 1, 0);
    store->setFontSizeStyle(13, "geometry", 13, 1, 0);
    EXPECT_EQ(log.take().size(), 2U);
    tagCustomStyle expected = baseRecord(firstStyleId(13));
    expected.m_fontSize = 12;
    expected.m_fontSizeSet = 1;
    EXPECT_EQ(firstRecordAt(*store, "13"), expected);
}

TEST(FontSizeWriter, ATypeWithoutRecordsLogsNothing) {
    const LogCapture silent;
    CustomConfig store;
    store.setFontSizeStyle(13, "icon", 12, 1, 0);
    EXPECT_EQ(store.m_usedLevelSlots, 1);
}

TEST(FontSizeWriter, ATypeThatDoesNotExistLogsNothingAndRegistersNothing) {
    const LogCapture silent;
    const auto store = markedStore();
    for (const int type : {-1, 73}) store->setFontSizeStyle(type, "icon", 12, 1, 0);
    EXPECT_EQ(changesIn(*store, 12), "");
}

}  // namespace
}  // namespace customstyle_test
