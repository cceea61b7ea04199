// A style as another renderer's style, made of the component's answers.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "tools/export/Legend.h"
#include "tools/export/Losses.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

struct ExportOptions {
    bool isRaised = false;  ///< whether buildings have walls and roofs
    int zoomOffset = 1;     ///< level L is drawn from zoom L - zoomOffset on
    /// URLs that replace those of the legend.
    std::optional<std::string> tiles{}, glyphs{}, sprite{};
};

struct ExportedStyle {
    nlohmann::ordered_json style;  ///< a style of MapLibre, version 8
    Losses losses;
};

/// For each legend layer up to four layers, whose values at each level are those of the component's answers over the
/// look of the legend. Layers that are invisible at all levels are left out.
ExportedStyle exportedStyle(const StyleStudy& study, const Legend& legend, const ExportOptions& options);

}  // namespace customstyle_tool
