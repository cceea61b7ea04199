// Colours as the target writes them.
#pragma once

#include <cstdint>
#include <string>

namespace customstyle_tool {

inline constexpr std::uint64_t kOpaque = 0xff000000;

/// "#rrggbb", or "rgba(r,g,b,a)" where the packed colour is not opaque.
std::string cssColor(std::uint64_t packedColor);

/// Alpha as a part of 1, in three digits: enough to tell all 256 apart.
double cssAlpha(std::uint64_t packedColor);

}  // namespace customstyle_tool
