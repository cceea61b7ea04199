#include "tests/component/StoreInvariants.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "customstyle/StoredRecords.h"
#include "tests/support/RecordTable.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;

// ---- The store ------------------------------------------------------------------------------------------------------

std::vector<std::intptr_t> idsOf(const CVMapPtrToPtr& records) {
    std::vector<std::intptr_t> ids;
    for (const StoredRecord& entry : StoredRecords(records)) ids.push_back(entry.number());
    return ids;
}

void expectFlag(int flag) {
    EXPECT_TRUE(flag == 0 || flag == 1) << flag;
}

// A value other than 0 has its flag, and a colour uses 32 bits.
void expectSoundRecord(const tagCustomStyle& record) {
    for (const RecordField& field : kRecordFields) {
        const std::uint64_t value = valueIn(record, field);
        expectFlag(record.*field.applies);
        EXPECT_TRUE(record.*field.applies == 1 || value == 0) << field.member << " " << value;
        EXPECT_EQ(value >> 32, 0U) << field.member;
    }
    expectFlag(record.m_iconHidden);
    expectFlag(record.m_custom);
}

void expectSoundKey(const std::string& key) {
    const std::size_t colon = key.find(':');
    const int type = std::stoi(key);
    EXPECT_TRUE(type >= 0 && type <= 72) << key;
    if (colon == std::string::npos) {
        EXPECT_EQ(key, std::to_string(type));
    } else {
        const int level = std::stoi(key.substr(colon + 1));
        EXPECT_TRUE(level >= 4 && level <= 21) << key;
        EXPECT_EQ(key, std::to_string(type) + ":" + std::to_string(level));
    }
}

}  // namespace

void expectSound(const CustomConfig& config) {
    ASSERT_LE(config.m_usedLevelSlots, 1241);
    std::set<std::ptrdiff_t> slots;
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        expectSoundKey(key);
        slots.insert(slot - config.m_levelStyleMaps);
        EXPECT_EQ(idsOf(*slot), idsOf(config.m_typeStyleMaps[std::stoi(key)])) << key;
        for (const StoredRecord& entry : StoredRecords(*slot)) {
            EXPECT_EQ(entry.number(), entry.record->m_ID);
            expectSoundRecord(*entry.record);
        }
    }
    EXPECT_EQ(slots.size(), config.m_keyStyleMaps.size());
    EXPECT_EQ(static_cast<int>(slots.size()), config.m_usedLevelSlots);
    if (!slots.empty()) {
        EXPECT_EQ(*slots.begin(), 0);
        EXPECT_EQ(*slots.rbegin(), config.m_usedLevelSlots - 1);
    }
    for (int slot = config.m_usedLevelSlots; slot < 1241; ++slot) {
        ASSERT_EQ(config.m_levelStyleMaps[slot].GetCount(), 0) << slot;
    }
}

void expectEffectsAgree(const CustomConfig& config) {
    EXPECT_EQ(config.m_styleEffectLevels.size(), config.m_keyStyleMaps.size());
    for (const auto& [key, allLevels] : config.m_styleEffectLevels) {
        EXPECT_TRUE(config.m_keyStyleMaps.contains(key)) << key;
        EXPECT_EQ(allLevels, key.find(':') == std::string::npos ? 1 : 0) << key;
    }
}

void expectBaseUntouched(const CustomConfig& config) {
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) ASSERT_EQ(*entry.record, baseRecord(entry.id()));
    }
    EXPECT_EQ(config.m_typeStyleMaps[72].GetCount(), 0);
}

Slots slotsOf(const CustomConfig& config) {
    return {config.m_keyStyleMaps.begin(), config.m_keyStyleMaps.end()};
}

void expectGrown(const CustomConfig& config, const Slots& before) {
    for (const auto& [key, slot] : slotsOf(config)) {
        const auto known = before.find(key);
        if (known != before.end()) {
            EXPECT_EQ(slot, known->second) << key;
        } else {
            EXPECT_GE(slot - config.m_levelStyleMaps, static_cast<std::ptrdiff_t>(before.size())) << key;
        }
    }
}

// ---- The answers ----------------------------------------------------------------------------------------------------

namespace {

/// The record that a type has for a style id at a level, found the slow way.
const tagCustomStyle* effectiveRecord(const CustomConfig& config, int type, int styleId, int level) {
    const std::string typeKey = std::to_string(type);
    const std::string levelKey = typeKey + ":" + std::to_string(level);
    const tagCustomStyle* found = nullptr;
    const auto slot = config.m_keyStyleMaps.find(config.m_keyStyleMaps.contains(levelKey) ? levelKey : typeKey);
    const bool canBeFound = styleId >= 0 || sizeof(void*) == sizeof styleId;
    if (slot == config.m_keyStyleMaps.end() || !canBeFound) return nullptr;
    for (const StoredRecord& entry : StoredRecords(*slot->second)) {
        if (entry.number() == styleId) found = entry.record;
    }
    return found;
}

/// All types in the order in which they are asked.
std::vector<int> askedTypes() {
    std::vector<int> types;
    for (int type = 0; type <= 71; ++type) {
        if (type != 4 && type != 45 && type != 53) types.push_back(type);
    }
    types.insert(types.end(), {4, 45, 53});
    return types;
}

int expectedType(const CustomConfig& config, int styleId, int level) {
    for (const int type : askedTypes()) {
        const tagCustomStyle* record = effectiveRecord(config, type, styleId, level);
        if (record != nullptr && record->m_custom != 0) return type;
    }
    return -1;
}

int expectedHidden(const CustomConfig& config, int styleId, int level) {
    if (config.m_allIconsHidden != 0) return 1;
    for (const int type : askedTypes()) {
        const tagCustomStyle* record = effectiveRecord(config, type, styleId, level);
        const bool parent = type == 4 || type == 45 || type == 53;
        if (record != nullptr && (!parent || record->m_iconHidden != 0)) return record->m_iconHidden;
    }
    return 0;
}

}  // namespace

void expectAnswersAgree(const CustomConfig& config, int styleId, int level) {
    const int type = expectedType(config, styleId, level);
    const tagCustomStyle untouched = baseRecord(-77);
    tagCustomStyle style = untouched;
    EXPECT_EQ(config.GetStyleFromConfig(style, static_cast<unsigned>(styleId), level), type) << styleId;
    EXPECT_EQ(style, type == -1 ? untouched : *effectiveRecord(config, type, styleId, level)) << styleId;
    EXPECT_EQ(config.IsCustomizedIconVisible(static_cast<unsigned>(styleId), level),
              expectedHidden(config, styleId, level))
        << styleId;
}

}  // namespace customstyle_test
