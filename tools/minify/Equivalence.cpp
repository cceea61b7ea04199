#include "tools/minify/Equivalence.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "tools/study/DefaultMapping.h"
#include "tools/study/StoreImage.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

std::string keyInEffect(const CustomConfig& config, int featureType, int level) {
    std::string levelKey = fmt::format("{}:{}", featureType, level);
    if (config.IsStyleEffectAtGivenLevel(levelKey.c_str()) != 0) return levelKey;
    return std::to_string(featureType);
}

// Null where the type has no style at the level.
const tagCustomStyle* recordInEffect(const CustomConfig& config, int featureType, int level) {
    const auto slot = config.m_keyStyleMaps.find(keyInEffect(config, featureType, level));
    if (slot == config.m_keyStyleMaps.end()) return nullptr;
    void* record = nullptr;
    const auto styleId = static_cast<std::uintptr_t>(defaultStyleId(featureType));
    slot->second->Lookup(reinterpret_cast<void*>(styleId), record);
    return static_cast<const tagCustomStyle*>(record);
}

// Of a record that is not customised, the renderer learns the icon flag only.
bool isSame(const tagCustomStyle* left, const tagCustomStyle* right) {
    if (left == nullptr || right == nullptr) return left == right;
    if (left->m_custom == 0 && right->m_custom == 0) return left->m_iconHidden == right->m_iconHidden;
    return sameFields(*left, *right);
}

bool hasSameStyles(const CustomConfig& left, const CustomConfig& right, int featureType) {
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const int level = levelOfClass(levelClass);
        if (!isSame(recordInEffect(left, featureType, level), recordInEffect(right, featureType, level))) return false;
    }
    return true;
}

}  // namespace

bool haveSameStyles(const CustomConfig& left, const CustomConfig& right, const std::vector<int>& featureTypes) {
    const bool sameGrid = left.m_gridColorSet == right.m_gridColorSet && left.m_gridColor == right.m_gridColor;
    return sameGrid && left.m_allIconsHidden == right.m_allIconsHidden &&
           std::ranges::all_of(featureTypes, [&](int type) { return hasSameStyles(left, right, type); });
}

}  // namespace customstyle_tool
