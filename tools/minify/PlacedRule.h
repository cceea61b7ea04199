// Rules of a style that is being made small.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tools/minify/MinimalRule.h"

namespace customstyle_tool {

/// A rule, ready for the component. It never changes, so many versions of a style can share it.
struct ReadyRule {
    explicit ReadyRule(MinimalRule minimal) : rule(std::move(minimal)), text(textOf(rule)), tree(listWith(text)) {}

    MinimalRule rule;
    std::string text;
    Tree tree;
};

/// A rule and its original index, so that parts of a style that were shrunk separately can be put together again.
struct PlacedRule {
    std::size_t index;
    std::shared_ptr<const ReadyRule> ready;

    const MinimalRule& rule() const { return ready->rule; }
};
using PlacedRules = std::vector<PlacedRule>;

inline PlacedRule placed(std::size_t index, MinimalRule rule) {
    return {index, std::make_shared<const ReadyRule>(std::move(rule))};
}

}  // namespace customstyle_tool
