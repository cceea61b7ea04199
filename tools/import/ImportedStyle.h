// A style made from another renderer's style.
#pragma once

#include <string>

#include "tools/export/Legend.h"
#include "tools/import/Expression.h"
#include "tools/import/ImportLosses.h"
#include "tools/study/Mapping.h"

namespace customstyle_tool {

struct ImportedStyle {
    std::string text;  ///< a style file
    ImportLosses losses;
};

/// The colours, widths and sizes of a map style as rules: a style to start from. It says how the map style draws the
/// features of the legend; the component is asked whether the rules give these answers.
/// @param mapStyle  a style for MapLibre renderers
/// @param zoomOffset  level L is drawn from zoom L - zoomOffset on
ImportedStyle importedStyle(const MapJson& mapStyle, const Legend& legend, const Mapping& mapping, int zoomOffset = 1);

}  // namespace customstyle_tool
