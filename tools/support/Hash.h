// A number that is almost always unique to a text.
#pragma once

#include <cstdint>
#include <string_view>

namespace customstyle_tool {

/// 64 bits of FNV-1a, as Fowler, Noll and Vo describe it. No protection against texts made to collide.
constexpr std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

}  // namespace customstyle_tool
