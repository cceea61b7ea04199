// Differences between styles for people, and for programs.
#pragma once

#include <span>
#include <string>

#include "tools/diff/StyleDiff.h"
#include "tools/explain/ExplanationText.h"

namespace customstyle_tool {

/// "water  fill  levels 4-9, 12: #aadaff -> #1b2a3a  (A rule 3, B rule 14)", a line for each change.
/// @param swatches  shows each colour beside its number, and feature types in bold
std::string diffText(std::span<const JoinedChange> changes, const Mapping& mapping, Swatches swatches = Swatches::None);

/// How many changes there are, and for which mapping that holds.
std::string diffSummary(std::span<const JoinedChange> changes, const Mapping& mapping);

std::string diffJson(std::span<const JoinedChange> changes, const Mapping& mapping);

}  // namespace customstyle_tool
