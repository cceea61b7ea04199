// The layers of a style that draw one layer of a legend.
#pragma once

#include <vector>

#include "tools/export/LevelExpression.h"
#include "tools/export/Losses.h"

namespace customstyle_tool {

inline constexpr char kSourceName[] = "map";

/// Layers of one legend layer in the order of drawing. What is drawn below other legend layers is separate: the
/// casings of lines lie below all lines beside them in the legend.
struct MapLayers {
    std::vector<LegendJson> below{};
    std::vector<LegendJson> layers{};
};

/// @param isRaised  whether buildings have walls and roofs
MapLayers mapLayersOf(const LayerContext& context, bool isRaised, Losses& losses);

}  // namespace customstyle_tool
