// What the proofs show: rules and stylers without an effect, or with only a partial one.
#pragma once

#include <vector>

#include "tools/check/Finding.h"
#include "tools/study/Effects.h"

namespace customstyle_tool {

/// The findings about what can be left out. All of them hold together.
/// @param others   what the finders have found: what they settle is not examined again
/// @param options  without `kept`
std::vector<Finding> findEffects(const StyleStudy& study, const std::vector<Finding>& others, ProofOptions options);

/// Marks the findings about what does nothing at all, as it can be removed too.
void markIdle(const StyleStudy& study, std::vector<Finding>& findings);

}  // namespace customstyle_tool
