// Many style ids or levels in few words.
#pragma once

#include <span>
#include <string>

#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// "2101, 2103-2106" for ascending ids.
std::string idsText(std::span<const unsigned int> styleIds);

/// "all levels", "level 12", "levels 4-9, other".
std::string levelsPhrase(const LevelSet& levels);

}  // namespace customstyle_tool
