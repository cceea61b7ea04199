#include "tools/diff/Attribution.h"

#include "tools/explain/StepText.h"

namespace customstyle_tool {
namespace {

const std::optional<Write>& winnerOf(const Explanation& explanation, const ChangedAnswer& answer) {
    switch (answer.question.subject) {
        case Subject::Icon:
            return explanation.icon.winner;
        case Subject::Background:
            return answer.featureType == _orvik_framework::EMAPCUSTOMSTYLE_GRID ? explanation.grid.winner
                                                                                : explanation.land.winner;
        case Subject::FeatureType:
            return explanation.fields[kMarkField].winner;
        case Subject::Field:
            break;
    }
    return explanation.fields[answer.question.field].winner;
}

// Losses play no part here, and a long style has many. Their memory is released.
Explanation winnersOf(Explanation explanation) {
    for (History& field : explanation.fields) field.losses = std::vector<Loss>();
    for (History* history : {&explanation.icon, &explanation.land, &explanation.grid}) {
        history->losses = std::vector<Loss>();
    }
    return explanation;
}

}  // namespace

std::optional<StylerPlace> Attribution::stylerOf(const ChangedAnswer& answer) {
    const auto& winner = winnerOf(explanationFor(answer), answer);
    if (!winner) return {};
    const auto known = m_places.find(winner->step);
    if (known != m_places.end()) return known->second;
    const StylerNote note = noteOf(m_explainer.style().source(), m_explainer.step(winner->step));
    return m_places[winner->step] = {note.rule, note.file, note.position.line, note.position.column};
}

const Explanation& Attribution::explanationFor(const ChangedAnswer& answer) {
    const std::pair place{m_explainer.style().mapping().typesOf(answer.styleId), answer.levelClass};
    const auto known = m_explanations.find(place);
    if (known != m_explanations.end()) return known->second;
    return m_explanations
        .emplace(place, winnersOf(m_explainer.explain(answer.styleId, levelOfClass(answer.levelClass))))
        .first->second;
}

}  // namespace customstyle_tool
