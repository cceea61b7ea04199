#include <string_view>

#include "customstyle/CustomConfig.h"
#include "customstyle/queries/EffectiveStyles.h"

namespace _orvik_framework {

int CustomConfig::IsStyleEffectAtGivenLevel(const char* key) const {
    return key != nullptr && isInEffect(*this, std::string_view(key), 0);
}

int CustomConfig::IsStyleEffectAtAllLevel(const char* key) const {
    return key != nullptr && isInEffect(*this, std::string_view(key), 1);
}

// Inlined together with the lookups that it calls, so that a type's key and its hash stay in registers from one to the
// next.
[[gnu::flatten]] int CustomConfig::GetStyleFromConfig(tagCustomStyle& style, unsigned int styleId, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return -1;
    const int featureType = firstFeatureType(level, [&](const StyleKeys& keys) {
        const tagCustomStyle* record = customizedRecord(*this, keys, styleId);
        if (record != nullptr) style = *record;
        return record != nullptr;
    });
    return featureType != -1 ? featureType : GetParentFeatureTypeCustomStyle(style, level, styleId);
}

int CustomConfig::GetParentFeatureTypeCustomStyle(tagCustomStyle& style, int level, unsigned int styleId) const {
    for (const int parent : kParentFeatureTypes) {
        if (GetParentFeatureTypeCustomStyle(style, level, parent, styleId) != -1) return parent;
    }
    return -1;
}

int CustomConfig::GetParentFeatureTypeCustomStyle(tagCustomStyle& style, int level, int featureType,
                                                  unsigned int styleId) const {
    const tagCustomStyle* record = customizedRecord(*this, StyleKeys(featureType, level), styleId);
    if (record == nullptr) return -1;
    style = *record;
    return featureType;
}

}  // namespace _orvik_framework
