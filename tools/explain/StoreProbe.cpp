#include "tools/explain/StoreProbe.h"

#include "customstyle/StoredRecords.h"
#include "tools/replay/LogRecording.h"
#include "tools/replay/StoreImage.h"
#include "tools/replay/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::findRecord;
using _orvik_framework::queriedKey;
using _orvik_framework::StoredRecords;
using _orvik_framework::tagCustomStyle;

void showEveryIcon(CustomConfig& config) {
    config.m_allIconsHidden = 0;
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        for (const auto& entry : StoredRecords(*slot)) entry.record->m_iconHidden = 0;
    }
}

void nameLandRecords(CustomConfig& config) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        if (parsedKey(key).featureType != _orvik_framework::EMAPCUSTOMSTYLE_LAND) continue;
        for (const auto& entry : StoredRecords(*slot)) {
            entry.record->m_fillColor = entry.styleId();
            entry.record->m_custom = 1;
        }
    }
}

void setIcon(const CustomConfig& config, int featureType, int level, unsigned int styleId, int hidden) {
    const std::string typeKey = std::to_string(featureType);
    for (const std::string& key : {typeKey, typeKey + ":" + std::to_string(level)}) {
        const auto slot = config.m_keyStyleMaps.find(key);
        if (slot == config.m_keyStyleMaps.end()) continue;
        tagCustomStyle* const record = findRecord(*slot->second, queriedKey(styleId));
        if (record != nullptr) record->m_iconHidden = hidden;
    }
}

}  // namespace

StoreProbe::StoreProbe(const LoadedStyle& style) {
    const LogSilence quiet;
    m_icons = storeOf(style.mapping(), style.source().file().text());
    m_land = storeOf(style.mapping(), style.source().file().text());
    showEveryIcon(*m_icons);
    nameLandRecords(*m_land);
}

std::vector<int> StoreProbe::iconTypes(unsigned int styleId, int level, const std::vector<int>& featureTypes) const {
    std::vector<int> asked;
    for (const int featureType : featureTypes) {
        setIcon(*m_icons, featureType, level, styleId, 1);
        if (m_icons->IsCustomizedIconVisible(styleId, level) != 0) asked.push_back(featureType);
        setIcon(*m_icons, featureType, level, styleId, 0);
    }
    return asked;
}

std::optional<int> StoreProbe::landStyleId(int level) const {
    std::uint64_t styleId = 0;
    if (m_land->IsCustomBackRegionEnable(styleId, level) == 0) return {};
    return static_cast<int>(styleId);
}

}  // namespace customstyle_tool
