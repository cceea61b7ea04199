// The component's answers for the features of one legend layer.
#pragma once

#include <array>
#include <vector>

#include "tools/export/Legend.h"
#include "tools/study/Answers.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// Style ids with the same answer. There may be none if the mapping lists none for the type.
struct AnswerGroup {
    Answer answer;
    std::vector<unsigned int> ids;
};

class LayerAnswers {
public:
    LayerAnswers(const StyleStudy& study, const LegendLayer& layer);

    /// At a level; at least one group, the one with the most style ids first.
    const std::vector<AnswerGroup>& at(int level) const { return m_groups[classOfLevel(level)]; }

private:
    std::array<std::vector<AnswerGroup>, kLevelClassCount> m_groups;
};

}  // namespace customstyle_tool
