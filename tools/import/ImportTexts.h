// What an import writes, as text.
#pragma once

#include <variant>

#include "tools/export/ExportTexts.h"
#include "tools/json/SourceFile.h"
#include "tools/study/Mapping.h"

namespace customstyle_tool {

/// @param mapStyle  a style for MapLibre renderers; it may hold anything
/// @param zoomOffset  level L is drawn from zoom L - zoomOffset on
/// @return the texts, the style in the layout of style files; or why the file is no such style
std::variant<ConversionTexts, ReadFailure> importTexts(const SourceFile& mapStyle, const Legend& legend,
                                                       const Mapping& mapping, int zoomOffset,
                                                       const ConversionNames& names);

}  // namespace customstyle_tool
