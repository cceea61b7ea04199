#include "tools/minify/Cluster.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "tools/study/StoreDifference.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

void showKeys(CustomConfig& view, const CustomConfig& shown, std::optional<int> level) {
    for (const auto& [key, slot] : shown.m_keyStyleMaps) {
        if (level && parsedKey(key).level != level) continue;
        view.m_keyStyleMaps[key] = slot;
        view.m_styleEffectLevels[key] = shown.m_styleEffectLevels.at(key);
    }
}

void hideKeys(CustomConfig& view, const CustomConfig& hidden, std::optional<int> level) {
    for (const auto& [key, slot] : hidden.m_keyStyleMaps) {
        if (level && parsedKey(key).level != level) continue;
        view.m_keyStyleMaps.erase(key);
        view.m_styleEffectLevels.erase(key);
    }
}

void addFlags(CustomConfig& view, const CustomConfig& part) {
    if (part.m_gridColorSet != 0) {
        view.m_gridColorSet = part.m_gridColorSet;
        view.m_gridColor = part.m_gridColor;
    }
    view.m_allIconsHidden |= part.m_allIconsHidden;
}

std::vector<const ReadyRule*> sortedRules(const PlacedRules& rules) {
    std::vector<const ReadyRule*> sorted;
    for (const PlacedRule& each : rules) sorted.push_back(each.ready.get());
    std::ranges::sort(sorted);
    return sorted;
}

// The one level of all rules that are in only one of the lists. A rule for one level affects no other level, so both
// lists give the same styles at all other levels.
std::optional<int> changedLevel(const PlacedRules& left, const PlacedRules& right) {
    std::vector<const ReadyRule*> changed;
    std::ranges::set_symmetric_difference(sortedRules(left), sortedRules(right), std::back_inserter(changed));
    if (changed.empty()) return {};
    const std::optional<int> level = changed.front()->rule.level;
    const auto isSame = [&](const ReadyRule* each) { return each->rule.level == level; };
    return std::ranges::all_of(changed, isSame) ? level : std::nullopt;
}

}  // namespace

Cluster::Cluster(const CustomConfig& map, const std::vector<std::pair<std::set<int>, PlacedRules>>& parts,
                 bool everyIconHidden)
    : m_everyIconHidden(everyIconHidden ? 1 : 0) {
    m_wanted.m_allIconsHidden = m_everyIconHidden;
    for (const auto& [featureTypes, rules] : parts) {
        Part& part = m_parts.emplace_back();
        part.rules = rules;
        for (auto* store : {&part.original, &part.store, &part.scratch}) {
            *store = std::make_unique<PartStore>(map, featureTypes);
        }
        load(*part.original, rules, {});
        load(*part.store, rules, {});
        showKeys(m_wanted, part.original->config(), {});
        addFlags(m_wanted, part.original->config());
        showKeys(m_view, part.store->config(), {});
    }
}

bool Cluster::isSame(std::size_t part, const PlacedRules& candidate) {
    Part& each = m_parts[part];
    const std::optional<int> level = changedLevel(each.rules, candidate);
    load(*each.scratch, candidate, level);
    const CustomConfig& now = each.store->config();
    const CustomConfig& tried = each.scratch->config();
    const LevelsByStyleId questions = openQuestions(now, tried, level);
    show(tried, now, level);
    showFlags(part, tried);
    const bool isSame = isAnsweredAlike(m_wanted, m_view, questions);
    show(now, tried, level);
    return isSame;
}

void Cluster::accept(std::size_t part, PlacedRules rules) {
    Part& each = m_parts[part];
    load(*each.scratch, rules, {});
    show(each.scratch->config(), each.store->config(), {});
    std::swap(each.scratch, each.store);
    each.rules = std::move(rules);
}

void Cluster::show(const CustomConfig& shown, const CustomConfig& hidden, std::optional<int> level) {
    hideKeys(m_view, hidden, level);
    showKeys(m_view, shown, level);
}

void Cluster::showFlags(std::size_t part, const CustomConfig& shown) {
    m_view.m_gridColorSet = 0;
    m_view.m_allIconsHidden = m_everyIconHidden;
    for (std::size_t i = 0; i < m_parts.size(); ++i) addFlags(m_view, i == part ? shown : m_parts[i].store->config());
}

void Cluster::load(PartStore& store, const PlacedRules& rules, std::optional<int> level) {
    store.load(rules, level);
    m_work += rules.size();
}

}  // namespace customstyle_tool
