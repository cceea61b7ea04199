// What a rule reaches, as the component answers.
#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "tools/minify/MinimalRule.h"

namespace customstyle_tool {

/// Every element path that has a meaning of its own, shortest first.
std::span<const char* const> elementPaths();

/// Fields of feature types, as numbers.
using Reach = std::set<int>;

/// Finds out what a rule reaches on its own, at all levels.
class ReachProbe {
public:
    /// Every field that the rule writes. Answers are remembered.
    const Reach& of(const std::string& featureType, const std::string& elementType, const MinimalStyler& styler);

private:
    std::map<std::string, Reach> m_known;
};

/// The feature types whose styles some rule for a type can change: its own, and that of its labels. Empty for an
/// unknown type. The component is asked once for each.
const std::vector<int>& typesReachedFrom(const std::string& featureType);

}  // namespace customstyle_tool
