// The walk over feature types that the renderer's questions share.
#pragma once

#include "CustomConfig.h"
#include "model/FeatureTypeTable.h"
#include "model/RecordStorage.h"
#include "model/StyleKey.h"

namespace _orvik_framework {

/// Whether rules wrote a key with the given value: 1 for all levels, 0 for one level.
inline bool isInEffect(const CustomConfig& config, std::string_view key, int allLevels) {
    const auto found = config.m_styleEffectLevels.find(key);
    return found != config.m_styleEffectLevels.end() && found->second == allLevels;
}

/// The records in effect for a feature type at a level, or null. Styles of the level's own shut out those for all
/// levels, also where they hold nothing for a style id.
inline const CVMapPtrToPtr* effectiveRecords(const CustomConfig& config, int featureType, int level) {
    const StyleKey levelKey = StyleKey::ofLevel(featureType, level);
    if (isInEffect(config, levelKey.text(), 0)) return findSlot(config, levelKey.text());
    const StyleKey typeKey = StyleKey::ofType(featureType);
    if (isInEffect(config, typeKey.text(), 1)) return findSlot(config, typeKey.text());
    return nullptr;
}

/// The record in effect for a style id under a feature type, customised or not, or null.
inline const tagCustomStyle* effectiveRecord(const CustomConfig& config, int featureType, unsigned int styleId,
                                             int level) {
    const CVMapPtrToPtr* records = effectiveRecords(config, featureType, level);
    return records == nullptr ? nullptr : findRecord(*records, queriedKey(styleId));
}

/// The record whose fill is the background of the land at a level, or null. The land has one background, so its first
/// record speaks for it; the others are not asked even when that one is not customised.
inline const tagCustomStyle* landBackground(const CustomConfig& config, int level) {
    const CVMapPtrToPtr* records = effectiveRecords(config, EMAPCUSTOMSTYLE_LAND, level);
    void* position = records == nullptr ? nullptr : records->GetStartPosition();
    if (position == nullptr) return nullptr;
    void* key = nullptr;
    void* first = nullptr;
    records->GetNextAssoc(position, key, first);
    const auto* record = static_cast<const tagCustomStyle*>(first);
    return record != nullptr && record->m_custom != 0 ? record : nullptr;
}

}  // namespace _orvik_framework
