#include "tools/minify/PartStore.h"

#include <utility>

#include "customstyle/StoredRecords.h"
#include "tools/study/StoreKeys.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;
using _orvik_framework::StoredRecords;

PartStore::PartStore(const CustomConfig& map, std::set<int> featureTypes) : m_featureTypes(std::move(featureTypes)) {
    for (const int type : m_featureTypes) {
        for (const auto& [styleId, record] : StoredRecords(map.m_typeStyleMaps[type])) {
            m_config.m_typeStyleMaps[type][styleId] = record;
        }
    }
}

// The base records belong to the map.
PartStore::~PartStore() {
    for (const int type : m_featureTypes) m_config.m_typeStyleMaps[type].RemoveAll();
}

void PartStore::load(const PlacedRules& rules, std::optional<int> level) {
    forgetStyles(m_config);
    for (const PlacedRule& each : rules) {
        if (level && each.rule().level && each.rule().level != level) continue;
        m_config.ParseCustomConfig(each.ready->tree.get());
    }
}

}  // namespace customstyle_tool
