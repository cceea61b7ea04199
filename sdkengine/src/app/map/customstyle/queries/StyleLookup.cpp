#include "CustomConfig.h"
#include "queries/EffectiveStyles.h"

namespace _orvik_framework {

int CustomConfig::IsStyleEffectAtGivenLevel(const char* key) const {
    return isInEffect(*this, key, 0);
}

int CustomConfig::IsStyleEffectAtAllLevel(const char* key) const {
    return isInEffect(*this, key, 1);
}

int CustomConfig::GetStyleFromConfig(tagCustomStyle& style, unsigned int styleId, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return -1;
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType) {
        if (IsParentFeatureType(featureType)) continue;
        if (GetParentFeatureTypeCustomStyle(style, level, featureType, styleId) != -1) return featureType;
    }
    return GetParentFeatureTypeCustomStyle(style, level, styleId);
}

int CustomConfig::GetParentFeatureTypeCustomStyle(tagCustomStyle& style, int level, unsigned int styleId) const {
    for (const int parent : kParentFeatureTypes) {
        if (GetParentFeatureTypeCustomStyle(style, level, parent, styleId) != -1) return parent;
    }
    return -1;
}

int CustomConfig::GetParentFeatureTypeCustomStyle(tagCustomStyle& style, int level, int featureType,
                                                  unsigned int styleId) const {
    const tagCustomStyle* record = effectiveRecord(*this, featureType, styleId, level);
    if (record == nullptr || record->m_custom == 0) return -1;
    style = *record;
    return featureType;
}

}  // namespace _orvik_framework
