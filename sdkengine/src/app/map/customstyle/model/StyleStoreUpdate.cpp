#include <algorithm>
#include <new>
#include <string>

#include "customstyle/CustomConfig.h"
#include "customstyle/model/FeatureTypeTable.h"
#include "customstyle/model/KeyRegistration.h"
#include "customstyle/model/RecordStorage.h"
#include "customstyle/model/StyleKey.h"

namespace _orvik_framework {

namespace {

/// Gives a key its slot and its effect, or neither of them where memory runs out.
CVMapPtrToPtr* makeSlot(CustomConfig& config, const std::string& key, const StyleScope& scope) {
    CVMapPtrToPtr& slot = config.m_levelStyleMaps[config.m_usedLevelSlots];
    releaseRecords(slot);  // of another key, for which memory ran out half-way
    forEachRecord(config.m_typeStyleMaps[scope.featureType],
                  [&](void*, const tagCustomStyle& baseRecord) { storeCopy(slot, baseRecord); });
    const auto effect = config.m_styleEffectLevels.try_emplace(key, scope.allLevels);
    try {
        CVMapPtrToPtr* const ofKey = config.m_keyStyleMaps.try_emplace(key, &slot).first->second;
        ++config.m_usedLevelSlots;
        return ofKey;
    } catch (const std::bad_alloc&) {
        // A key in effect that has no slot would hide the styles for all levels of its type.
        if (effect.second) config.m_styleEffectLevels.erase(effect.first);
        throw;
    }
}

}  // namespace

CVMapPtrToPtr* registerKey(CustomConfig& config, const StyleKeys& keys, const StyleScope& scope) {
    const StyleKeyWords key = keys.ofScope(scope.allLevels);
    CVMapPtrToPtr* const slot = findSlot(config, key);
    if (slot != nullptr) return slot;
    const bool hasRoom = isFeatureType(scope.featureType) && config.m_usedLevelSlots < kStyleSlotCount;
    return hasRoom ? makeSlot(config, textOf(key), scope) : nullptr;
}

void CustomConfig::UpdateCustomStyleMap(char* keyOut, int featureType, int allLevels, int level) {
    const StyleKeys keys(featureType, level);
    registerKey(*this, keys, {featureType, allLevels, level});
    const std::string text = textOf(keys.ofScope(allLevels));
    std::copy_n(text.c_str(), text.size() + 1, keyOut);
}

}  // namespace _orvik_framework
