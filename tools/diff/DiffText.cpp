#include "tools/diff/DiffText.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/support/PlainText.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/JsonParts.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/StyleFields.h"

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

// Style ids of the mapping of every map mean nothing to people: those under two types are named by these types.
std::string idsPhrase(const JoinedChange& each, const Mapping& mapping) {
    if (each.wholeType) return "";
    if (mapping.kind() != Mapping::Kind::EveryMap) return fmt::format(" ({})", rangesText(each.styleIds));
    std::vector<std::string> pairs;
    for (const unsigned int styleId : each.styleIds) {
        std::vector<std::string> names;
        for (const int type : mapping.typesOf(styleId)) names.push_back(typeText(type));
        pairs.push_back(fmt::format("{}", fmt::join(names, " and ")));
    }
    return fmt::format(" (style ids under both {})", fmt::join(pairs, ", both "));
}

std::string shownValue(const Question& question, const Value& value, Swatches swatches) {
    const std::string swatch = value && isColor(question) ? swatchOf(*value, swatches) : "";
    return swatch + valueText(question, value);
}

std::string shownType(int featureType, Swatches swatches) {
    const std::string text = typeText(featureType);
    return swatches == Swatches::Shown ? fmt::format("\033[1m{}\033[0m", text) : text;
}

std::string lineOf(const JoinedChange& each, const Mapping& mapping, Swatches swatches) {
    const Change& change = each.change;
    return fmt::format("{}{}  {}  {}: {} -> {}{}\n", shownType(each.featureType, swatches), idsPhrase(each, mapping),
                       questionText(change.question), levelsPhrase(each.levels),
                       shownValue(change.question, change.before, swatches),
                       shownValue(change.question, change.after, swatches), rulesText(change));
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
    return {{"rule", styler->rule}, {"file", styler->file}, {"line", styler->line}, {"column", styler->column}};
}

Json changeJson(const JoinedChange& each) {
    const Change& change = each.change;
    const bool isOfAType = each.featureType != kEveryType && each.featureType != kNoType;
    return {{"feature_type", isOfAType ? Json(typeText(each.featureType)) : Json(nullptr)},
            {"ids", each.styleIds},
            {"field", memberName(questionText(change.question))},
            {"levels", levelsJson(each.levels)},
            {"a", valueJson(change.question, change.before)},
            {"b", valueJson(change.question, change.after)},
            {"a_from", stylerJson(change.beforeBy)},
            {"b_from", stylerJson(change.afterBy)}};
}

}  // namespace

std::string diffText(std::span<const JoinedChange> changes, const Mapping& mapping, Swatches swatches) {
    std::string text;
    for (const JoinedChange& each : changes) text += lineOf(each, mapping, swatches);
    return text;
}

std::string diffSummary(std::span<const JoinedChange> changes, const Mapping& mapping) {
    const bool isEveryMap = mapping.kind() == Mapping::Kind::EveryMap;
    if (changes.empty()) return fmt::format("equal on {}\n", mapping.name());
    return fmt::format("{} {}, compared on {}{}\n", changes.size(), changes.size() == 1 ? "change" : "changes",
                       mapping.name(), isEveryMap ? ": give --mapping DIR for yours" : "");
}

std::string diffJson(std::span<const JoinedChange> changes, const Mapping& mapping) {
    Json list = Json::array();
    for (const JoinedChange& each : changes) list.push_back(changeJson(each));
    return jsonText({{"version", 1}, {"equivalent", changes.empty()}, {"mapping", mapping.name()}, {"changes", list}},
                    2);
}

}  // namespace customstyle_tool
