// The walk over feature types that the renderer's questions share.
#pragma once

#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/StoredRecords.h"
#include "customstyle/model/StyleKey.h"

namespace _orvik_framework {

/// Whether rules wrote a key with the given value: 1 for all levels, 0 for one level.
/// @param key  StyleKeyWords, or a text, which may be longer than keys are
template <typename Key>
bool isInEffect(const CustomConfig& config, const Key& key, int allLevels) {
    const auto found = config.m_styleEffectLevels.find(key);
    return found != config.m_styleEffectLevels.end() && found->second == allLevels;
}

/// The record in effect under the type and level of the keys, or null: what `recordOf(const CVMapPtrToPtr& slot)` finds
/// in the slot. Styles for the level itself replace those for all levels, even where they hold no such record.
template <typename RecordOf>
const tagCustomStyle* effectiveRecord(const CustomConfig& config, const StyleKeys& keys, RecordOf recordOf) {
    const auto recordUnder = [&](const StyleKeyWords& key) -> const tagCustomStyle* {
        const CVMapPtrToPtr* slot = findSlot(config, key);
        return slot == nullptr ? nullptr : recordOf(*slot);
    };
    const StyleKeyWords levelKey = keys.ofLevel();
    if (isInEffect(config, levelKey, 0)) return recordUnder(levelKey);
    // Few slots hold the record, so most walks need not know whether the type's key is in effect.
    const tagCustomStyle* record = recordUnder(keys.ofType());
    return record != nullptr && isInEffect(config, keys.ofType(), 1) ? record : nullptr;
}

/// The record in effect for a style id under the type and level of the keys, customised or not, or null.
inline const tagCustomStyle* effectiveRecord(const CustomConfig& config, const StyleKeys& keys, unsigned int styleId) {
    return effectiveRecord(config, keys,
                           [key = queriedKey(styleId)](const CVMapPtrToPtr& slot) { return findRecord(slot, key); });
}

/// The same if it is customised.
inline const tagCustomStyle* customizedRecord(const CustomConfig& config, const StyleKeys& keys, unsigned int styleId) {
    const tagCustomStyle* record = effectiveRecord(config, keys, styleId);
    return record != nullptr && record->m_custom != 0 ? record : nullptr;
}

/// Calls `answers(const StyleKeys& keys)` for the feature types that are not parents, ascending, until it returns
/// true. Returns that type, or -1.
template <typename Answers>
int firstFeatureType(int level, Answers answers) {
    StyleKeys keys(level);
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType) {
        if (isParentFeatureType(featureType)) continue;
        keys.selectType(featureType);
        if (answers(keys)) return featureType;
    }
    return -1;
}

}  // namespace _orvik_framework
