#include "fuzz/support/Questions.h"

#include <cstdlib>
#include <string>

#include "customstyle/StoredRecords.h"
#include "fuzz/support/Require.h"
#include "tests/support/TestStore.h"

namespace customstyle_fuzz {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;
using _orvik_framework::StyleSnapshot;
using _orvik_framework::tagCustomStyle;

namespace {

constexpr int kUntouched = -12345;

struct Answer {
    Answer() { style.m_ID = kUntouched; }

    bool operator==(const Answer& other) const {
        return featureType == other.featureType && iconHidden == other.iconHidden && style == other.style;
    }

    tagCustomStyle style{};
    int featureType = -1;
    int iconHidden = 0;
};

template <typename Styles>
Answer ask(const Styles& styles, unsigned id, int level) {
    Answer answer;
    answer.featureType = styles.GetStyleFromConfig(answer.style, id, level);
    answer.iconHidden = styles.IsCustomizedIconVisible(id, level);
    return answer;
}

template <typename Styles>
std::uint64_t askBackgrounds(const Styles& styles, int level) {
    std::uint64_t land = 7;
    std::uint64_t grid = 9;
    const int landSet = styles.IsCustomBackRegionEnable(land, level);
    const int gridSet = styles.IsCustomGridBackRegionEnable(grid, level);
    require(landSet == 1 || land == 7, "an answer without a land background leaves the colour alone");
    require(gridSet == 1 || grid == 9, "an answer without a grid background leaves the colour alone");
    return land * 31 + grid * 7 + static_cast<std::uint64_t>(landSet * 2 + gridSet);
}

void requireSame(const CustomConfig& config, const StyleSnapshot& snapshot) {
    const std::set<unsigned> ids = idsToAsk(config);
    for (const int level : levelsToAsk(config)) {
        require(askBackgrounds(config, level) == askBackgrounds(snapshot, level), "the backgrounds agree");
        for (const unsigned id : ids) {
            const Answer answer = ask(config, id, level);
            require(answer == ask(snapshot, id, level), "class and snapshot agree");
            require(answer.featureType != -1 || answer.style.m_ID == kUntouched,
                    "an answer of none leaves the record alone");
        }
    }
}

template <typename Styles>
void requireSwitchedOff(const Styles& styles, const CustomConfig& config) {
    for (const unsigned id : idsToAsk(config))
        require(ask(styles, id, 12) == Answer{}, "switched off, there is no style");
    require(askBackgrounds(styles, 12) == 7 * 31 + 9 * 7, "switched off, there is no background");
}

}  // namespace

std::set<unsigned> idsToAsk(const CustomConfig& config) {
    std::set<unsigned> ids = {0, 1, 77777, 0x7fffffff, 0x80000000, 0xffffffff};
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) {
            if (ids.size() < 32) ids.insert(entry.styleId());
        }
    }
    return ids;
}

std::set<int> levelsToAsk(const CustomConfig& config) {
    std::set<int> levels = {-2147483647 - 1, 0, 4, 21, 22, 2147483647};
    for (const auto& [key, allLevels] : config.m_styleEffectLevels) {
        const std::size_t colon = key.find(':');
        if (colon != std::string::npos && levels.size() < 10)
            levels.insert(static_cast<int>(std::strtol(key.c_str() + colon + 1, nullptr, 10)));
    }
    return levels;
}

void requireSameAnswers(const CustomConfig& config) {
    const StyleSnapshot snapshot(config);
    requireSwitchedOff(config, config);
    requireSwitchedOff(snapshot, config);
    const customstyle_test::QueriesEnabled on;
    requireSame(config, snapshot);
}

void requireSoundStore(const CustomConfig& config) {
    require(static_cast<std::size_t>(config.m_usedLevelSlots) == config.m_keyStyleMaps.size(), "a slot for each key");
    require(config.m_usedLevelSlots <= _orvik_framework::kStyleSlotCount, "no slot beyond the last one");
    require(config.m_styleEffectLevels.size() == config.m_keyStyleMaps.size(), "keys with slots are in effect");
    std::set<const CVMapPtrToPtr*> slots;
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        require(slots.insert(slot).second && slot - config.m_levelStyleMaps < config.m_usedLevelSlots, "slots in use");
        require(slot->GetCount() == config.m_typeStyleMaps[std::stoi(key)].GetCount(), "a record for each base record");
        for (const StoredRecord& entry : StoredRecords(*slot)) {
            require(entry.record != nullptr && entry.record->m_ID == entry.number(), "records stand under their ids");
        }
    }
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) {
            const tagCustomStyle& record = *entry.record;
            require(record.m_ID == entry.number() && record.m_custom == 0 && record.m_fillColor == 0,
                    "base records are untouched");
        }
    }
}

}  // namespace customstyle_fuzz
