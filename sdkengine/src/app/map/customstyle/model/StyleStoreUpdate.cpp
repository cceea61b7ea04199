#include <algorithm>
#include <string>

#include "CustomConfig.h"
#include "model/FeatureTypeTable.h"
#include "model/KeyRegistration.h"
#include "model/RecordStorage.h"
#include "model/StyleKey.h"

namespace _orvik_framework {

namespace {

CVMapPtrToPtr* makeSlot(CustomConfig& config, const StyleKeyWords& key, int featureType) {
    CVMapPtrToPtr& slot = config.m_levelStyleMaps[config.m_usedLevelSlots];
    releaseRecords(slot);  // of another key, for which memory ran out half-way
    forEachRecord(config.m_typeStyleMaps[featureType],
                  [&](void*, const tagCustomStyle& baseRecord) { storeCopy(slot, baseRecord); });
    const auto [entry, isNew] = config.m_keyStyleMaps.try_emplace(textOf(key), &slot);
    ++config.m_usedLevelSlots;
    return entry->second;
}

}  // namespace

CVMapPtrToPtr* registerKey(CustomConfig& config, const StyleKeys& keys, const StyleScope& scope) {
    const StyleKeyWords key = keys.ofScope(scope.allLevels);
    CVMapPtrToPtr* slot = findSlot(config, key);
    const bool hasRoom = isFeatureType(scope.featureType) && config.m_usedLevelSlots < kStyleSlotCount;
    if (slot == nullptr && !hasRoom) return nullptr;
    if (slot == nullptr) slot = makeSlot(config, key, scope.featureType);
    // Last, so that a key in effect has a slot even when memory runs out in between.
    if (!config.m_styleEffectLevels.contains(key)) config.m_styleEffectLevels.emplace(textOf(key), scope.allLevels);
    return slot;
}

void CustomConfig::UpdateCustomStyleMap(char* keyOut, int featureType, int allLevels, int level) {
    const StyleKeys keys(featureType, level);
    registerKey(*this, keys, {featureType, allLevels, level});
    const std::string text = textOf(keys.ofScope(allLevels));
    std::copy_n(text.c_str(), text.size() + 1, keyOut);
}

}  // namespace _orvik_framework
