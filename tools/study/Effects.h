// What leaving out rules and stylers changes: each alone, and all together that change nothing.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/study/StoreDifference.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// A rule or a styler, and what the answers show of it.
struct ProvenEffect {
    std::size_t rule;                 ///< place among the rules, from 0
    std::optional<std::size_t> step;  ///< the styler; none for the whole of a rule with several
    /// Whether no answer changes without it: without it alone, without all that are idle after it as well, and without
    /// all that are idle before it. So any one that is idle can be left out, and all of them, in the order of the rules
    /// or against it.
    bool isIdle;
    Effect effect;  ///< what changes without it alone; whole only where details were asked for
};

struct ProofOptions {
    std::vector<bool> kept{};  ///< the steps that are never left out, by place; empty for none
    bool details = false;      ///< also find at which levels the answers change
    /// Hears how far the proof has come; called on the calling thread.
    std::function<void(std::size_t done, std::size_t all)> progress{};
    /// Asked now and then, on any thread, whether to stop.
    std::function<bool()> isTimeUp{};
};

struct Proofs {
    std::vector<ProvenEffect> effects;  ///< in the order of the rules, a rule before its stylers
    std::size_t unproven = 0;           ///< rules and stylers for which there was no time
};

/// Leaves out each rule, and each styler of a rule with an effect and several stylers, and looks whether an answer
/// changes: all style ids of the mapping and one that it does not list, all 19 level classes, all four questions.
Proofs proveEffects(const StyleStudy& study, const ProofOptions& options = {});

}  // namespace customstyle_tool
