// A mapping that represents every map.
#pragma once

#include <string>
#include <vector>

#include "tools/minify/MinimalRule.h"

namespace customstyle_tool {

/// The text of a mapping that tells apart whatever any mapping can tell apart, for these rules and for any rules with
/// the same answers. It is smaller than that of every map: types share a style id only where one of them hides icons,
/// because a type that has a style, but not for the icon, answers for the other.
std::string mappingFor(const std::vector<MinimalRule>& rules);

}  // namespace customstyle_tool
