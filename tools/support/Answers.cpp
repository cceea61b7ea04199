#include "tools/support/Answers.h"

#include <set>

#include "customstyle/StoredRecords.h"
#include "tools/support/StyleFields.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecords;

std::optional<std::uint64_t> fieldIn(const Answer& answer, std::size_t place) {
    const StyleField& field = styleFields()[place];
    if (answer.featureType == -1 || !appliesIn(field, answer.style)) return {};
    return valueOf(field, answer.style);
}

Answer ask(const CustomConfig& config, unsigned int styleId, int level) {
    Answer answer{};
    answer.featureType = config.GetStyleFromConfig(answer.style, styleId, level);
    answer.iconHidden = config.IsCustomizedIconVisible(styleId, level) != 0;
    return answer;
}

std::optional<std::uint64_t> landColor(const CustomConfig& config, int level) {
    std::uint64_t color = 0;
    if (config.IsCustomBackRegionEnable(color, level) == 0) return {};
    return color;
}

std::optional<std::uint64_t> gridColor(const CustomConfig& config, int level) {
    std::uint64_t color = 0;
    if (config.IsCustomGridBackRegionEnable(color, level) == 0) return {};
    return color;
}

std::vector<unsigned int> mappedStyleIds(const CustomConfig& config) {
    std::set<unsigned int> ids;
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const auto& entry : StoredRecords(records)) ids.insert(entry.styleId());
    }
    return {ids.begin(), ids.end()};
}

}  // namespace customstyle_tool
