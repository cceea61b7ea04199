// Differences between styles for people, and for programs.
#pragma once

#include <span>
#include <string>

#include "tools/diff/StyleDiff.h"

namespace customstyle_tool {

/// "water  fill  levels 4-9, 12: #aadaff -> #1b2a3a  (A rule 3, B rule 14)", a line for each change.
std::string diffText(std::span<const JoinedChange> changes, const Mapping& mapping);

/// How many changes there are, and for which mapping that holds.
std::string diffSummary(std::span<const JoinedChange> changes, const Mapping& mapping);

std::string diffJson(std::span<const JoinedChange> changes, const Mapping& mapping);

}  // namespace customstyle_tool
