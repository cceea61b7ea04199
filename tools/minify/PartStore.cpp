#include "tools/minify/PartStore.h"

#include <utility>

#include "customstyle/StoredRecords.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;
using _orvik_framework::StoredRecords;

PartStore::PartStore(const CustomConfig& map, std::set<int> featureTypes)
    : m_map(map), m_featureTypes(std::move(featureTypes)) {}

PartStore::~PartStore() {
    giveBack();
}

void PartStore::load(const PlacedRules& rules, std::optional<int> level) {
    clear();
    borrow();
    for (const PlacedRule& each : rules) {
        if (level && each.rule().level && each.rule().level != level) continue;
        m_config.ParseCustomConfig(each.ready->tree.get());
    }
}

void PartStore::borrow() {
    for (const int type : m_featureTypes) {
        for (const auto& [styleId, record] : StoredRecords(m_map.m_typeStyleMaps[type])) {
            m_config.m_typeStyleMaps[type][styleId] = record;
        }
    }
}

void PartStore::giveBack() {
    for (const int type : m_featureTypes) m_config.m_typeStyleMaps[type].RemoveAll();
}

// A new store takes longer: most of it is tables of names.
void PartStore::clear() {
    giveBack();
    m_config.ReleaseCustomRes();
    m_config.m_styleEffectLevels.clear();
    m_config.m_usedLevelSlots = 0;
    m_config.m_gridColorSet = 0;
    m_config.m_gridColor = 0;
    m_config.m_allIconsHidden = 0;
}

}  // namespace customstyle_tool
