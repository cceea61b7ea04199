// Values that change with level and style id, as an expression of the target.
#pragma once

#include <functional>

#include "tools/export/LayerAnswers.h"
#include "tools/export/Legend.h"
#include "tools/export/Losses.h"

namespace customstyle_tool {

/// Levels as zooms: level L is drawn from zoom L - offset on.
struct ZoomRange {
    int offset = 1;
    int firstLevel = 0;
    int lastLevel = 0;

    int zoomOf(int level) const { return level - offset; }
};

/// The levels at which a layer is drawn.
ZoomRange zoomRangeOf(const LegendLayer& layer, int offset);

/// All that is known about a legend layer.
struct LayerContext {
    const Legend& legend;
    const LegendLayer& layer;
    LayerAnswers answers;
    ZoomRange zooms;
};

/// The value of a property that an answer has at a level; null where any will do, but not for all answers at a level.
using ValueOf = std::function<LegendJson(const Answer& answer, int level)>;

/// One value, or a step for each level that changes it.
LegendJson steppedOver(const ZoomRange& zooms, const std::function<LegendJson(int level)>& valueAt);

/// One value, a choice by style id where the features tell theirs, a step for each level that changes something.
LegendJson expressionOf(const LayerContext& context, const ValueOf& value, Losses& losses);

/// The same for a property that is one value for the whole layer: what most style ids have.
/// @param loss  what is lost where they differ
LegendJson levelExpressionOf(const LayerContext& context, const ValueOf& value, LossCode loss, Losses& losses);

}  // namespace customstyle_tool
