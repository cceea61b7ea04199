// Parts: groups of steps that do not affect each other.
#pragma once

#include <cstddef>
#include <vector>

#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// The steps of a replay in groups whose steps address no record, and no setting of the whole map, that a step of
/// another group addresses. What one group leaves behind does not depend on the others. All stylers of a rule are in
/// one group. Where the store has refused keys, each step can make room for another one, and all of them are one group.
///
/// @return indices of the steps, ascending; the largest group first. Steps that address nothing are in their rule's
/// group, if it has one.
std::vector<std::vector<std::size_t>> independentParts(const std::vector<ReplayStep>& steps);

}  // namespace customstyle_tool
