// The features that a legend layer stands for.
#pragma once

#include <vector>

#include "tools/export/Legend.h"
#include "tools/import/Expression.h"

namespace customstyle_tool {

/// Features with the properties that the filter of a legend layer asks for, and no others: one for each combination of
/// values that it lists. None where the filter asks for anything other than values.
std::vector<Feature> featuresOf(const LegendLayer& layer);

/// The same features, each once for every style id, where the tiles contain the ids.
std::vector<Feature> withStyleIds(const std::vector<Feature>& features, const LegendLayer& layer,
                                  const std::vector<unsigned int>& styleIds);

}  // namespace customstyle_tool
