#include "tools/diff/DiffText.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/explain/RangesText.h"
#include "tools/support/FeatureTypes.h"
#include "tools/support/JsonParts.h"
#include "tools/support/RecordText.h"
#include "tools/support/StyleFields.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;
using Value = std::optional<std::uint64_t>;

std::string typeText(int featureType) {
    if (featureType == kEveryType) return "every type";
    if (featureType == kNoType) return "style ids outside the mapping";
    return catalogue().GetFeatureTypeName(featureType);
}

bool isColor(const Question& question) {
    return question.subject == Subject::Background ||
           (question.subject == Subject::Field && styleFields()[question.field].kind == FieldKind::Color);
}

bool isIcon(const Question& question) {
    return question.subject == Subject::Icon || (question.subject == Subject::Field && question.field == kIconField);
}

std::string questionText(const Question& question) {
    switch (question.subject) {
        case Subject::FeatureType:
            return "feature type";
        case Subject::Icon:
            return "icon";
        case Subject::Background:
            return "background";
        case Subject::Field:
            break;
    }
    return question.field == kIconField ? "icon flag of the record" : styleFields()[question.field].name;
}

std::string valueText(const Question& question, const Value& value) {
    if (!value) return isIcon(question) ? "shown" : "not customised";
    if (question.subject == Subject::FeatureType) return typeText(static_cast<int>(*value));
    if (isIcon(question)) return *value != 0 ? "hidden" : "shown";
    if (!isColor(question)) return fmt::format("{}", *value);
    return alphaOf(*value) == 0xFF ? rgbText(*value) : colorText(*value);
}

std::string rulesText(const Change& change) {
    std::vector<std::string> parts;
    if (change.beforeBy) parts.push_back(fmt::format("A rule {}", change.beforeBy->rule));
    if (change.afterBy) parts.push_back(fmt::format("B rule {}", change.afterBy->rule));
    return parts.empty() ? "" : fmt::format("  ({})", fmt::join(parts, ", "));
}

std::string lineOf(const JoinedChange& each) {
    const Change& change = each.change;
    const std::string ids = each.wholeType ? "" : fmt::format(" ({})", idsText(each.styleIds));
    return fmt::format("{}{}  {}  {}: {} -> {}{}\n", typeText(each.featureType), ids, questionText(change.question),
                       levelsPhrase(each.levels), valueText(change.question, change.before),
                       valueText(change.question, change.after), rulesText(change));
}

Json valueJson(const Question& question, const Value& value) {
    if (isIcon(question)) return valueText(question, value);
    if (!value) return nullptr;
    if (isColor(question)) return colorJson(*value);
    if (question.subject == Subject::FeatureType) return valueText(question, value);
    return *value;
}

Json stylerJson(const std::optional<StylerPlace>& styler) {
    if (!styler) return nullptr;
    return {{"rule", styler->rule}, {"line", styler->line}, {"column", styler->column}};
}

Json changeJson(const JoinedChange& each) {
    const Change& change = each.change;
    return {{"feature_type", each.featureType < 0 ? Json(nullptr) : Json(typeText(each.featureType))},
            {"ids", each.styleIds},
            {"field", questionText(change.question)},
            {"levels", levelsJson(each.levels)},
            {"a", valueJson(change.question, change.before)},
            {"b", valueJson(change.question, change.after)},
            {"a_from", stylerJson(change.beforeBy)},
            {"b_from", stylerJson(change.afterBy)}};
}

}  // namespace

std::string diffText(std::span<const JoinedChange> changes) {
    std::string text;
    for (const JoinedChange& each : changes) text += lineOf(each);
    return text;
}

std::string diffJson(std::span<const JoinedChange> changes) {
    Json list = Json::array();
    for (const JoinedChange& each : changes) list.push_back(changeJson(each));
    return Json{{"equivalent", changes.empty()}, {"changes", list}}.dump(2);
}

}  // namespace customstyle_tool
