// Identifies findings by what they are about.
#pragma once

#include <string>

#include "tools/check/Finding.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// Identifies a finding whatever its position: made from its code and the text of its rule without blanks, so it stays
/// the same when rules move.
/// @param style  the finding's style; null for a mapping file
std::string fingerprintOf(const Finding& finding, const StyleSource* style);

}  // namespace customstyle_tool
