// Shrinking: takes away from a list of rules what can be taken away.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "tools/minify/MinimalRule.h"

namespace customstyle_tool {

/// A rule and where it stood, so that parts of a style that were shrunk apart can be put together again.
struct PlacedRule {
    std::size_t place;
    MinimalRule rule;
};
using PlacedRules = std::vector<PlacedRule>;

/// Decides whether a list of rules has the wanted effect.
using HasSameEffect = std::function<bool(const PlacedRules&)>;

/// How much work may be spent, counted in rules applied. What is left undone only leaves the style larger.
struct WorkLimit {
    std::size_t rulesLeft;
    bool isReached = false;
};

/// Makes a list of rules shorter step by step, each step tried before it is kept.
class Shrinking {
public:
    /// @param hasSameEffect  true for `rules`
    Shrinking(PlacedRules rules, HasSameEffect hasSameEffect, WorkLimit& limit)
        : m_rules(std::move(rules)), m_hasSameEffect(std::move(hasSameEffect)), m_limit(limit) {}

    /// Takes out rules and stylers until none is left without effect, puts rules for the same element together, and
    /// finds shorter element paths.
    PlacedRules shrink();

private:
    bool keepIfSame(PlacedRules candidate);
    void removeRules();
    bool removeBlocks(std::size_t size);
    bool removeStylers();
    bool mergeRules();
    bool mergeInto(std::size_t earlier, std::size_t later);
    void shortenElements();

    PlacedRules m_rules;
    HasSameEffect m_hasSameEffect;
    WorkLimit& m_limit;
};

}  // namespace customstyle_tool
