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

using EffectLevels = ShortTextTable<int>;

/// Takes the effect of a key back unless the key gets its slot, too: a key in effect that has no slot would hide the
/// styles for all levels of its type.
class EffectRollback {
public:
    EffectRollback(EffectLevels& effects, std::pair<EffectLevels::iterator, bool> inserted)
        : m_effects(effects), m_inserted(inserted) {}
    ~EffectRollback() {
        if (m_inserted.second) m_effects.erase(m_inserted.first);
    }
    EffectRollback(const EffectRollback&) = delete;
    EffectRollback& operator=(const EffectRollback&) = delete;

    void dismiss() { m_inserted.second = false; }

private:
    EffectLevels& m_effects;
    std::pair<EffectLevels::iterator, bool> m_inserted;
};

/// Gives a key its slot and its effect, or neither of them where memory runs out.
CVMapPtrToPtr* makeSlot(CustomConfig& config, const std::string& key, const StyleScope& scope) {
    CVMapPtrToPtr& slot = config.m_levelStyleMaps[config.m_usedLevelSlots];
    releaseRecords(slot);  // of another key, for which memory ran out half-way
    for (const StoredRecord& base : StoredRecords(config.m_typeStyleMaps[scope.featureType])) {
        if (base.record != nullptr) storeCopy(slot, *base.record);
    }
    EffectRollback rollback(config.m_styleEffectLevels, config.m_styleEffectLevels.try_emplace(key, scope.allLevels));
    CVMapPtrToPtr* const ofKey = config.m_keyStyleMaps.try_emplace(key, &slot).first->second;
    rollback.dismiss();
    ++config.m_usedLevelSlots;
    return ofKey;
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
