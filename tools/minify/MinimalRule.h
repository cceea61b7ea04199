// Rules in as few words as possible.
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

/// A rule without anything that the component ignores.
struct MinimalRule {
    std::string featureType;
    std::string elementType;
    std::optional<int> level;            ///< none for all levels
    std::vector<MinimalStyler> stylers;  ///< in the order in which the component acts on them
};

/// The stylers of two rules, in the component's order. Where both have one, the second rule's is used.
std::vector<MinimalStyler> joinedStylers(const std::vector<MinimalStyler>& earlier,
                                         const std::vector<MinimalStyler>& later);

/// The rules of a style file that name a feature type, an element and a styler, with their values in their shortest
/// spelling. The component itself is asked what it reads.
std::vector<MinimalRule> minimalRules(const StyleSource& style);

/// A rule as text.
std::string textOf(const MinimalRule& rule);

/// A style file's text without unnecessary blanks.
std::string textOf(const std::vector<MinimalRule>& rules);

}  // namespace customstyle_tool
