#include "tools/export/LevelExpression.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace customstyle_tool {
namespace {

constexpr int kHighestZoom = 24;

struct Choice {
    LegendJson value;
    std::vector<unsigned int> ids;
};

std::vector<Choice> choicesAt(const LayerAnswers& answers, int level, const ValueOf& value) {
    std::vector<Choice> choices;
    for (const AnswerGroup& group : answers.at(level)) {
        LegendJson wanted = value(group.answer, level);
        if (wanted.is_null()) continue;
        auto choice = std::ranges::find(choices, wanted, &Choice::value);
        if (choice == choices.end()) choice = choices.insert(choices.end(), {std::move(wanted), {}});
        choice->ids.insert(choice->ids.end(), group.ids.begin(), group.ids.end());
    }
    std::ranges::stable_sort(choices, std::ranges::greater(), [](const Choice& choice) { return choice.ids.size(); });
    return choices;
}

// Tiles hold style ids of the mapping only, so that the most common value needs no list.
LegendJson matched(const std::string& idProperty, std::vector<Choice> choices) {
    LegendJson match = LegendJson::array({"match", LegendJson::array({"get", idProperty})});
    for (std::size_t i = 1; i < choices.size(); ++i) {
        std::ranges::sort(choices[i].ids);
        match.push_back(choices[i].ids);
        match.push_back(std::move(choices[i].value));
    }
    match.push_back(std::move(choices.front().value));
    return match;
}

}  // namespace

ZoomRange zoomRangeOf(const LegendLayer& layer, int offset) {
    const int highest = kHighestZoom + offset;
    return {offset, std::clamp(layer.firstLevel.value_or(offset), offset, highest),
            std::clamp(layer.lastLevel.value_or(highest), offset, highest)};
}

LegendJson steppedOver(const ZoomRange& zooms, const std::function<LegendJson(int level)>& valueAt) {
    LegendJson step = LegendJson::array({"step", LegendJson::array({"zoom"}), nullptr});
    LegendJson last;
    for (int level = zooms.firstLevel; level <= zooms.lastLevel; ++level) {
        LegendJson value = valueAt(level);
        if (level != zooms.firstLevel && value == last) continue;
        if (level == zooms.firstLevel) {
            step[2] = value;
        } else {
            step.push_back(zooms.zoomOf(level));
            step.push_back(value);
        }
        last = std::move(value);
    }
    return step.size() == 3 ? last : step;
}

LegendJson expressionOf(const LayerContext& context, const ValueOf& value, Losses& losses) {
    if (context.layer.idProperty.empty()) return levelExpressionOf(context, value, LossCode::IdsNotToldApart, losses);
    return steppedOver(context.zooms, [&](int level) {
        std::vector<Choice> choices = choicesAt(context.answers, level, value);
        return choices.size() == 1 ? choices.front().value : matched(context.layer.idProperty, std::move(choices));
    });
}

LegendJson levelExpressionOf(const LayerContext& context, const ValueOf& value, LossCode loss, Losses& losses) {
    return steppedOver(context.zooms, [&](int level) {
        std::vector<Choice> choices = choicesAt(context.answers, level, value);
        if (choices.size() > 1) losses.add(loss, context.layer.featureType, classOfLevel(level));
        return std::move(choices.front().value);
    });
}

}  // namespace customstyle_tool
