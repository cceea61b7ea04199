#include "tools/replay/TracedReplay.h"

#include <algorithm>
#include <set>

#include "customstyle/StoredRecords.h"
#include "tools/replay/LogRecording.h"
#include "tools/replay/SingleRules.h"
#include "tools/replay/StoreImage.h"
#include "tools/replay/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::StoredRecords;
using _orvik_vi::cJSON;
using Log = std::vector<std::string>;

std::vector<std::string> keysInSlotOrder(const CustomConfig& config) {
    std::vector<std::pair<const void*, std::string>> slots;
    for (const auto& [key, slot] : config.m_keyStyleMaps) slots.emplace_back(slot, key);
    std::ranges::sort(slots);
    std::vector<std::string> keys;
    for (auto& [slot, key] : slots) keys.push_back(std::move(key));
    return keys;
}

// What a rule addresses shows in a store of its own, where there is always room.
std::vector<std::string> keysOf(const cJSON* document) {
    const LogSilence quiet;
    CustomConfig alone;
    alone.ParseCustomConfig(document);
    return keysInSlotOrder(alone);
}

bool hasSlot(const CustomConfig& config, const std::string& key) {
    return config.m_keyStyleMaps.contains(key);
}

// Marks are unlike for records of a level and of all levels, and for the first and the second marking, in every width.
std::uint64_t markFor(bool ofLevel, bool second) {
    const std::uint64_t mark = ofLevel ? 0x5A5A5A5A5A5A5A5A : 0x3C3C3C3C3C3C3C3C;
    return second ? ~mark : mark;
}

void markRecord(tagCustomStyle& record, std::uint64_t mark) {
    for (const StyleField& field : styleFields()) setValue(field, record, mark);
}

bool isMarked(const StyleField& field, const tagCustomStyle& record, std::uint64_t mark) {
    tagCustomStyle marked{};
    setValue(field, marked, mark);
    return valueOf(field, record) == valueOf(field, marked);
}

// Applies the rule to the store with every record of the feature types marked, and leaves the outcome there.
void applyToMarked(CustomConfig& config, const cJSON* document, const std::set<int>& featureTypes, bool second) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        const auto [featureType, level] = parsedKey(key);
        if (!featureTypes.contains(featureType)) continue;
        const std::uint64_t mark = markFor(level.has_value(), second);
        for (const auto& entry : StoredRecords(*slot)) markRecord(*entry.record, mark);
    }
    config.m_gridColorSet = 0;
    config.m_allIconsHidden = 0;
    const LogSilence quiet;
    config.ParseCustomConfig(document);
}

std::array<Origin, kStyleFieldCount> originsOf(bool ofLevel, const tagCustomStyle& first,
                                               const tagCustomStyle& second) {
    std::array<Origin, kStyleFieldCount> origins{};
    for (std::size_t i = 0; i < kStyleFieldCount; ++i) {
        const StyleField& field = styleFields()[i];
        const auto bears = [&](bool markOfLevel) {
            return isMarked(field, first, markFor(markOfLevel, false)) &&
                   isMarked(field, second, markFor(markOfLevel, true));
        };
        origins[i] = bears(ofLevel) ? Origin::Kept : bears(false) ? Origin::Inherited : Origin::Written;
    }
    return origins;
}

// A record that came with the step began as a copy of its base record.
tagCustomStyle recordBefore(const StoreImage& before, const std::string& key, std::size_t place, int styleId) {
    const auto slot = before.slots().find(key);
    if (slot != before.slots().end()) return slot->second[place].style;
    tagCustomStyle base{};
    base.m_ID = styleId;
    return base;
}

class Stepper {
public:
    Stepper(CustomConfig& config, ReplayStep& step) : m_config(config), m_step(step) {}

    void apply(const cJSON* document) {
        m_step.keys = keysOf(document);
        std::ranges::copy_if(m_step.keys, std::back_inserter(m_step.newKeys),
                             [&](const std::string& key) { return !hasSlot(m_config, key); });
        for (const std::string& key : m_step.keys) m_featureTypes.insert(parsedKey(key).featureType);
        const StoreImage before(m_config, m_featureTypes);
        {
            const LogRecording recording(m_step.log);
            m_config.ParseCustomConfig(document);
        }
        sortOutRefusedKeys();
        const StoreImage after(m_config, m_featureTypes);
        findTouches(document, before, after);
        after.restore(m_config);
    }

private:
    void sortOutRefusedKeys() {
        std::vector<std::string>& keys = m_step.newKeys;
        const auto refused = std::stable_partition(keys.begin(), keys.end(),
                                                   [&](const std::string& key) { return hasSlot(m_config, key); });
        m_step.refused.assign(refused, keys.end());
        keys.erase(refused, keys.end());
    }

    void findTouches(const cJSON* document, const StoreImage& before, const StoreImage& after) {
        applyToMarked(m_config, document, m_featureTypes, false);
        const StoreImage first(m_config, m_featureTypes);
        if (first.gridColorSet()) m_step.gridColor = first.gridColor();
        m_step.hidesEveryIcon = first.allIconsHidden();
        applyToMarked(m_config, document, m_featureTypes, true);
        const StoreImage second(m_config, m_featureTypes);
        for (const std::string& key : m_step.keys) {
            if (!after.slots().contains(key)) continue;
            findTouchesOfKey(key, before, after.slots().at(key), first.slots().at(key), second.slots().at(key));
        }
    }

    void findTouchesOfKey(const std::string& key, const StoreImage& before, const std::vector<ImageRecord>& after,
                          const std::vector<ImageRecord>& first, const std::vector<ImageRecord>& second) {
        const auto [featureType, level] = parsedKey(key);
        for (std::size_t i = 0; i < after.size(); ++i) {
            RecordTouch touch{key, featureType, level, after[i].styleId, {}, after[i].style, {}};
            touch.before = recordBefore(before, key, i, touch.styleId);
            touch.origins = originsOf(level.has_value(), first[i].style, second[i].style);
            m_step.touches.push_back(std::move(touch));
        }
    }

    CustomConfig& m_config;
    ReplayStep& m_step;
    std::set<int> m_featureTypes;  // of the keys that the step addresses: no other records can change
};

}  // namespace

TracedReplay::TracedReplay(std::string_view mapping, const StyleSource& style)
    : m_config(std::make_unique<CustomConfig>()) {
    m_config->ParseMappingConfig(componentTree(mapping).get());
    for (const SingleRule& single : singleRules(style)) {
        ReplayStep& step = m_steps.emplace_back();
        step.rule = single.rule;
        step.styler = single.styler;
        Stepper(*m_config, step).apply(single.document.get());
    }
}

}  // namespace customstyle_tool
