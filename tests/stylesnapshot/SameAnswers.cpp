#include "tests/stylesnapshot/SameAnswers.h"

#include <gtest/gtest.h>

#include "customstyle/StoredRecords.h"
#include "tests/support/IntLimits.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {

using _orvik_framework::BorrowedStyle;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;
using _orvik_framework::StyleSnapshot;

namespace {

std::set<int> levelsToAsk() {
    std::set<int> levels = {kIntMin, kIntMin + 1, -2, -1, 99, 100, 101, kIntMax - 1, kIntMax};
    for (int level = 0; level <= 40; ++level) levels.insert(level);
    return levels;
}

// A record that no answer gives by chance, so that "untouched" shows.
tagCustomStyle untouchedStyle() {
    tagCustomStyle style = baseRecord(-12345);
    style.m_fillColor = 0x5a5a5a5a5a;
    return style;
}

void expectSameStyle(const CustomConfig& config, const StyleSnapshot& snapshot, unsigned id, int level) {
    tagCustomStyle expected = untouchedStyle();
    tagCustomStyle actual = untouchedStyle();
    const int type = config.GetStyleFromConfig(expected, id, level);
    ASSERT_EQ(snapshot.GetStyleFromConfig(actual, id, level), type) << "id " << id << " level " << level;
    ASSERT_EQ(actual, expected) << "id " << id << " level " << level;

    const BorrowedStyle borrowed = snapshot.FindStyle(id, level);
    ASSERT_EQ(borrowed.featureType, type);
    ASSERT_EQ(borrowed.style != nullptr, type != -1);
    if (type == -1) return;
    tagCustomStyle seen = *borrowed.style;
    seen.m_ID = expected.m_ID;
    ASSERT_EQ(seen, expected) << "id " << id << " level " << level;
}

void expectSameBackgrounds(const CustomConfig& config, const StyleSnapshot& snapshot, int level) {
    std::uint64_t expected = 7;
    std::uint64_t actual = 7;
    ASSERT_EQ(snapshot.IsCustomBackRegionEnable(actual, level), config.IsCustomBackRegionEnable(expected, level));
    ASSERT_EQ(actual, expected) << "land at level " << level;
    ASSERT_EQ(snapshot.IsCustomGridBackRegionEnable(actual, level),
              config.IsCustomGridBackRegionEnable(expected, level));
    ASSERT_EQ(actual, expected) << "grid at level " << level;
}

}  // namespace

std::set<unsigned> styleIdsToAsk(const CustomConfig& config) {
    std::set<unsigned> ids = {0, 1, 41, 77777, 0x7fffffff, 0x80000000, 0xffffffff};
    const auto collect = [&](const CVMapPtrToPtr& records) {
        for (const StoredRecord& entry : StoredRecords(records)) ids.insert(entry.styleId());
    };
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) collect(records);
    for (const CVMapPtrToPtr& records : config.m_levelStyleMaps) collect(records);
    return ids;
}

void expectSameAnswers(const CustomConfig& config, const StyleSnapshot& snapshot, const std::set<unsigned>& ids,
                       const std::set<int>& levels) {
    for (const int level : levels) {
        expectSameBackgrounds(config, snapshot, level);
        for (const unsigned id : ids) {
            expectSameStyle(config, snapshot, id, level);
            ASSERT_EQ(snapshot.IsCustomizedIconVisible(id, level), config.IsCustomizedIconVisible(id, level))
                << "icon of id " << id << " at level " << level;
        }
        if (testing::Test::HasFatalFailure()) return;
    }
}

void expectSameAnswers(const CustomConfig& config, const StyleSnapshot& snapshot) {
    expectSameAnswers(config, snapshot, styleIdsToAsk(config), levelsToAsk());
}

}  // namespace customstyle_test
