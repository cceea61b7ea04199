#include "tools/export/CssColor.h"

#include <fmt/format.h>

#include <cmath>

#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {

std::string cssColor(std::uint64_t packedColor) {
    if (alphaOf(packedColor) == 0xff) return rgbText(packedColor);
    return fmt::format("rgba({},{},{},{})", packedColor & 0xff, packedColor >> 8 & 0xff, packedColor >> 16 & 0xff,
                       cssAlpha(packedColor));
}

double cssAlpha(std::uint64_t packedColor) {
    return std::round(alphaOf(packedColor) * 1000 / 255.0) / 1000;
}

}  // namespace customstyle_tool
