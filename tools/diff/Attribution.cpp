#include "tools/diff/Attribution.h"

#include "tools/explain/StepText.h"

namespace customstyle_tool {
namespace {

std::set<unsigned int> tracedIds(const std::map<unsigned int, unsigned int>& speakers) {
    std::set<unsigned int> ids;
    for (const auto& [styleId, speaker] : speakers) ids.insert(speaker);
    return ids;
}

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

// What was lost plays no part here, and of a long style much is. Its memory is given back.
Explanation winnersOf(Explanation explanation) {
    for (History& field : explanation.fields) field.losses = std::vector<Loss>();
    for (History* history : {&explanation.icon, &explanation.land, &explanation.grid}) {
        history->losses = std::vector<Loss>();
    }
    return explanation;
}

}  // namespace

Attribution::Attribution(const LoadedStyle& style, const std::set<unsigned int>& styleIds)
    : m_speakers(speakers(style, styleIds)), m_explainer(style, tracedIds(m_speakers)) {}

std::map<unsigned int, unsigned int> Attribution::speakers(const LoadedStyle& style,
                                                           const std::set<unsigned int>& styleIds) {
    std::map<unsigned int, std::vector<int>> typesOf;
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        for (const int styleId : style.styleIds().of(type)) typesOf[static_cast<unsigned int>(styleId)].push_back(type);
    }
    std::map<std::vector<int>, unsigned int> speakerOf;
    std::map<unsigned int, unsigned int> speakers;
    for (const unsigned int styleId : styleIds) {
        speakers[styleId] = speakerOf.try_emplace(typesOf[styleId], styleId).first->second;
    }
    return speakers;
}

std::optional<StylerPlace> Attribution::stylerOf(const ChangedAnswer& answer) {
    const auto& winner = winnerOf(explanationFor(answer), answer);
    if (!winner) return {};
    const auto known = m_places.find(winner->step);
    if (known != m_places.end()) return known->second;
    const StylerNote note = noteOf(m_explainer.style().source(), m_explainer.step(winner->step));
    return m_places[winner->step] = {note.rule, note.position.line, note.position.column};
}

const Explanation& Attribution::explanationFor(const ChangedAnswer& answer) {
    const unsigned int speaker = m_speakers.at(answer.styleId);
    const std::pair place{speaker, answer.levelClass};
    const auto known = m_explanations.find(place);
    if (known != m_explanations.end()) return known->second;
    return m_explanations.emplace(place, winnersOf(m_explainer.explain(speaker, levelOfClass(answer.levelClass))))
        .first->second;
}

}  // namespace customstyle_tool
