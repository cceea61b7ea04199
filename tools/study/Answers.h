// Everything that the renderer can learn from a loaded map.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// What the renderer receives for one style id at one level.
struct Answer {
    int featureType;                         ///< -1 when there is no custom style
    _orvik_framework::tagCustomStyle style;  ///< all 0 when there is no custom style
    bool iconHidden;
};

/// The value of a field, where there is a style and the value applies.
/// @param place  index in styleFields()
std::optional<std::uint64_t> fieldIn(const Answer& answer, std::size_t place);

/// The feature type that answers, if one does.
std::optional<std::uint64_t> answeringType(const Answer& answer);

/// Whether the same type answers with the same values.
bool isSameStyle(const Answer& left, const Answer& right);

/// What the renderer would receive with its questions turned on, see ComponentGuard.
Answer ask(const _orvik_framework::CustomConfig& config, unsigned int styleId, int level);

/// The packed background colours at one level, where they are customised.
std::optional<std::uint64_t> landColor(const _orvik_framework::CustomConfig& config, int level);
std::optional<std::uint64_t> gridColor(const _orvik_framework::CustomConfig& config, int level);

/// Every style id of the mapping, ascending, each once.
std::vector<unsigned int> mappedStyleIds(const _orvik_framework::CustomConfig& config);

}  // namespace customstyle_tool
