#include "tools/minify/ShrunkStyle.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <set>
#include <utility>

#include "tools/minify/Cluster.h"
#include "tools/minify/Reach.h"
#include "tools/minify/Shrinking.h"
#include "tools/study/Groups.h"
#include "tools/study/Mapping.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

constexpr std::size_t kMostWork = 30'000'000;  // rules applied in a cluster

struct PartRules {
    std::set<int> featureTypes;
    PlacedRules rules;
};

using ClusterRules = std::vector<std::pair<std::set<int>, PlacedRules>>;

class Split {
public:
    Split(const PlacedRules& rules, const Mapping& mapping) : m_rules(rules) {
        for (const PlacedRule& each : rules) m_types.push_back(typesReachedFrom(each.rule().featureType));
        for (const std::vector<int>& types : m_types) {
            for (const int type : types) m_parts.join(number(types.front()), number(type));
        }
        m_clusters = m_parts;
        joinSharing(mapping);
    }

    std::vector<ClusterRules> clusters() {
        std::map<std::size_t, std::map<std::size_t, PartRules>> sorted;
        for (std::size_t i = 0; i < m_rules.size(); ++i) {
            const std::size_t type = number(m_types[i].front());
            PartRules& part = sorted[m_clusters.groupOf(type)][m_parts.groupOf(type)];
            part.rules.push_back(m_rules[i]);
            part.featureTypes.insert(m_types[i].begin(), m_types[i].end());
        }
        std::vector<ClusterRules> clusters;
        for (auto& [cluster, parts] : sorted) {
            ClusterRules rules;
            for (auto& [part, each] : parts) rules.emplace_back(std::move(each.featureTypes), std::move(each.rules));
            clusters.push_back(std::move(rules));
        }
        return clusters;
    }

private:
    static std::size_t number(int type) { return static_cast<std::size_t>(type); }

    void joinSharing(const Mapping& mapping) {
        std::map<int, std::size_t> firstOf;  // keyed by style id
        for (const std::vector<int>& types : m_types) {
            for (const int type : types) {
                if (!m_reached.insert(type).second) continue;
                for (const int id : mapping.idsOf(type)) {
                    m_clusters.join(firstOf.try_emplace(id, number(type)).first->second, number(type));
                }
            }
        }
    }

    const PlacedRules& m_rules;
    std::vector<std::vector<int>> m_types;
    Groups m_parts{_orvik_framework::kFeatureTypeCount}, m_clusters{0};
    std::set<int> m_reached;
};

// Parts are tried in turn until none of them becomes shorter: removing something from one can allow more in another.
bool shrinkCluster(Cluster& cluster) {
    ReachProbe probe;
    bool isComplete = true;
    std::size_t unchanged = 0;
    for (std::size_t part = 0; unchanged < cluster.size() && isComplete; part = (part + 1) % cluster.size()) {
        Shrinking shrinking(cluster, part, probe, kMostWork);
        unchanged = shrinking.shrink() ? 1 : unchanged + 1;
        isComplete = shrinking.isComplete();
    }
    return isComplete;
}

class Shrinker {
public:
    Shrinker(PlacedRules rules, const std::string& mapping, const Spread& spread)
        : m_mapping(Mapping::given(mapping)), m_rules(std::move(rules)), m_spread(spread) {
        std::erase_if(m_rules,
                      [](const PlacedRule& each) { return typesReachedFrom(each.rule().featureType).empty(); });
        m_map.ParseMappingConfig(componentTree(mapping).get());
        m_everyIconHidden = hidesEveryIcon({{{}, m_rules}});
    }

    // With fewer rules the parts may be different, and more may be removable from them.
    bool run() {
        for (std::vector<std::vector<std::size_t>> before;;) {
            std::vector<ClusterRules> clusters = Split(m_rules, m_mapping).clusters();
            if (indicesOf(clusters) == before) return m_isComplete;
            shrinkAll(clusters);
            before = indicesOf(clusters);
        }
    }

    const PlacedRules& rules() const { return m_rules; }

private:
    static std::vector<std::vector<std::size_t>> indicesOf(const std::vector<ClusterRules>& clusters) {
        std::vector<std::vector<std::size_t>> indices;
        for (const ClusterRules& cluster : clusters) {
            for (const auto& [types, rules] : cluster) {
                if (rules.empty()) continue;
                auto& part = indices.emplace_back();
                for (const PlacedRule& each : rules) part.push_back(each.index);
            }
            indices.emplace_back();  // where a cluster ends
        }
        return indices;
    }

    static bool hidesEveryIcon(const ClusterRules& cluster) {
        CustomConfig config;
        for (const auto& [types, rules] : cluster) {
            for (const PlacedRule& each : rules) config.ParseCustomConfig(each.ready->tree.get());
        }
        return config.m_allIconsHidden != 0;
    }

    void shrinkAll(std::vector<ClusterRules>& clusters) {
        m_spread.run(clusters.size(), [&](std::size_t each, std::size_t) { shrinkOne(clusters[each]); });
        m_rules.clear();
        for (const ClusterRules& cluster : clusters) {
            for (const auto& [types, rules] : cluster) m_rules.insert(m_rules.end(), rules.begin(), rules.end());
        }
        std::ranges::sort(m_rules, {}, &PlacedRule::index);
        std::erase_if(clusters, [](const ClusterRules& cluster) {
            return std::ranges::all_of(cluster, [](const auto& part) { return part.second.empty(); });
        });
    }

    void shrinkOne(ClusterRules& rules) {
        Cluster cluster(m_map, rules, m_everyIconHidden && !hidesEveryIcon(rules));
        if (!shrinkCluster(cluster)) m_isComplete = false;
        for (std::size_t part = 0; part < rules.size(); ++part) rules[part].second = cluster.rulesOf(part);
    }

    Mapping m_mapping;
    CustomConfig m_map;
    PlacedRules m_rules;
    const Spread& m_spread;
    bool m_everyIconHidden;
    std::atomic<bool> m_isComplete = true;
};

}  // namespace

ShrunkStyle shrunkStyle(const std::vector<MinimalRule>& rules, const std::string& mapping, const Spread& spread) {
    PlacedRules placedRules;
    for (const MinimalRule& rule : rules) placedRules.push_back(placed(placedRules.size(), rule));
    Shrinker shrinker(std::move(placedRules), mapping, spread);
    ShrunkStyle style{{}, shrinker.run()};
    for (const PlacedRule& each : shrinker.rules()) style.rules.push_back(each.rule());
    return style;
}

}  // namespace customstyle_tool
