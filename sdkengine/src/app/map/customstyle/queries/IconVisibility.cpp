#include "CustomConfig.h"
#include "queries/EffectiveStyles.h"

namespace _orvik_framework {

int CustomConfig::IsCustomizedIconVisible(unsigned int styleId, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return 0;
    if (m_allIconsHidden != 0) return 1;
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType) {
        if (IsParentFeatureType(featureType)) continue;
        const tagCustomStyle* record = effectiveRecord(*this, featureType, styleId, level);
        if (record != nullptr) return record->m_iconHidden;
    }
    for (const int parent : kParentFeatureTypes) {
        if (IsParentFeatureTypeIconCustomizedVisibility(parent, styleId, level) != 0) return 1;
    }
    return 0;
}

int CustomConfig::IsParentFeatureTypeIconCustomizedVisibility(int featureType, unsigned int styleId, int level) const {
    if (!IsParentFeatureType(featureType)) return 0;
    const tagCustomStyle* record = effectiveRecord(*this, featureType, styleId, level);
    return record != nullptr && record->m_iconHidden != 0;
}

}  // namespace _orvik_framework
