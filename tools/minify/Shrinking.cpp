#include "tools/minify/Shrinking.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>

namespace customstyle_tool {
namespace {

using Difference = PlacedRules::difference_type;

bool isSameElement(const MinimalRule& left, const MinimalRule& right) {
    return left.featureType == right.featureType && left.elementType == right.elementType && left.level == right.level;
}

// Stylers of both; where both have one, the later rule's value.
std::vector<MinimalStyler> joined(std::vector<MinimalStyler> earlier, const std::vector<MinimalStyler>& later) {
    for (const MinimalStyler& styler : later) {
        const auto known = std::ranges::find(earlier, styler.name, &MinimalStyler::name);
        if (known == earlier.end()) {
            earlier.push_back(styler);
        } else {
            known->value = styler.value;
        }
    }
    return earlier;
}

// Paths that may say the same, shortest first.
std::vector<std::string> shorterPaths(const std::string& path) {
    const std::string word = path.substr(path.rfind('.') + 1);
    std::vector<std::string> paths{"all", word, "all." + word};
    std::erase_if(paths, [&](const std::string& each) { return each.size() >= path.size(); });
    std::ranges::stable_sort(paths, {}, &std::string::size);
    return paths;
}

}  // namespace

PlacedRules Shrinking::shrink() {
    removeRules();
    bool isChanged = true;
    while (isChanged) {
        isChanged = removeBlocks(1);
        isChanged |= removeStylers();
        isChanged |= mergeRules();
    }
    shortenElements();
    return std::move(m_rules);
}

bool Shrinking::keepIfSame(PlacedRules candidate) {
    if (m_limit.rulesLeft < candidate.size()) m_limit.isReached = true;
    if (m_limit.isReached) return false;
    m_limit.rulesLeft -= candidate.size();
    if (!m_hasSameEffect(candidate)) return false;
    m_rules = std::move(candidate);
    return true;
}

// Blocks first, so that a long style with little effect is cut down fast.
void Shrinking::removeRules() {
    for (std::size_t size = m_rules.size(); size > 1; size /= 2) removeBlocks(size);
}

bool Shrinking::removeBlocks(std::size_t size) {
    const std::size_t before = m_rules.size();
    for (std::size_t begin = 0; begin < m_rules.size() && !m_limit.isReached;) {
        const std::size_t end = std::min(begin + size, m_rules.size());
        PlacedRules candidate = m_rules;
        candidate.erase(candidate.begin() + static_cast<Difference>(begin),
                        candidate.begin() + static_cast<Difference>(end));
        if (!keepIfSame(std::move(candidate))) begin = end;
    }
    return m_rules.size() < before;
}

bool Shrinking::removeStylers() {
    bool isChanged = false;
    for (std::size_t i = 0; i < m_rules.size() && !m_limit.isReached; ++i) {
        for (std::size_t styler = 0; styler < m_rules[i].rule.stylers.size() && m_rules[i].rule.stylers.size() > 1;) {
            PlacedRules candidate = m_rules;
            auto& stylers = candidate[i].rule.stylers;
            stylers.erase(stylers.begin() + static_cast<Difference>(styler));
            keepIfSame(std::move(candidate)) ? void(isChanged = true) : void(++styler);
        }
    }
    return isChanged;
}

bool Shrinking::mergeRules() {
    bool isChanged = false;
    for (std::size_t later = 1; later < m_rules.size() && !m_limit.isReached;) {
        bool isMerged = false;
        for (std::size_t earlier = later; earlier-- > 0 && !isMerged;) {
            isMerged = isSameElement(m_rules[earlier].rule, m_rules[later].rule) && mergeInto(earlier, later);
        }
        isMerged ? void(isChanged = true) : void(++later);
    }
    return isChanged;
}

// In the place of the one or of the other.
bool Shrinking::mergeInto(std::size_t earlier, std::size_t later) {
    const auto stylers = joined(m_rules[earlier].rule.stylers, m_rules[later].rule.stylers);
    for (const auto& [kept, dropped] : {std::pair(earlier, later), std::pair(later, earlier)}) {
        PlacedRules candidate = m_rules;
        candidate[kept].rule.stylers = stylers;
        candidate.erase(candidate.begin() + static_cast<Difference>(dropped));
        if (keepIfSame(std::move(candidate))) return true;
    }
    return false;
}

void Shrinking::shortenElements() {
    for (std::size_t i = 0; i < m_rules.size() && !m_limit.isReached; ++i) {
        for (const std::string& path : shorterPaths(m_rules[i].rule.elementType)) {
            PlacedRules candidate = m_rules;
            candidate[i].rule.elementType = path;
            if (keepIfSame(std::move(candidate))) break;
        }
    }
}

}  // namespace customstyle_tool
