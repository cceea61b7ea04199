// Mapping and style files of any size.
#pragma once

#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_bench {

/// A mapping as a map's authors number their styles: a block of neighbouring ids for each feature type, gaps between
/// the blocks, and a few ids that a parent type shares with another type.
class Mapping {
public:
    /// @param idCount  ids in total, at least one for each feature type
    explicit Mapping(std::size_t idCount);

    /// The style ids of each feature type 0 to 71.
    const std::vector<std::vector<unsigned int>>& idsOfTypes() const { return m_idsOfTypes; }

    /// Every style id once, ascending.
    std::vector<unsigned int> ids() const;

    /// Ids of the gaps: no type holds them.
    std::vector<unsigned int> unmappedIds() const;

    /// The mapping file.
    std::string text() const;

private:
    std::size_t m_blockSize;
    std::vector<std::vector<unsigned int>> m_idsOfTypes;
};

/// A style file of `ruleCount` valid rules on all feature types: colours, weights, visibilities and font sizes, one
/// rule in three for one level.
std::string styleText(std::size_t ruleCount);

}  // namespace customstyle_bench
