// What the store refuses: types it does not know, keys it has no room for, records it has no memory for.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/model/BaseRecords.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/IntLimits.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

void writeAll(CustomConfig& config, int featureType, int allLevels, int level) {
    config.SetTypeColor(featureType, "fill", 0xff0000ff, allLevels, level);
    config.SetFontColorStyle(featureType, "fill", 0xff0000ff, allLevels, level);
    config.SetCustomIconInvisible(featureType, "icon", 1, allLevels, level);
    config.SetTypeWeight(featureType, "fill", 7, allLevels, level);
    config.SetFontWeightStyle(featureType, "fill", 7, allLevels, level);
    config.setFontSizeStyle(featureType, "fill", 7, allLevels, level);
}

// ---- Feature types --------------------------------------------------------------------------------------------------

class UnknownFeatureType : public testing::TestWithParam<int> {
protected:
    void expectEmptyStore() const {
        EXPECT_TRUE(m_config.m_styleEffectLevels.empty());
        EXPECT_TRUE(m_config.m_keyStyleMaps.empty());
        EXPECT_EQ(m_config.m_usedLevelSlots, 0);
    }

    CustomConfig m_config;
};

TEST_P(UnknownFeatureType, IsNotRegistered) {
    char key[16];
    m_config.UpdateCustomStyleMap(key, GetParam(), 1, 0);
    m_config.UpdateCustomStyleMap(key, GetParam(), 0, 15);
    m_config.UpdateCustomStyleMap(key, GetParam(), 0, kIntMin);
    expectEmptyStore();
}

TEST_P(UnknownFeatureType, IsNotWrittenTo) {
    writeAll(m_config, GetParam(), 1, 0);
    writeAll(m_config, GetParam(), 0, 15);
    expectEmptyStore();
}

TEST_P(UnknownFeatureType, HasItsTypeKeyTextAllTheSame) {
    char key[16];
    m_config.UpdateCustomStyleMap(key, GetParam(), 1, 0);
    EXPECT_EQ(std::string(key), std::to_string(GetParam()));
}

TEST_P(UnknownFeatureType, HasItsLevelKeyTextUpTo15Characters) {
    char key[16];
    for (const int level : {4, 15, 123, -4567}) {
        m_config.UpdateCustomStyleMap(key, GetParam(), 0, level);
        EXPECT_EQ(key, (std::to_string(GetParam()) + ":" + std::to_string(level)).substr(0, 15));
    }
}

TEST_P(UnknownFeatureType, HasALevelKeyTextWithin16Characters) {
    char key[24];
    std::ranges::fill(key, 'x');
    m_config.UpdateCustomStyleMap(key, GetParam(), 0, kIntMin);
    ASSERT_NE(std::find(key, key + 16, '\0'), key + 16);
    EXPECT_TRUE((std::to_string(GetParam()) + ":-2147483648").starts_with(key)) << key;
    EXPECT_EQ(std::string(key + 16, 8), "xxxxxxxx");
}

INSTANTIATE_TEST_SUITE_P(StoreLimits, UnknownFeatureType,
                         testing::Values(-1, -13, 73, 99, 100, 1000, -12345, 123456, 1234567, 12345678, 123456789,
                                         kIntMin, kIntMax));

// ---- Slots ----------------------------------------------------------------------------------------------------------

/// A store that has given away its last slot: all types at the levels 5 to 21. Type 13 has the style id 7.
class FullStore : public testing::Test {
protected:
    FullStore() {
        addBaseRecord(m_config, kHighway, 7);
        for (int level = 5; level <= 21; ++level) {
            for (int featureType = 0; featureType < 73; ++featureType) update(featureType, 0, level);
        }
    }

    std::string update(int featureType, int allLevels, int level) {
        char key[16];
        m_config.UpdateCustomStyleMap(key, featureType, allLevels, level);
        return key;
    }

    void expectOnlyTheFirst1241Keys() const {
        EXPECT_EQ(m_config.m_usedLevelSlots, 1241);
        EXPECT_EQ(m_config.m_styleEffectLevels.size(), 1241u);
        EXPECT_EQ(m_config.m_keyStyleMaps.size(), 1241u);
    }

    CustomConfig m_config;
};

TEST_F(FullStore, HasRoomFor1241Keys) {
    expectOnlyTheFirst1241Keys();
    EXPECT_EQ(m_config.m_keyStyleMaps.at("72:21"), &m_config.m_levelStyleMaps[1240]);
}

TEST_F(FullStore, RefusesAFurtherKeyWhole) {
    update(kHighway, 1, 0);
    update(kHighway, 0, 4);
    update(72, 1, 0);
    expectOnlyTheFirst1241Keys();
    EXPECT_EQ(m_config.m_styleEffectLevels.count("13"), 0u);
    EXPECT_EQ(m_config.m_keyStyleMaps.count("13"), 0u);
}

TEST_F(FullStore, StillTellsTheTextOfARefusedKey) {
    EXPECT_EQ(update(kHighway, 1, 0), "13");
    EXPECT_EQ(update(kHighway, 0, 4), "13:4");
}

TEST_F(FullStore, AllocatesNothingForARefusedKey) {
    const MemoryAccounts accounts;
    update(kHighway, 1, 0);
    EXPECT_EQ(accounts.blocks(), 0);
}

TEST_F(FullStore, ChangesNothingThroughARefusedKey) {
    writeAll(m_config, kHighway, 1, 0);
    writeAll(m_config, kHighway, 0, 4);
    expectOnlyTheFirst1241Keys();
    for (int level = 5; level <= 21; ++level)
        EXPECT_EQ(*recordAt(m_config, "13:" + std::to_string(level), 7), baseRecord(7));
}

TEST_F(FullStore, GoesOnWritingToTheKeysThatItHas) {
    m_config.SetTypeColor(kHighway, "fill", 0xff0000ff, 0, 15);
    EXPECT_EQ(recordAt(m_config, "13:15", 7)->m_fillColor, 0xff0000ffu);
    expectOnlyTheFirst1241Keys();
}

TEST_F(FullStore, AnswersThatARefusedKeyIsNotInEffect) {
    writeAll(m_config, kHighway, 1, 0);
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("13"), 0);
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel("13:15"), 1);
}

// ---- Memory ---------------------------------------------------------------------------------------------------------

/// A type with the style ids 0, 1 and 2 whose key is registered while one allocation fails.
class RecordWithoutMemory : public testing::TestWithParam<int> {
protected:
    RecordWithoutMemory() {
        for (const int styleId : {0, 1, 2}) addBaseRecord(m_config, kHighway, styleId);
        const FaultyMemory memory(static_cast<std::size_t>(GetParam()));
        m_config.SetTypeColor(kHighway, "fill", 0xff0000ff, 1, 0);
        EXPECT_TRUE(memory.hasFailed());
    }

    CustomConfig m_config;
};

TEST_P(RecordWithoutMemory, IsLeftOutWithoutATrace) {
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13")->GetCount(), 2);
    EXPECT_EQ(recordAt(m_config, "13", GetParam()), nullptr);
}

TEST_P(RecordWithoutMemory, LeavesTheOthersInPlace) {
    for (const int styleId : {0, 1, 2}) {
        if (styleId == GetParam()) continue;
        ASSERT_NE(recordAt(m_config, "13", styleId), nullptr);
        EXPECT_EQ(recordAt(m_config, "13", styleId)->m_fillColor, 0xff0000ffu);
    }
}

TEST_P(RecordWithoutMemory, DoesNotDisturbLaterWritesOrQueries) {
    m_config.SetTypeWeight(kHighway, "fill", 7, 0, 15);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13:15")->GetCount(), 3);
    const QueriesEnabled enabled;
    tagCustomStyle style{};
    EXPECT_EQ(m_config.GetStyleFromConfig(style, static_cast<unsigned>(GetParam()), 14), -1);
    EXPECT_EQ(m_config.GetStyleFromConfig(style, static_cast<unsigned>(GetParam()), 15), kHighway);
}

INSTANTIATE_TEST_SUITE_P(StoreLimits, RecordWithoutMemory, testing::Values(0, 1, 2));

}  // namespace
}  // namespace customstyle_test
