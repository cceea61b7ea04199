// The walk over feature types in its plainest form: the yardstick of the class.
#pragma once

#include <string>
#include <unordered_map>

#include "customstyle/CustomConfig.h"

namespace customstyle_bench {

/// Answers from the records of a store, which has to live on, but through key tables of its own: standard ones, keyed
/// by std::string, asked with keys that snprintf makes for each question.
class LiteralWalk {
public:
    explicit LiteralWalk(const _orvik_framework::CustomConfig& config);

    /// CustomConfig::GetStyleFromConfig.
    int getStyle(_orvik_framework::tagCustomStyle& style, unsigned int styleId, int level) const;

    /// CustomConfig::IsCustomizedIconVisible.
    int isIconHidden(unsigned int styleId, int level) const;

private:
    bool isInEffect(const char* key, int allLevels) const;
    const _orvik_framework::CVMapPtrToPtr* recordsInEffect(int featureType, int level) const;
    const _orvik_framework::tagCustomStyle* record(int featureType, unsigned int styleId, int level) const;
    bool getStyleOf(int featureType, _orvik_framework::tagCustomStyle& style, unsigned int styleId, int level) const;

    std::unordered_map<std::string, int> m_effectLevels;
    std::unordered_map<std::string, _orvik_framework::CVMapPtrToPtr*> m_slots;
    int m_allIconsHidden;
};

}  // namespace customstyle_bench
