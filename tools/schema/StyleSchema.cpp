#include "tools/schema/StyleSchema.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/schema/NumberPattern.h"
#include "tools/schema/RuleTable.h"
#include "tools/vocabulary/Descriptions.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/RemarkMembers.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Json = nlohmann::ordered_json;

constexpr char kColorPattern[] = "^#[0-9A-Fa-f]{6}(?:[0-9A-Fa-f]{2})?$";
constexpr char kOpaqueColorPattern[] = "^#[0-9A-Fa-f]{6}(?:[Ff]{2})?$";

Json elementConstants() {
    Json list = Json::array();
    for (const auto& [path, title] : elements()) list.push_back({{"const", path}, {"title", title}});
    return list;
}

std::string featureTypeNote(const CustomConfig& component, int type) {
    const int companion = component.UpdateFeatureTypeId(type);
    std::string note = fmt::format("Feature type {}.", type);
    if (companion != -1 && companion != type) {
        note += fmt::format(" Rules for its labels reach {} as well.", component.GetFeatureTypeName(companion));
    }
    if (component.IsParentFeatureType(type) != 0) note += " Answers for what no other type customises.";
    return note;
}

Json featureTypeSchema() {
    const CustomConfig component;
    Json names = Json::array();
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        const std::string name = component.GetFeatureTypeName(type);
        names.push_back({{"const", name},
                         {"title", titleOf(featureTypeDescriptions(), name)},
                         {"description", featureTypeNote(component, type)}});
    }
    return {{"title", "Feature type"}, {"description", "What the rule is about"}, {"type", "string"}, {"oneOf", names}};
}

// A schema that any value meets, behind one that editors take their proposals from.
Json proposals(const Json& schema) {
    return Json::array({schema, Json::object()});
}

// The elements on which a group's types take any styler at all.
std::vector<ElementClass> elementsOf(const TypeGroup& group) {
    std::vector<ElementClass> elements;
    for (const StylerColumn& column : group.columns) {
        elements.insert(elements.end(), column.elements.begin(), column.elements.end());
    }
    return elements;
}

Json elementTypeSchema(const std::vector<TypeGroup>& groups) {
    std::vector<ElementClass> elements;
    for (const TypeGroup& group : groups) {
        const std::vector<ElementClass> ofGroup = elementsOf(group);
        elements.insert(elements.end(), ofGroup.begin(), ofGroup.end());
    }
    return {{"title", "Element"},
            {"description", "Which part of the feature the rule styles: a path of which the last word counts"},
            {"type", "string"},
            {"pattern", patternOf(elements)},
            {"anyOf", proposals({{"oneOf", elementConstants()}})}};
}

int levelOfText(const CustomConfig& component, const std::string& text) {
    const Json stylers{{"level", text}};
    int level = 0;
    component.ParseCustomStyleGivenLevel(componentTree(stylers.dump()).get(), &level);
    return level;
}

Json levelValue() {
    const CustomConfig component;
    std::vector<std::string> levels;
    const int highest = levelOfText(component, "1000");
    for (int i = levelOfText(component, "-1000"); i <= highest; ++i) levels.push_back(std::to_string(i));
    return {{"pattern", fmt::format(R"(^[\t-\r ]*\+?0*(?:{})$)", fmt::join(levels, "|"))},
            {"anyOf", proposals({{"enum", levels}})}};
}

Json sizeValue() {
    const CustomConfig component;
    return {{"pattern", patternOfNumbersTo(component.CalculateWeightValue("99999"))}, {"examples", {"1", "2", "12"}}};
}

Json valueOf(StylerKind kind) {
    switch (kind) {
        case StylerKind::Color:
            return {{"pattern", kColorPattern}, {"examples", {"#3366cc", "#3366cc80"}}};
        case StylerKind::Visibility:
            return {{"enum", {"on", "off"}}};
        case StylerKind::Size:
            break;
    }
    return sizeValue();
}

Json memberSchema(std::string_view name, std::string_view title, const Json& value) {
    Json schema{{"title", name}, {"description", title}, {"type", "string"}};
    schema.update(value);
    return schema;
}

Json stylersSchema() {
    Json members = Json::object();
    Json anyOf = Json::array();
    for (const Styler& styler : stylers()) {
        members[std::string(styler.name)] = memberSchema(styler.name, styler.title, valueOf(styler.kind));
        anyOf.push_back({{"required", {styler.name}}});
    }
    members[std::string(kLevelMember)] = memberSchema(kLevelMember, kLevelTitle, levelValue());
    return {{"title", "Stylers"},    {"description", "The values, all of them texts"}, {"type", "object"},
            {"properties", members}, {"patternProperties", {{remarkPattern(), true}}}, {"additionalProperties", false},
            {"anyOf", anyOf}};
}

Json stylerMember(const std::string& name, const Json& schema) {
    return {{"properties", {{"stylers", {{"properties", {{name, schema}}}}}}}};
}

// What is left of a styler where one value of it, or any, does not work.
Json remainderOf(const StylerValue& styler) {
    if (styler.value == "on") return {{"enum", {"off"}}};
    if (styler.value == "off") return {{"enum", {"on"}}};
    return false;
}

Json columnSchema(const StylerColumn& column) {
    Json refused = stylerMember(column.styler.name, remainderOf(column.styler));
    if (column.elements.empty()) return refused;
    const Json works{{"properties", {{"elementType", {{"pattern", patternOf(column.elements)}}}}}};
    return {{"if", {{"not", works}}}, {"then", refused}};
}

Json groupSchema(const TypeGroup& group) {
    Json conditions = Json::array();
    conditions.push_back({{"properties", {{"elementType", {{"pattern", patternOf(elementsOf(group))}}}}}});
    for (const StylerColumn& column : group.columns) conditions.push_back(columnSchema(column));
    if (group.ignoresAlpha) conditions.push_back(stylerMember("color", {{"pattern", kOpaqueColorPattern}}));
    const Json isOfGroup{{"properties", {{"featureType", {{"enum", group.names}}}}}, {"required", {"featureType"}}};
    return {{"if", isOfGroup}, {"then", {{"allOf", conditions}}}};
}

Json ruleSchema(const std::vector<TypeGroup>& groups) {
    Json conditions = Json::array();
    for (const TypeGroup& group : groups) conditions.push_back(groupSchema(group));
    const Json members{
        {"featureType", featureTypeSchema()}, {"elementType", elementTypeSchema(groups)}, {"stylers", stylersSchema()}};
    return {{"title", "Rule"},
            {"description", "Styles one element of one feature type; later rules add to earlier ones"},
            {"type", "object"},
            {"required", {"featureType", "elementType", "stylers"}},
            {"properties", members},
            {"patternProperties", {{remarkPattern(), true}}},
            {"additionalProperties", false},
            {"allOf", conditions}};
}

}  // namespace

nlohmann::ordered_json styleSchema() {
    return {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
            {"title", "Custom map style"},
            {"description", "The rules of a custom map style, applied from first to last"},
            {"type", "array"},
            {"items", ruleSchema(typeGroups())}};
}

}  // namespace customstyle_tool
