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
    std::size_t rule;                 ///< index of the rule, from 0
    std::optional<std::size_t> step;  ///< the styler; none for the whole of a rule with several
    /// Whether no answer changes without it: when it is left out alone, together with all idle ones after it, and
    /// together with all idle ones before it. So any single idle one can be left out, and so can all of them, in the
    /// order of the rules or in reverse.
    bool isIdle;
    Effect effect;  ///< what changes without it alone; whole only where details were asked for
};

struct ProofOptions {
    std::vector<bool> kept{};  ///< the steps that are never left out, by index; empty for none
    bool details = false;      ///< also find at which levels the answers change
    /// Receives the progress of the proof; called on any thread, on several at a time.
    std::function<void(std::size_t done, std::size_t all)> progress{};
    /// Called now and then, on any thread; returns whether to stop.
    std::function<bool()> isTimeUp{};
};

struct Proofs {
    std::vector<ProvenEffect> effects;  ///< in the order of the rules, a rule before its stylers
    std::size_t unproven = 0;           ///< rules and stylers for which there was no time
};

/// Leaves out each rule, and each styler of a rule that has an effect and several stylers, and checks whether an answer
/// changes: all style ids of the mapping and one that it does not list, all 19 level classes, all four questions.
Proofs proveEffects(const StyleStudy& study, const ProofOptions& options = {});

}  // namespace customstyle_tool
