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

// The values of a record that does not answer are lost as well.
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

Explainer::Explainer(const StyleStudy& style) : m_style(style), m_probe(style) {
    const auto hider = std::ranges::find_if(style.steps(), &ReplayStep::hidesEveryIcon);
    if (hider != style.steps().end()) m_hidesEveryIcon = static_cast<std::size_t>(hider - style.steps().begin());
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        for (const int styleId : style.mapping().idsOf(type)) m_featureTypes[styleId].push_back(type);
    }
}

std::vector<int> Explainer::featureTypesOf(int styleId) const {
    const auto found = m_featureTypes.find(styleId);
    return found == m_featureTypes.end() ? std::vector<int>{} : found->second;
}

// The key whose record a question about the type asks for.
StyleKey Explainer::keyInEffect(int featureType, int level) const {
    const std::string levelKey = fmt::format("{}:{}", featureType, level);
    const bool isOfLevel = m_style.config().IsStyleEffectAtGivenLevel(levelKey.c_str()) != 0;
    return {featureType, isOfLevel ? std::optional(level) : std::nullopt};
}

History Explainer::historyOf(const StyleKey& key, std::size_t field) const {
    return m_style.history().historyOf(key, field);
}

std::optional<std::size_t> Explainer::lastStepOn(const StyleKey& key) const {
    const RecordStory* const story = m_style.history().storyOf(key);
    return story == nullptr ? std::nullopt : std::optional(story->lastStep);
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
    explanation.grid = m_style.history().gridHistory();
    return explanation;
}

void Explainer::explainRecords(Explanation& explanation) {
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
        explanation.fields[field].applies = styleFields()[field].applies == nullptr;
    }
    for (const int featureType : explanation.featureTypes) explainType(explanation, featureType);
    for (History& history : explanation.fields) sortLosses(history);
}

// How the values of a record are lost when its type does not answer.
Loss Explainer::howSilent(const Explanation& explanation, const StyleKey& key) const {
    const CustomConfig& config = m_style.config();
    if (isCustomised(config, key.featureType, explanation.styleId, explanation.level)) {
        return answeredBy(config, key.featureType, explanation.featureType);
    }
    if (historyOf(key, kMarkField).value != 0) return {{}, LossKind::NeverFound, {}, -1};
    return {{}, LossKind::TakenOut, lastStepOn(key), -1};
}

void Explainer::explainType(Explanation& explanation, int featureType) {
    const StyleKey key = keyInEffect(featureType, explanation.level);
    const bool answers = featureType == explanation.featureType;
    const Loss how = howSilent(explanation, key);
    if (answers) explanation.keyLevel = key.level;
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
        const History own = historyOf(key, field);
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

// The icon histories of the types under which the style id is listed.
std::map<int, History> Explainer::iconHistories(const Explanation& explanation) const {
    std::map<int, History> histories;
    for (const int type : explanation.featureTypes) {
        histories[type] = historyOf(keyInEffect(type, explanation.level), kIconField);
    }
    return histories;
}

void Explainer::explainOneIcon(Explanation& explanation) {
    const auto& asked = explanation.iconTypes =
        m_probe.iconTypes(explanation.styleId, explanation.level, explanation.featureTypes);
    const std::map<int, History> histories = iconHistories(explanation);
    // Where several types are asked, each may hide the icon; those that show it lose to one that hides it.
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
    const StyleKey key = keyInEffect(_orvik_framework::EMAPCUSTOMSTYLE_LAND, explanation.level);
    static const std::size_t fill = fieldIndex("fill");
    explanation.land = historyOf(key, fill);
    const History mark = historyOf(key, kMarkField);
    explanation.land.applies = mark.value != 0;
    if (explanation.land.applies && !explanation.land.winner && mark.winner) {
        // No rule gave the land a fill, but its background is still that of a customised record.
        explanation.land.winner = *mark.winner;
        explanation.land.winner->value = explanation.land.value;
    }
    if (explanation.land.applies) return;
    const History lost = std::exchange(explanation.land, {});
    addAsLost(explanation.land, lost, {{}, LossKind::TakenOut, lastStepOn(key), -1});
}

}  // namespace customstyle_tool
