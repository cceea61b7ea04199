#include "bench/support/LiteralWalk.h"

#include <cstdint>
#include <cstdio>

namespace customstyle_bench {
namespace {

using namespace _orvik_framework;

constexpr int kParents[] = {EMAPCUSTOMSTYLE_MANMADE, EMAPCUSTOMSTYLE_DISTRICTLABEL, EMAPCUSTOMSTYLE_POILABEL};

bool isParent(int featureType) {
    return featureType == kParents[0] || featureType == kParents[1] || featureType == kParents[2];
}

}  // namespace

LiteralWalk::LiteralWalk(const CustomConfig& config)
    : m_effectLevels(config.m_styleEffectLevels.begin(), config.m_styleEffectLevels.end()),
      m_slots(config.m_keyStyleMaps.begin(), config.m_keyStyleMaps.end()),
      m_allIconsHidden(config.m_allIconsHidden) {}

bool LiteralWalk::isInEffect(const char* key, int allLevels) const {
    const auto found = m_effectLevels.find(std::string(key));
    return found != m_effectLevels.end() && found->second == allLevels;
}

const CVMapPtrToPtr* LiteralWalk::recordsInEffect(int featureType, int level) const {
    char levelKey[16] = {};
    char typeKey[16] = {};
    std::snprintf(levelKey, sizeof levelKey, "%d:%d", featureType, level);
    std::snprintf(typeKey, sizeof typeKey, "%d", featureType);
    const char* key = nullptr;
    if (isInEffect(levelKey, 0)) {
        key = levelKey;
    } else if (isInEffect(typeKey, 1)) {
        key = typeKey;
    } else {
        return nullptr;
    }
    const auto found = m_slots.find(std::string(key));
    return found == m_slots.end() ? nullptr : found->second;
}

const tagCustomStyle* LiteralWalk::record(int featureType, unsigned int styleId, int level) const {
    const CVMapPtrToPtr* records = recordsInEffect(featureType, level);
    if (records == nullptr) return nullptr;
    void* found = nullptr;
    records->Lookup(reinterpret_cast<void*>(static_cast<std::uintptr_t>(styleId)), found);
    return static_cast<const tagCustomStyle*>(found);
}

bool LiteralWalk::getStyleOf(int featureType, tagCustomStyle& style, unsigned int styleId, int level) const {
    const tagCustomStyle* found = record(featureType, styleId, level);
    if (found == nullptr || found->m_custom == 0) return false;
    style = *found;
    return true;
}

int LiteralWalk::getStyle(tagCustomStyle& style, unsigned int styleId, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return -1;
    for (int featureType = 0; featureType < EMAPCUSTOMSTYLE_ALL; ++featureType) {
        if (!isParent(featureType) && getStyleOf(featureType, style, styleId, level)) return featureType;
    }
    for (const int parent : kParents) {
        if (getStyleOf(parent, style, styleId, level)) return parent;
    }
    return -1;
}

int LiteralWalk::isIconHidden(unsigned int styleId, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return 0;
    if (m_allIconsHidden != 0) return 1;
    for (int featureType = 0; featureType < EMAPCUSTOMSTYLE_ALL; ++featureType) {
        if (isParent(featureType)) continue;
        if (const tagCustomStyle* found = record(featureType, styleId, level)) return found->m_iconHidden;
    }
    for (const int parent : kParents) {
        const tagCustomStyle* found = record(parent, styleId, level);
        if (found != nullptr && found->m_iconHidden != 0) return 1;
    }
    return 0;
}

}  // namespace customstyle_bench
