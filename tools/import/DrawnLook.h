// How a map style draws a feature, in the words of style rules.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "tools/export/Legend.h"
#include "tools/import/MapLayer.h"

namespace customstyle_tool {

/// A value that a rule can give.
struct RulePart {
    std::string_view element;
    std::string_view styler;
    std::string_view field;  ///< of the record, as in styleFields()
};

inline constexpr std::size_t kRulePartCount = 10;

/// Parts with the same element are adjacent.
std::span<const RulePart> ruleParts();

/// A value for each part: packed colours, whole numbers, 1 for a hidden icon. Nothing where a rule need not say it.
using DrawnLook = std::array<std::optional<std::uint64_t>, kRulePartCount>;

/// The look of a feature of a legend layer. What is not drawn is invisible.
/// @param layers  those of the legend layer's source layer, bottom to top; notes which are used
/// @param level  for the look of the legend
DrawnLook drawnLook(const LegendLayer& legend, const std::vector<MapLayer*>& layers, int level, const Scene& scene);

}  // namespace customstyle_tool
