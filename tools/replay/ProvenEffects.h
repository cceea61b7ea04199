// What each rule and each styler of a style does to the map, found by leaving it out.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/replay/StoreDifference.h"
#include "tools/support/SourceFile.h"

namespace customstyle_tool {

/// The effect of a whole rule, or of one of its stylers.
struct ProvenEffect {
    std::size_t rule;    ///< place among the rules, from 0
    std::string styler;  ///< empty for the whole rule
    Effect effect;
};

/// Tells how far a proof has come; called on the calling thread.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

/// Leaves out each rule, and each styler of a rule with several, loads the rest through the component again, and
/// compares every answer: all style ids, all 19 level classes, all four questions. In the order of the rules, a rule
/// before its stylers. Rules that the component refuses have an entry too. Works on all processors, and silences the
/// process's log meanwhile.
///
/// @param mapping  text of a mapping file that the component accepts
std::vector<ProvenEffect> proveEffects(std::string_view mapping, const StyleSource& style,
                                       const Progress& progress = {});

}  // namespace customstyle_tool
