// What a feature looks like: the component's answer over the look of the legend.
#pragma once

#include <cstdint>

#include "tools/export/Legend.h"
#include "tools/study/Answers.h"

namespace customstyle_tool {

// Colours are packed as the component packs them; widths and sizes are pixels. A value that the answer sets is used as
// it is, all others are the legend's, except in the cases below.

/// A border that the look draws is dropped where the style sets the fill and no stroke; one that only the style colours
/// has the legend's border width.
struct AreaLook {
    std::uint64_t fill;
    std::uint64_t stroke;
    double strokeWidth;

    bool isOutlined() const { return strokeWidth > 0 && stroke >> 24 != 0; }
};
AreaLook areaLook(const Legend& legend, const LegendLayer& layer, const Answer& answer, int level);

/// A roof has the colour of the walls where the style sets the fill and no top surface.
struct BuildingLook {
    std::uint64_t walls;
    std::uint64_t roof;
};
BuildingLook buildingLook(const LegendLayer& layer, const Answer& answer, int level);

/// The border of an invisible line is invisible, unless the style sets it.
struct LineLook {
    std::uint64_t fill;
    std::uint64_t stroke;
    double width;
    double strokeWidth;  ///< on either side

    bool isDrawn() const { return width > 0 && fill >> 24 != 0; }
    bool isOutlined() const { return strokeWidth > 0 && stroke >> 24 != 0; }
};
LineLook lineLook(const Legend& legend, const LegendLayer& layer, const Answer& answer, int level);

/// The widest halo that MapLibre draws, as a part of the text size.
inline constexpr double kWidestHalo = 0.25;
/// The text weight from which on text is bold.
inline constexpr std::uint64_t kBoldFrom = 2;

struct LabelLook {
    std::uint64_t color;
    std::uint64_t halo;
    double size;
    double haloWidth;  ///< at most a quarter of the size
    bool isBold;
    bool hasText;  ///< whether any of it can be seen
    bool hasIcon;
};
LabelLook labelLook(const LegendLayer& layer, const Answer& answer, int level);

}  // namespace customstyle_tool
