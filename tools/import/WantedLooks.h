// What a map style wants of each feature type at each level.
#pragma once

#include <array>
#include <map>

#include "tools/import/DrawnLook.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// A look for each class of levels; none where the legend draws nothing.
struct WantedLooks {
    std::array<std::optional<DrawnLook>, kLevelClassCount> at{};
};

/// By feature type.
using WantedTypes = std::map<int, WantedLooks>;

/// The rules for them, one per line. Rules for levels come first: where a type has a style for all levels already, each
/// styler of a level would start from that again.
std::string rulesText(const WantedTypes& types);

}  // namespace customstyle_tool
