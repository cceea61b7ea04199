#include <algorithm>
#include <string>

#include "CustomConfig.h"
#include "model/FeatureTypeTable.h"
#include "model/RecordStorage.h"
#include "model/StyleKey.h"

namespace _orvik_framework {

void CustomConfig::UpdateCustomStyleMap(char* keyOut, int featureType, int allLevels, int level) {
    const StyleKeyWords key = StyleKeys(featureType, level).ofScope(allLevels);
    const std::string text = textOf(key);
    std::copy_n(text.c_str(), text.size() + 1, keyOut);

    const bool hasSlot = findSlot(*this, key) != nullptr;
    const bool canHaveSlot = isFeatureType(featureType) && m_usedLevelSlots < kStyleSlotCount;
    if (!hasSlot && !canHaveSlot) return;

    if (!m_styleEffectLevels.contains(key)) m_styleEffectLevels.emplace(text, allLevels);
    if (hasSlot) return;

    CVMapPtrToPtr& slot = m_levelStyleMaps[m_usedLevelSlots];
    forEachRecord(m_typeStyleMaps[featureType],
                  [&](void*, const tagCustomStyle& baseRecord) { storeCopy(slot, baseRecord); });
    m_keyStyleMaps.try_emplace(text, &slot);
    ++m_usedLevelSlots;
}

}  // namespace _orvik_framework
