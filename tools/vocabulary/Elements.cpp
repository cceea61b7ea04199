#include "tools/vocabulary/Elements.h"

#include <algorithm>

namespace customstyle_tool {
namespace {

constexpr Element kElements[] = {
    {"all", "The whole feature; of most types only the labels take the colour"},
    {"geometry", "The drawn shape: fill, outline and top surface"},
    {"geometry.fill", "The inside of the shape"},
    {"geometry.stroke", "The outline of the shape"},
    {"geometry.topsurface", "The roofs of extruded shapes"},
    {"labels", "Names and icons"},
    {"labels.text.fill", "The letters of the names"},
    {"labels.text.stroke", "The halo around the letters"},
    {"labels.icon", "The icons beside the names"},
};

constexpr const char* kElementWords[] = {"all", "labels", "geometry", "stroke", "fill", "topsurface", "icon"};

}  // namespace

std::span<const Element> elements() {
    return kElements;
}

std::span<const char* const> elementWords() {
    return kElementWords;
}

bool isUsualWord(std::string_view word) {
    constexpr std::string_view kInside = "text";  // occurs only inside a path
    return word == kInside || std::ranges::find(kElementWords, word) != std::end(kElementWords);
}

}  // namespace customstyle_tool
