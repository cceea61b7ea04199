#include "tools/study/Answers.h"

#include <set>

#include "customstyle/StoredRecords.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/StoreImage.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;

std::optional<std::uint64_t> fieldIn(const Answer& answer, std::size_t place) {
    const StyleField& field = styleFields()[place];
    if (answer.featureType == -1 || !appliesIn(field, answer.style)) return {};
    return valueOf(field, answer.style);
}

std::optional<std::uint64_t> answeringType(const Answer& answer) {
    if (answer.featureType == -1) return {};
    return static_cast<std::uint64_t>(answer.featureType);
}

bool isSameStyle(const Answer& left, const Answer& right) {
    return left.featureType == right.featureType && sameFields(left.style, right.style);
}

Answer ask(const CustomConfig& config, unsigned int styleId, int level) {
    const ComponentGuard guard;
    Answer answer{};
    answer.featureType = config.GetStyleFromConfig(answer.style, styleId, level);
    answer.iconHidden = config.IsCustomizedIconVisible(styleId, level) != 0;
    return answer;
}

std::optional<std::uint64_t> landColor(const CustomConfig& config, int level) {
    const ComponentGuard guard;
    std::uint64_t color = 0;
    if (config.IsCustomBackRegionEnable(color, level) == 0) return {};
    return color;
}

std::optional<std::uint64_t> gridColor(const CustomConfig& config, int level) {
    const ComponentGuard guard;
    std::uint64_t color = 0;
    if (config.IsCustomGridBackRegionEnable(color, level) == 0) return {};
    return color;
}

std::vector<unsigned int> mappedStyleIds(const CustomConfig& config) {
    std::set<unsigned int> ids;
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const auto& entry : _orvik_framework::StoredRecords(records)) ids.insert(entry.styleId());
    }
    return {ids.begin(), ids.end()};
}

}  // namespace customstyle_tool
