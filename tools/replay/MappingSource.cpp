#include "tools/replay/MappingSource.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "customstyle/StoredRecords.h"
#include "tools/replay/SingleRules.h"
#include "tools/support/FeatureTypes.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;
using _orvik_framework::StoredRecords;

StyleIdsByType::StyleIdsByType(const CustomConfig& config) : m_ids(_orvik_framework::kFeatureTypeCount) {
    for (std::size_t type = 0; type < m_ids.size(); ++type) {
        for (const auto& entry : StoredRecords(config.m_typeStyleMaps[type])) m_ids[type].push_back(entry.id());
    }
}

std::set<int> StyleIdsByType::all() const {
    std::set<int> ids;
    for (const std::vector<int>& ofType : m_ids) ids.insert(ofType.begin(), ofType.end());
    return ids;
}

std::string StyleIdsByType::mappingWithOnly(const std::set<int>& styleIds) const {
    return mappingText([&](int featureType) {
        std::vector<int> kept;
        std::ranges::copy_if(of(featureType), std::back_inserter(kept), [&](int id) { return styleIds.contains(id); });
        // The component drops a 0 at the head of a list; behind another id it stays. No renderer asks for the lowest
        // one.
        if (!kept.empty() && kept.front() == 0) kept.insert(kept.begin(), std::numeric_limits<int>::min());
        return kept;
    });
}

std::set<int> StyleIdsByType::representatives() const {
    std::map<int, std::vector<std::size_t>> typesOf;
    for (std::size_t type = 0; type < m_ids.size(); ++type) {
        for (const int id : m_ids[type]) typesOf[id].push_back(type);
    }
    std::set<int> chosen;
    std::set<std::vector<std::size_t>> seen;
    for (const std::vector<int>& ofType : m_ids) {
        if (!ofType.empty()) chosen.insert(ofType.front());
        for (const int id : ofType) {
            if (seen.insert(typesOf[id]).second) chosen.insert(id);
        }
    }
    return chosen;
}

std::string representativeMapping(std::string_view mapping) {
    CustomConfig config;
    config.ParseMappingConfig(componentTree(mapping).get());
    const StyleIdsByType ids(config);
    return ids.mappingWithOnly(ids.representatives());
}

}  // namespace customstyle_tool
