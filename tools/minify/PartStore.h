// The store of a part of a style, which is rebuilt many times.
#pragma once

#include <optional>
#include <set>

#include "customstyle/CustomConfig.h"
#include "tools/minify/PlacedRule.h"

namespace customstyle_tool {

/// A store for rules that reach a few feature types only.
class PartStore {
public:
    /// @param map           a store that has loaded the mapping; lends its base records, so it must outlive this one
    /// @param featureTypes  the types that the rules can reach
    PartStore(const _orvik_framework::CustomConfig& map, std::set<int> featureTypes);
    ~PartStore();
    PartStore(const PartStore&) = delete;
    PartStore& operator=(const PartStore&) = delete;

    /// Forgets everything, and applies the rules.
    /// @param level  only rules for all levels and for this one
    void load(const PlacedRules& rules, std::optional<int> level);

    const _orvik_framework::CustomConfig& config() const { return m_config; }
    const std::set<int>& featureTypes() const { return m_featureTypes; }

private:
    std::set<int> m_featureTypes;
    _orvik_framework::CustomConfig m_config;
};

}  // namespace customstyle_tool
