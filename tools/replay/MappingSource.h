// The mapping file as the tools use it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// The style ids of each feature type as the component holds them after loading a mapping file, in the order of its
/// records.
class StyleIdsByType {
public:
    /// @param config  a store that has loaded a mapping
    explicit StyleIdsByType(const _orvik_framework::CustomConfig& config);

    const std::vector<int>& of(int featureType) const { return m_ids[static_cast<std::size_t>(featureType)]; }

    /// Every style id, ascending, each once.
    std::set<int> all() const;

    /// The text of a mapping file with only these style ids, in the same order.
    std::string mappingWithOnly(const std::set<int>& styleIds) const;

    /// One style id for each set of feature types that share style ids, and the first of each type. Ids that stand
    /// under the same types get the same styles, because every rule treats the records of a type alike, so these speak
    /// for all.
    std::set<int> representatives() const;

private:
    std::vector<std::vector<int>> m_ids;
};

/// The text of a mapping with few style ids that speak for all of one that the component accepts.
std::string representativeMapping(std::string_view mapping);

}  // namespace customstyle_tool
