// Finds what a style loses.
#pragma once

#include "tools/export/LevelExpression.h"
#include "tools/export/Losses.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// Adds what is lost of the answers for the features of a legend layer.
void findLayerLosses(const LayerContext& context, bool isRaised, Losses& losses);

/// Adds what is lost because the legend has no layer that would show it.
void findMissingLayers(const StyleStudy& study, const Legend& legend, Losses& losses);

}  // namespace customstyle_tool
