// Parts of a style whose answers depend on each other, because their feature types share style ids.
#pragma once

#include <cstddef>
#include <memory>
#include <set>
#include <vector>

#include "tools/minify/PartStore.h"

namespace customstyle_tool {

/// Keeps the answers of a cluster while its parts are changed one by one.
///
/// A part is loaded on its own, and its keys are shown to the renderer's questions together with those of the other
/// parts: the component's answers cover all parts, although only one was loaded again.
class Cluster {
public:
    /// The component has to be guarded, see ComponentGuard.
    /// @param map              a store that has loaded the mapping
    /// @param everyIconHidden  whether the rest of the style hides every icon of the map
    Cluster(const _orvik_framework::CustomConfig& map, const std::vector<std::pair<std::set<int>, PlacedRules>>& parts,
            bool everyIconHidden);

    /// Whether every answer stays the same if a part has these rules.
    bool isSame(std::size_t part, const PlacedRules& candidate);

    /// Takes over rules for which isSame() is true.
    void accept(std::size_t part, PlacedRules rules);

    const PlacedRules& rulesOf(std::size_t part) const { return m_parts[part].rules; }
    std::size_t size() const { return m_parts.size(); }

    /// Whether a part has style ids for a feature type.
    const std::set<int>& featureTypesOf(std::size_t part) const { return m_parts[part].store->featureTypes(); }

    /// How many rules were applied so far.
    std::size_t work() const { return m_work; }

private:
    struct Part {
        PlacedRules rules;
        std::unique_ptr<PartStore> original, store, scratch;
    };

    void show(const _orvik_framework::CustomConfig& shown, const _orvik_framework::CustomConfig& hidden,
              std::optional<int> level);
    void showFlags(std::size_t part, const _orvik_framework::CustomConfig& shown);
    void load(PartStore& store, const PlacedRules& rules, std::optional<int> level);

    int m_everyIconHidden;
    std::vector<Part> m_parts;
    _orvik_framework::CustomConfig m_wanted;  // keys of the original parts
    // Keys of the parts as they are, or of a version being tried; the flags of the last version tried.
    _orvik_framework::CustomConfig m_view;
    std::size_t m_work = 0;
};

}  // namespace customstyle_tool
