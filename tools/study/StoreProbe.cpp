#include "tools/study/StoreProbe.h"

#include "tools/study/ComponentGuard.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

void showEveryIcon(CustomConfig& config) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        forEachSlotRecord(*slot, [](int, tagCustomStyle& record) { record.m_iconHidden = 0; });
    }
}

void nameLandRecords(CustomConfig& config) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        if (parsedKey(key).featureType != _orvik_framework::EMAPCUSTOMSTYLE_LAND) continue;
        forEachSlotRecord(*slot, [](int styleId, tagCustomStyle& record) {
            record.m_fillColor = static_cast<unsigned int>(styleId);
            record.m_custom = 1;
        });
    }
}

void setIcon(const CustomConfig& config, int featureType, int level, unsigned int styleId, int hidden) {
    const std::string typeKey = std::to_string(featureType);
    for (const std::string& key : {typeKey, typeKey + ":" + std::to_string(level)}) {
        const auto slot = config.m_keyStyleMaps.find(key);
        void* record = nullptr;
        if (slot == config.m_keyStyleMaps.end()) continue;
        if (!slot->second->Lookup(reinterpret_cast<void*>(std::uintptr_t{styleId}), record)) continue;
        static_cast<tagCustomStyle*>(record)->m_iconHidden = hidden;
    }
}

}  // namespace

StoreProbe::StoreProbe(const StyleStudy& style)
    : m_icons(storeOf(style.mapping().text(), style.source().text())),
      m_land(storeOf(style.mapping().text(), style.source().text())) {
    showEveryIcon(*m_icons);
    nameLandRecords(*m_land);
}

std::vector<int> StoreProbe::iconTypes(unsigned int styleId, int level, const std::vector<int>& featureTypes) const {
    const ComponentGuard guard;
    std::vector<int> asked;
    for (const int featureType : featureTypes) {
        setIcon(*m_icons, featureType, level, styleId, 1);
        if (m_icons->IsCustomizedIconVisible(styleId, level) != 0) asked.push_back(featureType);
        setIcon(*m_icons, featureType, level, styleId, 0);
    }
    return asked;
}

std::optional<int> StoreProbe::landStyleId(int level) const {
    const ComponentGuard guard;
    std::uint64_t styleId = 0;
    if (m_land->IsCustomBackRegionEnable(styleId, level) == 0) return {};
    return static_cast<int>(styleId);
}

}  // namespace customstyle_tool
