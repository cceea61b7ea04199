// Whether styles have the same effect, on one map or on every map.
#pragma once

#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// Whether the styles in effect for these feature types are the same at every level: the record, and whether there is
/// one at all. Then every map draws these types alike, because a map's style ids choose among these records only.
/// @param left, right  stores loaded with the default mapping
bool haveSameStyles(const _orvik_framework::CustomConfig& left, const _orvik_framework::CustomConfig& right,
                    const std::vector<int>& featureTypes);

}  // namespace customstyle_tool
