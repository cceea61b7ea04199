#include "tools/minify/Shrinking.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kMostToPair = 12;

PlacedRules without(PlacedRules rules, std::size_t begin, std::size_t end) {
    const auto at = [&](std::size_t index) { return rules.begin() + static_cast<PlacedRules::difference_type>(index); };
    rules.erase(at(begin), at(end));
    return rules;
}

PlacedRules with(PlacedRules rules, std::size_t index, MinimalRule rule) {
    rules[index] = placed(rules[index].index, std::move(rule));
    return rules;
}

bool haveOtherValues(const MinimalRule& left, const MinimalRule& right) {
    return std::ranges::any_of(left.stylers, [&](const MinimalStyler& styler) {
        const auto other = std::ranges::find(right.stylers, styler.name, &MinimalStyler::name);
        return other != right.stylers.end() && other->value != styler.value;
    });
}

bool holdsStylersOf(const MinimalRule& rule, const MinimalRule& other) {
    return std::ranges::all_of(other.stylers, [&](const MinimalStyler& styler) {
        return std::ranges::find(rule.stylers, styler) != rule.stylers.end();
    });
}

std::vector<std::string> pathsFor(const MinimalRule& left, const MinimalRule& right) {
    std::vector<std::string> paths(elementPaths().begin(), elementPaths().end());
    for (const MinimalRule* rule : {&left, &right}) {
        if (std::ranges::find(paths, rule->elementType) == paths.end()) paths.push_back(rule->elementType);
    }
    return paths;
}

}  // namespace

bool Shrinking::shrink() {
    bool isShorter = false;
    for (bool isChanged = true; isChanged && isComplete();) {
        isChanged = removeBlocks();
        isChanged |= removeStylers();
        isChanged |= removeLevels();
        isChanged |= shortenNames();
        isChanged |= mergeRules();
        if (!isChanged) isChanged = replacePairs();
        isShorter |= isChanged;
    }
    return isShorter;
}

bool Shrinking::isSame(const PlacedRules& candidate) {
    return isComplete() && m_cluster.isSame(m_part, candidate);
}

bool Shrinking::keepIfSame(PlacedRules candidate) {
    if (!isSame(candidate)) return false;
    m_cluster.accept(m_part, std::move(candidate));
    return true;
}

bool Shrinking::keepIfShorter(std::size_t index, MinimalRule rule) {
    PlacedRules candidate = with(rules(), index, std::move(rule));
    if (candidate[index].ready->text.size() >= rules()[index].ready->text.size()) return false;
    return keepIfSame(std::move(candidate));
}

// Large blocks first, so that a long style with little effect is cut down fast.
bool Shrinking::removeBlocks() {
    bool isChanged = false;
    for (std::size_t size = rules().size(); size > 0; size /= 2) isChanged |= removeBlocks(size);
    return isChanged;
}

bool Shrinking::removeBlocks(std::size_t size) {
    bool isChanged = false;
    for (std::size_t begin = 0; begin < rules().size() && isComplete();) {
        const std::size_t end = std::min(begin + size, rules().size());
        keepIfSame(without(rules(), begin, end)) ? void(isChanged = true) : void(begin = end);
    }
    return isChanged;
}

bool Shrinking::removeStylers() {
    bool isChanged = false;
    for (std::size_t i = 0; i < rules().size(); ++i) {
        for (std::size_t styler = 0;
             rules()[i].rule().stylers.size() > 1 && styler < rules()[i].rule().stylers.size();) {
            MinimalRule rule = rules()[i].rule();
            rule.stylers.erase(rule.stylers.begin() + static_cast<std::ptrdiff_t>(styler));
            keepIfShorter(i, std::move(rule)) ? void(isChanged = true) : void(++styler);
        }
    }
    return isChanged;
}

bool Shrinking::removeLevels() {
    bool isChanged = false;
    for (std::size_t i = 0; i < rules().size(); ++i) {
        if (!rules()[i].rule().level) continue;
        MinimalRule rule = rules()[i].rule();
        rule.level.reset();
        isChanged |= keepIfShorter(i, std::move(rule));
    }
    return isChanged;
}

bool Shrinking::shortenNames() {
    bool isChanged = false;
    for (std::size_t i = 0; i < rules().size(); ++i) {
        for (const char* path : elementPaths()) {
            MinimalRule rule = rules()[i].rule();
            rule.elementType = path;
            isChanged |= keepIfShorter(i, std::move(rule));
        }
        for (const int type : m_cluster.featureTypesOf(m_part)) {
            MinimalRule rule = rules()[i].rule();
            rule.featureType = catalogue().GetFeatureTypeName(type);
            isChanged |= keepIfShorter(i, std::move(rule));
        }
    }
    return isChanged;
}

bool Shrinking::mergeRules() {
    bool isChanged = false;
    for (std::size_t later = 1; later < rules().size() && isComplete();) {
        bool isMerged = false;
        for (std::size_t earlier = later; earlier-- > 0 && !isMerged;) isMerged = merge(earlier, later);
        isMerged ? void(isChanged = true) : void(++later);
    }
    return isChanged;
}

bool Shrinking::merge(std::size_t earlier, std::size_t later) {
    const MinimalRule& left = rules()[earlier].rule();
    const MinimalRule& right = rules()[later].rule();
    if (left.level != right.level) return false;
    MinimalRule joined{left.featureType, left.elementType, left.level, joinedStylers(left.stylers, right.stylers)};
    if (left.featureType == right.featureType && left.elementType == right.elementType) {
        return mergeAs(earlier, later, joined);
    }
    if (haveOtherValues(left, right)) return false;
    for (const std::string& path : pathsFor(left, right)) {
        for (const std::string& type : {left.featureType, right.featureType}) {
            if (!reaches(type, path, left) || !reaches(type, path, right)) continue;
            joined.featureType = type;
            joined.elementType = path;
            if (mergeAs(earlier, later, joined)) return true;
            if (left.featureType == right.featureType) break;
        }
    }
    return false;
}

// Tries the merged rule in the place of the earlier rule, then of the later one.
bool Shrinking::mergeAs(std::size_t earlier, std::size_t later, const MinimalRule& rule) {
    return replace(earlier, later, rule) || replace(later, earlier, rule);
}

bool Shrinking::replace(std::size_t kept, std::size_t dropped, MinimalRule rule) {
    const std::size_t sizeBefore = rules()[kept].ready->text.size() + rules()[dropped].ready->text.size();
    PlacedRules candidate = with(rules(), kept, std::move(rule));
    if (candidate[kept].ready->text.size() >= sizeBefore) return false;
    return keepIfSame(without(std::move(candidate), dropped, dropped + 1));
}

// Tries to replace any two rules with one. The number of pairs grows with the square of the number of rules.
bool Shrinking::replacePairs() {
    if (rules().size() > kMostToPair) return false;
    for (std::size_t kept = 0; kept < rules().size(); ++kept) {
        for (std::size_t dropped = 0; dropped < rules().size(); ++dropped) {
            if (kept != dropped && replacePair(kept, dropped)) return true;
        }
    }
    return false;
}

bool Shrinking::replacePair(std::size_t kept, std::size_t dropped) {
    const MinimalRule& rule = rules()[kept].rule();
    const MinimalRule& other = rules()[dropped].rule();
    std::vector<std::vector<MinimalStyler>> stylers{rule.stylers};
    if (!holdsStylersOf(rule, other)) stylers.push_back(joinedStylers(rule.stylers, other.stylers));
    std::set<std::optional<int>> levels{{}, rule.level, other.level};
    for (const std::string& path : pathsFor(rule, other)) {
        for (const std::optional<int>& level : levels) {
            for (const auto& each : stylers) {
                if (replace(kept, dropped, {rule.featureType, path, level, each})) return true;
            }
        }
    }
    return false;
}

bool Shrinking::reaches(const std::string& featureType, const std::string& path, const MinimalRule& rule) {
    return std::ranges::all_of(rule.stylers, [&](const MinimalStyler& styler) {
        return std::ranges::includes(m_probe.of(featureType, path, styler),
                                     m_probe.of(rule.featureType, rule.elementType, styler));
    });
}

}  // namespace customstyle_tool
