// Rules as few words as possible say them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/study/SingleRules.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// A styler that the component acts on.
struct MinimalStyler {
    std::string name;
    std::string value;

    bool operator==(const MinimalStyler&) const = default;
};

/// A rule without anything that the component passes over.
struct MinimalRule {
    std::string featureType;
    std::string elementType;
    std::optional<int> level;            ///< none for all levels
    std::vector<MinimalStyler> stylers;  ///< in the order in which the component acts on them
};

/// Stylers of two rules: of those that both have, the second rule's. In the component's order.
std::vector<MinimalStyler> joinedStylers(const std::vector<MinimalStyler>& earlier,
                                         const std::vector<MinimalStyler>& later);

/// The rules of a style file that name a feature type, an element and a styler, with their values in their shortest
/// spelling. The component is asked for what it reads.
std::vector<MinimalRule> minimalRules(const StyleSource& style);

/// A rule as text, and as a list with one rule for the component.
std::string textOf(const MinimalRule& rule);
Tree treeOf(const MinimalRule& rule);

/// A style file's text without a blank too many.
std::string textOf(const std::vector<MinimalRule>& rules);

}  // namespace customstyle_tool
