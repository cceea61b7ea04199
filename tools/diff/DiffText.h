// Differences between styles for people, and for programs.
#pragma once

#include <span>
#include <string>

#include "tools/diff/StyleDiff.h"

namespace customstyle_tool {

/// "water  fill  levels 4-9, 12: #aadaff -> #1b2a3a  (A rule 3, B rule 14)", a line for each change.
std::string diffText(std::span<const JoinedChange> changes);

std::string diffJson(std::span<const JoinedChange> changes);

}  // namespace customstyle_tool
