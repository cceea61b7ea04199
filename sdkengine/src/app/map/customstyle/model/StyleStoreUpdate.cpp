#include <algorithm>
#include <string>

#include "CustomConfig.h"
#include "model/FeatureTypeTable.h"
#include "model/RecordStorage.h"
#include "model/StyleKey.h"

namespace _orvik_framework {

void CustomConfig::UpdateCustomStyleMap(char* keyOut, int featureType, int allLevels, int level) {
    const std::string key = textOf(StyleKeys(featureType, level).ofScope(allLevels));
    std::copy_n(key.c_str(), key.size() + 1, keyOut);

    const bool hasSlot = findSlot(*this, StyleKeyWords(key)) != nullptr;
    const bool canHaveSlot = isFeatureType(featureType) && m_usedLevelSlots < kStyleSlotCount;
    if (!hasSlot && !canHaveSlot) return;

    m_styleEffectLevels.try_emplace(key, allLevels);
    if (hasSlot) return;

    CVMapPtrToPtr& slot = m_levelStyleMaps[m_usedLevelSlots];
    forEachRecord(m_typeStyleMaps[featureType],
                  [&](void*, const tagCustomStyle& baseRecord) { storeCopy(slot, baseRecord); });
    m_keyStyleMaps.try_emplace(key, &slot);
    ++m_usedLevelSlots;
}

}  // namespace _orvik_framework
