// Registration of style keys and the slots that they get.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "customstyle/StoredRecords.h"
#include "tests/model/BaseRecords.h"
#include "tests/support/CaseName.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/IntLimits.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;

class KeyRegistration : public testing::Test {
protected:
    void update(int featureType, int allLevels, int level) {
        char key[16];
        m_config.UpdateCustomStyleMap(key, featureType, allLevels, level);
    }

    CustomConfig m_config;
};

// ---- Key texts ------------------------------------------------------------------------------------------------------

struct KeyCase {
    const char* name;
    int featureType;
    int allLevels;
    int level;
    const char* key;
};

class StyleKeyText : public testing::TestWithParam<KeyCase> {};

TEST_P(StyleKeyText, IsWrittenWithItsTerminatingZeroWithin16Characters) {
    char key[24];
    std::ranges::fill(key, 'x');
    CustomConfig config;
    config.UpdateCustomStyleMap(key, GetParam().featureType, GetParam().allLevels, GetParam().level);
    EXPECT_STREQ(key, GetParam().key);
    EXPECT_EQ(std::string(key + 16, 8), "xxxxxxxx");
    // What follows the zero belongs to the caller.
    const std::size_t written = std::string(key).size() + 1;
    EXPECT_EQ(std::string(key + written, sizeof key - written), std::string(sizeof key - written, 'x'));
}

TEST_P(StyleKeyText, IsTheKeyInBothTables) {
    char key[16];
    CustomConfig config;
    config.UpdateCustomStyleMap(key, GetParam().featureType, GetParam().allLevels, GetParam().level);
    EXPECT_EQ(config.m_styleEffectLevels.count(GetParam().key), 1u);
    EXPECT_EQ(config.m_keyStyleMaps.count(GetParam().key), 1u);
}

TEST_P(StyleKeyText, CarriesTheGivenMark) {
    char key[16];
    CustomConfig config;
    config.UpdateCustomStyleMap(key, GetParam().featureType, GetParam().allLevels, GetParam().level);
    EXPECT_EQ(config.m_styleEffectLevels.at(GetParam().key), GetParam().allLevels);
}

INSTANTIATE_TEST_SUITE_P(
    KeyRegistration, StyleKeyText,
    testing::Values(KeyCase{"OneLevel", 5, 0, 18, "5:18"}, KeyCase{"AllLevels", 5, 1, 0, "5"},
                    KeyCase{"AllLevelsWhateverTheLevel", 5, 1, 18, "5"}, KeyCase{"FirstTypeAtOneLevel", 0, 0, 4, "0:4"},
                    KeyCase{"FirstTypeAtAllLevels", 0, 1, 0, "0"}, KeyCase{"LastTypeAtOneLevel", 72, 0, 21, "72:21"},
                    KeyCase{"LastTypeAtAllLevels", 72, 1, 0, "72"}, KeyCase{"LevelZero", 13, 0, 0, "13:0"},
                    KeyCase{"AnyMarkButZeroMeansAllLevels", 13, 2, 9, "13"},
                    KeyCase{"ANegativeMarkMeansAllLevels", 13, -1, 9, "13"},
                    KeyCase{"NegativeLevel", 13, 0, -7, "13:-7"},
                    KeyCase{"LowestLevel", 72, 0, kIntMin, "72:-2147483648"},
                    KeyCase{"HighestLevel", 72, 0, std::numeric_limits<int>::max(), "72:2147483647"}),
    caseName);

// ---- Registration ---------------------------------------------------------------------------------------------------

TEST_F(KeyRegistration, TheSameKeyTwiceTakesOneSlot) {
    update(kHighway, 1, 0);
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_usedLevelSlots, 1);
    EXPECT_EQ(m_config.m_keyStyleMaps.size(), 1u);
    EXPECT_EQ(m_config.m_styleEffectLevels.size(), 1u);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13"), 1);
}

TEST_F(KeyRegistration, KeysTakeSlotsInTheOrderInWhichTheyAreFirstSeen) {
    update(20, 0, 15);
    update(3, 1, 0);
    update(20, 0, 15);
    update(3, 0, 21);
    EXPECT_EQ(m_config.m_usedLevelSlots, 3);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("20:15"), &m_config.m_levelStyleMaps[0]);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("3"), &m_config.m_levelStyleMaps[1]);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("3:21"), &m_config.m_levelStyleMaps[2]);
}

TEST_F(KeyRegistration, KeysOfAnyLengthThatDifferInOneCharacterAreDifferentKeys) {
    int keys = 0;
    for (const int level : {10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000}) {
        for (const int digit : {1, 2, 3, 1}) update(kHighway, 0, level + digit);
        keys += 3;
        EXPECT_EQ(m_config.m_usedLevelSlots, keys) << level;
    }
}

TEST_F(KeyRegistration, TheFirstMarkOfAKeyStays) {
    update(kHighway, 2, 0);
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13"), 2);
}

TEST_F(KeyRegistration, ATypeWithoutBaseRecordsGetsAnEmptySlot) {
    update(kHighway, 1, 0);
    update(72, 1, 0);
    EXPECT_EQ(m_config.m_usedLevelSlots, 2);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13")->GetCount(), 0);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("72")->GetCount(), 0);
}

TEST_F(KeyRegistration, AKeyWithASlotGetsItsEffectWhereItHasNone) {
    m_config.m_keyStyleMaps["13:15"] = &m_config.m_levelStyleMaps[7];
    update(kHighway, 0, 15);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13:15"), 0);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13:15"), &m_config.m_levelStyleMaps[7]);
    EXPECT_EQ(m_config.m_usedLevelSlots, 0);
}

TEST_F(KeyRegistration, AKeyWhoseEffectWasTakenAwayGetsItBack) {
    update(kHighway, 1, 0);
    m_config.m_styleEffectLevels.clear();
    m_config.SetTypeColor(kHighway, "fill", 0xff0000ff, 1, 0);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13"), 1);
    EXPECT_EQ(m_config.m_usedLevelSlots, 1);
}

// A host allocator that looks at a store while memory for the first record of a slot is asked for.
const CustomConfig* g_watched = nullptr;
std::size_t g_effectsSeen = 0;
std::size_t g_slotsSeen = 0;

void* allocateAndLook(std::size_t size, const char*, int) {
    g_effectsSeen = g_watched->m_styleEffectLevels.count("13");
    g_slotsSeen = g_watched->m_keyStyleMaps.count("13") + static_cast<std::size_t>(g_watched->m_usedLevelSlots);
    return std::malloc(size);
}

TEST_F(KeyRegistration, TheEffectComesFirstThenTheRecordsThenTheSlot) {
    addBaseRecord(m_config, kHighway, 7);
    g_watched = &m_config;
    g_effectsSeen = g_slotsSeen = 100;
    _orvik_vi::CVMem::SetHostAllocator(allocateAndLook, std::free);
    update(kHighway, 1, 0);
    _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr);
    EXPECT_EQ(g_effectsSeen, 1u);
    EXPECT_EQ(g_slotsSeen, 0u);
}

// ---- Copies ---------------------------------------------------------------------------------------------------------

TEST_F(KeyRegistration, ThreeBaseRecordsMakeThreeRecordsUnderTheirIds) {
    for (const int styleId : {7001, 12, 340}) addBaseRecord(m_config, kHighway, styleId);
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13")->GetCount(), 3);
    for (const int styleId : {7001, 12, 340}) EXPECT_EQ(recordAt(m_config, "13", styleId)->m_ID, styleId);
}

TEST_F(KeyRegistration, ARecordIsAWholeCopyOfItsOwn) {
    addBaseRecord(m_config, kHighway, 7) = fullRecord(7);
    update(kHighway, 0, 15);
    ASSERT_NE(recordAt(m_config, "13:15", 7), nullptr);
    EXPECT_EQ(*recordAt(m_config, "13:15", 7), fullRecord(7));
    recordAt(m_config, "13:15", 7)->m_fillColor = 1;
    update(kHighway, 1, 0);
    EXPECT_EQ(*recordAt(m_config, "13", 7), fullRecord(7));
}

TEST_F(KeyRegistration, TheOrderOfTheBaseRecordsIsThatOfTheCopies) {
    for (const int styleId : {30, 10, 20}) addBaseRecord(m_config, kHighway, styleId);
    update(kHighway, 1, 0);
    std::vector<int> styleIds;
    for (const StoredRecord& entry : StoredRecords(*m_config.m_keyStyleMaps.at("13"))) styleIds.push_back(entry.id());
    EXPECT_EQ(styleIds, (std::vector{30, 10, 20}));
}

TEST_F(KeyRegistration, OtherTypesHaveNoPartInASlot) {
    addBaseRecord(m_config, 12, 1);
    addBaseRecord(m_config, kHighway, 2);
    addBaseRecord(m_config, 14, 3);
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13")->GetCount(), 1);
}

TEST_F(KeyRegistration, CopiesAreMadeOnFirstSightOnly) {
    tagCustomStyle& base = addBaseRecord(m_config, kHighway, 7);
    update(kHighway, 1, 0);
    const MemoryAccounts accounts;
    base.m_fillColor = 5;
    addBaseRecord(m_config, kHighway, 8);
    update(kHighway, 1, 0);
    EXPECT_EQ(*recordAt(m_config, "13", 7), baseRecord(7));
    EXPECT_EQ(recordAt(m_config, "13", 8), nullptr);
    EXPECT_EQ(accounts.blocks(), 1);
}

TEST_F(KeyRegistration, ANegativeStyleIdIsWidenedWithItsSign) {
    addBaseRecord(m_config, kHighway, -5);
    update(kHighway, 1, 0);
    void* record = nullptr;
    EXPECT_TRUE(m_config.m_levelStyleMaps[0].Lookup(reinterpret_cast<void*>(std::intptr_t{-5}), record));
}

TEST_F(KeyRegistration, ACopyIsFiledUnderItsOwnId) {
    addBaseRecord(m_config, kHighway, 7).m_ID = 8;
    update(kHighway, 1, 0);
    EXPECT_EQ(recordAt(m_config, "13", 7), nullptr);
    ASSERT_NE(recordAt(m_config, "13", 8), nullptr);
}

TEST_F(KeyRegistration, AnAbsentBaseRecordIsPassedOver) {
    addBaseRecord(m_config, kHighway, 1);
    m_config.m_typeStyleMaps[kHighway][recordKey(2)] = nullptr;
    addBaseRecord(m_config, kHighway, 3);
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_levelStyleMaps[0].GetCount(), 2);
}

// A host that sets the counter back hands out a slot that another key still has.
TEST_F(KeyRegistration, WhatASlotHoldsStaysWhenItIsHandedOutAgain) {
    addBaseRecord(m_config, kHighway, 7);
    addBaseRecord(m_config, 14, 8);
    update(kHighway, 1, 0);
    tagCustomStyle* const first = recordAt(m_config, "13", 7);
    first->m_fillColor = 5;
    m_config.m_usedLevelSlots = 0;
    const MemoryAccounts accounts;
    update(14, 1, 0);
    EXPECT_EQ(recordAt(m_config, "13", 7), first);
    EXPECT_EQ(first->m_fillColor, 5u);
    EXPECT_NE(recordAt(m_config, "14", 8), nullptr);
    EXPECT_EQ(accounts.blocks(), 1);
}

// ---- A key without a slot -------------------------------------------------------------------------------------------

TEST_F(KeyRegistration, ANullSlotPointerStaysButASlotIsTakenEachTime) {
    addBaseRecord(m_config, kHighway, 7);
    m_config.m_keyStyleMaps["13"] = nullptr;
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13"), nullptr);
    EXPECT_EQ(m_config.m_styleEffectLevels.at("13"), 1);
    EXPECT_EQ(m_config.m_usedLevelSlots, 1);
    EXPECT_EQ(m_config.m_levelStyleMaps[0].GetCount(), 1);
    update(kHighway, 1, 0);
    EXPECT_EQ(m_config.m_usedLevelSlots, 2);
}

TEST_F(KeyRegistration, WritersChangeNothingThroughANullSlotPointer) {
    addBaseRecord(m_config, kHighway, 7);
    m_config.m_keyStyleMaps["13"] = nullptr;
    m_config.SetTypeColor(kHighway, "fill", 0xff0000ff, 1, 0);
    void* record = nullptr;
    ASSERT_TRUE(m_config.m_levelStyleMaps[0].Lookup(recordKey(7), record));
    EXPECT_EQ(*static_cast<tagCustomStyle*>(record), baseRecord(7));
}

}  // namespace
}  // namespace customstyle_test
