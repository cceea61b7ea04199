#include "customstyle/CustomConfig.h"
#include "customstyle/queries/EffectiveStyles.h"

namespace _orvik_framework {

// Inlined together with the lookups that it calls, so that a type's key and its hash stay in registers from one to the
// next.
[[gnu::flatten]] int CustomConfig::IsCustomizedIconVisible(unsigned int styleId, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return 0;
    if (m_allIconsHidden != 0) return 1;
    const tagCustomStyle* record = nullptr;
    const int featureType = firstFeatureType(level, [&](const StyleKeys& keys) {
        record = effectiveRecord(*this, keys, styleId);
        return record != nullptr;
    });
    if (featureType != -1) return record->m_iconHidden;
    for (const int parent : kParentFeatureTypes) {
        if (IsParentFeatureTypeIconCustomizedVisibility(parent, styleId, level) != 0) return 1;
    }
    return 0;
}

int CustomConfig::IsParentFeatureTypeIconCustomizedVisibility(int featureType, unsigned int styleId, int level) const {
    if (!isParentFeatureType(featureType)) return 0;
    const tagCustomStyle* record = effectiveRecord(*this, StyleKeys(featureType, level), styleId);
    return record != nullptr && record->m_iconHidden != 0;
}

}  // namespace _orvik_framework
