// Equality of style records.
#pragma once

#include <tuple>

#include "customstyle/CustomConfig.h"

namespace customstyle_bench {

/// All fields of a record; its padding does not count.
inline auto fieldsOf(const _orvik_framework::tagCustomStyle& style) {
    const auto& [id, textFillColor, textStrokeColor, textFillColorSet, textStrokeColorSet, textFillWeight,
                 textStrokeWeight, textFillWeightSet, textStrokeWeightSet, fontSize, fontSizeSet, fillColor,
                 borderColor, fillWeight, borderWeight, fillColorSet, borderColorSet, iconHidden, fillWeightSet,
                 borderWeightSet, topSurfaceColor, topSurfaceColorSet, custom] = style;
    return std::tuple(id, textFillColor, textStrokeColor, textFillColorSet, textStrokeColorSet, textFillWeight,
                      textStrokeWeight, textFillWeightSet, textStrokeWeightSet, fontSize, fontSizeSet, fillColor,
                      borderColor, fillWeight, borderWeight, fillColorSet, borderColorSet, iconHidden, fillWeightSet,
                      borderWeightSet, topSurfaceColor, topSurfaceColorSet, custom);
}

inline bool sameRecord(const _orvik_framework::tagCustomStyle& left, const _orvik_framework::tagCustomStyle& right) {
    return fieldsOf(left) == fieldsOf(right);
}

}  // namespace customstyle_bench
