#include "tools/export/LayerAnswers.h"

#include <algorithm>

namespace customstyle_tool {
namespace {

bool isSameAnswer(const Answer& left, const Answer& right) {
    return isSameStyle(left, right) && left.iconHidden == right.iconHidden;
}

void addTo(std::vector<AnswerGroup>& groups, unsigned int styleId, const Answer& answer) {
    const auto same = [&](const AnswerGroup& group) { return isSameAnswer(group.answer, answer); };
    auto group = std::ranges::find_if(groups, same);
    if (group == groups.end()) group = groups.insert(groups.end(), {answer, {}});
    group->ids.push_back(styleId);
}

}  // namespace

LayerAnswers::LayerAnswers(const StyleStudy& study, const LegendLayer& layer) {
    const std::vector<unsigned int>& ids =
        layer.ids.empty() ? study.mapping().questionIdsOf(layer.featureType) : layer.ids;
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const int level = levelOfClass(levelClass);
        std::vector<AnswerGroup>& groups = m_groups[levelClass];
        for (const unsigned int id : ids) addTo(groups, id, ask(study.config(), id, level));
        if (groups.empty()) groups.push_back({ask(study.config(), study.mapping().unlistedId(), level), {}});
        std::ranges::stable_sort(groups, std::ranges::greater(),
                                 [](const AnswerGroup& group) { return group.ids.size(); });
    }
}

}  // namespace customstyle_tool
