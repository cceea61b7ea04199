// Removes from a part of a style what can be removed.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/minify/Cluster.h"
#include "tools/minify/Reach.h"

namespace customstyle_tool {

/// Makes a part of a cluster shorter step by step, each step tried before it is kept, until no step is left.
class Shrinking {
public:
    /// @param mostWork  how many rules may be applied in all; what is left undone only leaves the style larger
    Shrinking(Cluster& cluster, std::size_t part, ReachProbe& probe, std::size_t mostWork)
        : m_cluster(cluster), m_part(part), m_probe(probe), m_mostWork(mostWork) {}

    /// @return whether anything became shorter
    bool shrink();

    bool isComplete() const { return m_cluster.work() < m_mostWork; }

private:
    const PlacedRules& rules() const { return m_cluster.rulesOf(m_part); }
    bool isSame(const PlacedRules& candidate);
    bool keepIfSame(PlacedRules candidate);
    bool keepIfShorter(std::size_t index, MinimalRule rule);

    /// Puts a rule in the place of one rule, and drops another.
    bool replace(std::size_t kept, std::size_t dropped, MinimalRule rule);

    bool removeBlocks();
    bool removeBlocks(std::size_t size);
    bool removeStylers();
    bool removeLevels();
    bool mergeRules();
    bool merge(std::size_t earlier, std::size_t later);
    bool mergeAs(std::size_t earlier, std::size_t later, const MinimalRule& rule);
    bool shortenNames();
    bool replacePairs();
    bool replacePair(std::size_t kept, std::size_t dropped);

    /// Whether a rule with this type and path writes all that another writes.
    bool reaches(const std::string& featureType, const std::string& path, const MinimalRule& rule);

    Cluster& m_cluster;
    std::size_t m_part;
    ReachProbe& m_probe;
    std::size_t m_mostWork;
};

}  // namespace customstyle_tool
