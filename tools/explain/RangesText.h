// Many style ids in few words.
#pragma once

#include <span>
#include <string>

namespace customstyle_tool {

/// "2101, 2103-2106" for ascending ids.
std::string idsText(std::span<const unsigned int> styleIds);

}  // namespace customstyle_tool
