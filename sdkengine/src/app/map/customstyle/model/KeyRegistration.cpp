#include "customstyle/model/KeyRegistration.h"

#include <algorithm>
#include <string>
#include <utility>

#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/StoredRecords.h"
#include "customstyle/model/RecordStorage.h"
#include "customstyle/model/StyleKey.h"

namespace _orvik_framework {
namespace {

/// A key on its way into the store. Unless it gets its slot, everything that it added is removed again: a key in effect
/// that has no slot would hide the styles for all levels of its type.
class NewKey {
public:
    NewKey(CustomConfig& config, std::string text, int allLevels)
        : m_config(config),
          m_text(std::move(text)),
          m_effect(config.m_styleEffectLevels.try_emplace(m_text, allLevels)),
          m_slot(config.m_levelStyleMaps[config.m_usedLevelSlots]),
          m_isSlotFresh(m_slot.GetStartPosition() == nullptr) {}

    ~NewKey() {
        if (m_isRegistered) return;
        // A slot that was not empty belongs to another key as well: a host has set the counter back.
        if (m_isSlotFresh) releaseRecords(m_slot);
        if (m_effect.second) m_config.m_styleEffectLevels.erase(m_effect.first);
    }

    NewKey(const NewKey&) = delete;
    NewKey& operator=(const NewKey&) = delete;

    void copyRecords(const CVMapPtrToPtr& baseRecords) {
        for (const StoredRecord& base : StoredRecords(baseRecords)) {
            if (base.record != nullptr) storeCopy(m_slot, *base.record);
        }
    }

    /// The slot that the key has now; null where a host stored null under the key, which stays.
    CVMapPtrToPtr* takeSlot() {
        CVMapPtrToPtr* const ofKey = m_config.m_keyStyleMaps.try_emplace(m_text, &m_slot).first->second;
        ++m_config.m_usedLevelSlots;
        m_isRegistered = true;
        return ofKey;
    }

private:
    using Effects = decltype(CustomConfig::m_styleEffectLevels);

    CustomConfig& m_config;
    const std::string m_text;
    const std::pair<Effects::iterator, bool> m_effect;
    CVMapPtrToPtr& m_slot;
    const bool m_isSlotFresh;
    bool m_isRegistered = false;
};

void ensureEffect(CustomConfig& config, const StyleKeyWords& key, int allLevels) {
    if (!config.m_styleEffectLevels.contains(key)) config.m_styleEffectLevels.try_emplace(textOf(key), allLevels);
}

}  // namespace

CVMapPtrToPtr* registerKey(CustomConfig& config, const StyleKeys& keys, const StyleScope& scope) {
    const StyleKeyWords key = keys.ofScope(scope.allLevels);
    CVMapPtrToPtr* const slot = findSlot(config, key);
    if (slot != nullptr) {
        ensureEffect(config, key, scope.allLevels);
        return slot;
    }
    const bool hasRoom = isFeatureType(scope.featureType) && config.m_usedLevelSlots < kStyleSlotCount;
    if (!hasRoom) return nullptr;
    NewKey newKey(config, textOf(key), scope.allLevels);
    newKey.copyRecords(config.m_typeStyleMaps[scope.featureType]);
    return newKey.takeSlot();
}

void CustomConfig::UpdateCustomStyleMap(char* keyOut, int featureType, int allLevels, int level) {
    const StyleKeys keys(featureType, level);
    registerKey(*this, keys, {featureType, allLevels, level});
    const std::string text = textOf(keys.ofScope(allLevels));
    std::copy_n(text.c_str(), text.size() + 1, keyOut);
}

}  // namespace _orvik_framework
