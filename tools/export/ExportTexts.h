// What an export writes, as text.
#pragma once

#include <string>

#include "tools/export/MapStyle.h"

namespace customstyle_tool {

/// What an export or an import writes.
struct ConversionTexts {
    std::string style;
    std::string losses;  ///< for people: a line for each loss
    std::string report;  ///< the losses as JSON
};

/// What the report calls the files.
struct ConversionNames {
    std::string style;  ///< the one that is converted
    std::string legend;
};

inline constexpr char kMapLibre[] = "maplibre";  ///< the renderer's name in reports
inline constexpr int kConversionReport = 1;      ///< version of the reports

ConversionTexts exportTexts(const StyleStudy& study, const Legend& legend, const ExportOptions& options,
                            const ConversionNames& names);

}  // namespace customstyle_tool
