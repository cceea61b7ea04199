#include "tools/explain/Explainer.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/study/ComponentGuard.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

bool isCustomised(const CustomConfig& config, int featureType, unsigned int styleId, int level) {
    tagCustomStyle ignored{};
    return config.GetParentFeatureTypeCustomStyle(ignored, level, featureType, styleId) != -1;
}

void addLosses(History& history, const std::vector<Loss>& losses) {
    history.losses.insert(history.losses.end(), losses.begin(), losses.end());
}

void sortLosses(History& history) {
    std::ranges::stable_sort(history.losses, {}, [](const Loss& loss) { return loss.write.step; });
}

// What stands in a record that does not answer is lost as well.
void addAsLost(History& history, const History& lost, const Loss& how) {
    addLosses(history, lost.losses);
    if (lost.winner) history.losses.push_back({*lost.winner, how.kind, how.byStep, how.byType});
}

// Takes the history of the record that answers; losses elsewhere stay.
void adopt(History& history, const History& own) {
    std::vector<Loss> elsewhere = std::move(history.losses);
    history = own;
    addLosses(history, elsewhere);
}

// How the writes in a type's record are lost where another type answers.
Loss answeredBy(const CustomConfig& config, int silentType, int answeringType) {
    const bool isParent = config.IsParentFeatureType(silentType) != 0;
    return {{}, isParent ? LossKind::ParentNotReached : LossKind::LowerTypeFirst, {}, answeringType};
}

}  // namespace

Explainer::Explainer(const StyleStudy& style)
    : m_style(style), m_probe(style), m_intended(style.mapping().tracedText(), style.singles()) {
    indexSteps();
}

void Explainer::indexSteps() {
    for (std::size_t place = 0; place < m_style.steps().size(); ++place) {
        const ReplayStep& step = m_style.steps()[place];
        for (const RecordTouch& touch : step.touches) m_visits[touch.featureType].push_back({place, &touch});
        if (step.gridColor) m_gridSteps.push_back(place);
        if (step.hidesEveryIcon && !m_hidesEveryIcon) m_hidesEveryIcon = place;
    }
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        for (const int styleId : m_style.mapping().idsOf(type)) m_featureTypes[styleId].push_back(type);
    }
}

std::vector<int> Explainer::featureTypesOf(int styleId) const {
    const auto found = m_featureTypes.find(styleId);
    return found == m_featureTypes.end() ? std::vector<int>{} : found->second;
}

RecordVisits Explainer::visitsTo(int featureType, int level) const {
    RecordVisits record{featureType, {}, {}};
    const std::string levelKey = fmt::format("{}:{}", featureType, level);
    if (m_style.config().IsStyleEffectAtGivenLevel(levelKey.c_str()) != 0) record.level = level;
    const auto all = m_visits.find(featureType);
    if (all == m_visits.end()) return record;
    std::ranges::copy_if(all->second, std::back_inserter(record.visits),
                         [&](const Visit& visit) { return !visit.touch->level || visit.touch->level == record.level; });
    return record;
}

History Explainer::historyOf(const RecordVisits& record, std::size_t field) {
    const IntendedValue intended = [&](const Visit& visit, std::size_t place) {
        return m_intended.value(visit, place);
    };
    History history = fieldHistory(record, field, intended);
    if (field == kMarkField) history.losses.clear();
    return history;
}

Explanation Explainer::explain(unsigned int styleId, int level) {
    const ComponentGuard guard;
    Explanation explanation;
    explanation.styleId = styleId;
    explanation.level = level;
    explanation.featureTypes = featureTypesOf(static_cast<int>(styleId));
    tagCustomStyle ignored{};
    explanation.featureType = m_style.config().GetStyleFromConfig(ignored, styleId, level);
    explainRecords(explanation);
    explainIcon(explanation);
    explainLand(explanation);
    explainGrid(explanation);
    return explanation;
}

void Explainer::explainRecords(Explanation& explanation) {
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
        explanation.fields[field].applies = styleFields()[field].applies == nullptr;
    }
    for (const int featureType : explanation.featureTypes) explainType(explanation, featureType);
    for (History& history : explanation.fields) sortLosses(history);
}

// How the writes that stand in a record are lost when its type does not answer.
Loss Explainer::howSilent(const Explanation& explanation, const RecordVisits& record) {
    const CustomConfig& config = m_style.config();
    if (isCustomised(config, record.featureType, explanation.styleId, explanation.level)) {
        return answeredBy(config, record.featureType, explanation.featureType);
    }
    if (historyOf(record, kMarkField).value != 0) return {{}, LossKind::NeverFound, {}, -1};
    return {{}, LossKind::TakenOut, lastStepOn(record), -1};
}

void Explainer::explainType(Explanation& explanation, int featureType) {
    const RecordVisits record = visitsTo(featureType, explanation.level);
    const bool answers = featureType == explanation.featureType;
    const Loss how = howSilent(explanation, record);
    if (answers) explanation.keyLevel = record.level;
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
        const History own = historyOf(record, field);
        if (answers) {
            adopt(explanation.fields[field], own);
        } else if (field != kMarkField) {
            addAsLost(explanation.fields[field], own, how);
        }
    }
}

void Explainer::explainIcon(Explanation& explanation) {
    explanation.icon.applies = true;
    m_hidesEveryIcon ? explainHiddenIcons(explanation, *m_hidesEveryIcon) : explainOneIcon(explanation);
    sortLosses(explanation.icon);
}

// The icon histories of the types under which the style id stands.
std::map<int, History> Explainer::iconHistories(const Explanation& explanation) {
    std::map<int, History> histories;
    for (const int type : explanation.featureTypes) {
        const RecordVisits record = visitsTo(type, explanation.level);
        histories[type] = historyOf(record, kIconField);
    }
    return histories;
}

void Explainer::explainOneIcon(Explanation& explanation) {
    const auto& asked = explanation.iconTypes =
        m_probe.iconTypes(explanation.styleId, explanation.level, explanation.featureTypes);
    const std::map<int, History> histories = iconHistories(explanation);
    // Where several types are asked, each may hide the icon; those that show it beside one that does not lose.
    auto deciding = std::ranges::find_if(asked, [&](int type) { return histories.at(type).value != 0; });
    if (deciding == asked.end()) deciding = asked.begin();
    for (const auto& [type, own] : histories) {
        if (asked.empty()) {
            addAsLost(explanation.icon, own, {{}, LossKind::NeverFound, {}, -1});
        } else if (type == *deciding) {
            adopt(explanation.icon, own);
        } else if (std::ranges::find(asked, type) == asked.end()) {
            addAsLost(explanation.icon, own, answeredBy(m_style.config(), type, *deciding));
        } else if (histories.at(*deciding).value == 0) {
            addLosses(explanation.icon, own.losses);
        } else {
            addAsLost(explanation.icon, own, {{}, LossKind::HiddenByOther, {}, *deciding});
        }
    }
}

void Explainer::explainHiddenIcons(Explanation& explanation, std::size_t hidingStep) {
    History& icon = explanation.icon;
    icon.value = 1;
    icon.winner = Write{hidingStep, _orvik_framework::EMAPCUSTOMSTYLE_ALL, {}, 1};
    for (const auto& [type, own] : iconHistories(explanation)) {
        addAsLost(icon, own, {{}, LossKind::EveryIconHidden, hidingStep, -1});
    }
}

void Explainer::explainLand(Explanation& explanation) {
    explanation.landStyleId = m_probe.landStyleId(explanation.level);
    if (!explanation.landStyleId) return;
    const RecordVisits record = visitsTo(_orvik_framework::EMAPCUSTOMSTYLE_LAND, explanation.level);
    static const std::size_t fill = fieldIndex("fill");
    explanation.land = historyOf(record, fill);
    const History mark = historyOf(record, kMarkField);
    explanation.land.applies = mark.value != 0;
    if (explanation.land.applies && !explanation.land.winner && mark.winner) {
        // Nobody gave the land a fill: its background is that of a customised record all the same.
        explanation.land.winner = *mark.winner;
        explanation.land.winner->value = explanation.land.value;
    }
    if (explanation.land.applies) return;
    const History lost = std::exchange(explanation.land, {});
    addAsLost(explanation.land, lost, {{}, LossKind::TakenOut, lastStepOn(record), -1});
}

void Explainer::explainGrid(Explanation& explanation) const {
    History& grid = explanation.grid;
    for (const std::size_t step : m_gridSteps) {
        const auto color = m_style.steps()[step].gridColor;
        if (grid.winner) grid.losses.push_back({*grid.winner, LossKind::Overwritten, step, -1});
        grid.winner = Write{step, _orvik_framework::EMAPCUSTOMSTYLE_GRID, {}, *color};
        grid.value = *color;
        grid.applies = true;
    }
}

}  // namespace customstyle_tool
