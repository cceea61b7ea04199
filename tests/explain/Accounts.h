// What must hold of every explanation. Each function adds its findings to the running test.
#pragma once

#include "tools/explain/Explainer.h"

namespace customstyle_test {

/// The values of the winners make up exactly what the component answers: record, icon, and the two backgrounds.
void expectWinnersAddUp(const customstyle_tool::StyleStudy& style, const customstyle_tool::Explanation& explanation);

/// Each winner is a write that the replay saw, with its value; each write that could have reached the answer is either
/// the winner or one loss, never both and never twice.
void expectEveryWriteAccounted(const customstyle_tool::StyleStudy& style,
                               const customstyle_tool::Explanation& explanation);

/// Both, for every style id of the mapping and one that it lacks, at every level class.
/// @param everyWrite  whether to account for every write as well; takes longer
void expectExplained(const customstyle_tool::StyleStudy& style, bool everyWrite);

}  // namespace customstyle_test
