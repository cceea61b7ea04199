#include "tools/schema/StyleSchema.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/schema/NumberPattern.h"
#include "tools/schema/RuleTable.h"
#include "tools/study/SingleRules.h"
#include "tools/vocabulary/Descriptions.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/RemarkMembers.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Json = nlohmann::ordered_json;

// The version is that of the layout of style files, not of this program: editors store schemas under this id.
constexpr char kId[] = "urn:customstyle:style:1";
constexpr char kColorFormat[] = "color-hex";
// Keywords that only editors know; strict validators reject them.
constexpr const char* kEditorWords[] = {"markdownDescription", "errorMessage", "enumDescriptions", "defaultSnippets"};

constexpr char kColorPattern[] = "^#[0-9A-Fa-f]{6}(?:[0-9A-Fa-f]{2})?$";
constexpr char kOpaqueColorPattern[] = "^#[0-9A-Fa-f]{6}(?:[Ff]{2})?$";

Json elementConstants() {
    Json list = Json::array();
    for (const auto& [path, title] : elements()) list.push_back({{"const", path}, {"description", title}});
    return list;
}

std::string elementPaths() {
    std::vector<std::string_view> paths;
    for (const Element& element : elements()) paths.push_back(element.path);
    return fmt::format("{}", fmt::join(paths, ", "));
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

Json featureTypeSchema(SchemaWords words) {
    const CustomConfig component;
    Json constants = Json::array();
    Json names = Json::array();
    Json descriptions = Json::array();
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        const std::string name = component.GetFeatureTypeName(type);
        const std::string description =
            fmt::format("{}. {}", titleOf(featureTypeDescriptions(), name), featureTypeNote(component, type));
        names.push_back(name);
        descriptions.push_back(description);
        constants.push_back({{"const", name}, {"description", description}});
    }
    Json schema{{"title", "Feature type"}, {"description", "What the rule is about"}, {"type", "string"}};
    if (words == SchemaWords::Standard) {
        schema["oneOf"] = constants;
        return schema;
    }
    schema["enum"] = names;
    schema["enumDescriptions"] = descriptions;
    schema["errorMessage"] = "Unknown feature type: the rule is skipped. Names are lower case; highway is one.";
    return schema;
}

// A schema from which editors take their proposals, followed by one that any value meets.
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
            {"errorMessage",
             fmt::format("Unknown element: no styler of the rule does anything. Write one of {}.", elementPaths())},
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
            {"errorMessage", fmt::format(R"(A level is a number from {} to {} in quotes: "{}".)", levels.front(),
                                         levels.back(), levels[levels.size() / 2])},
            {"anyOf", proposals({{"enum", levels}})}};
}

Json sizeValue() {
    const CustomConfig component;
    const int highest = component.CalculateWeightValue("99999");
    return {{"pattern", patternOfNumbersTo(highest)},
            {"errorMessage", fmt::format(R"(Write a whole number from 0 to {} in quotes: "3".)", highest)},
            {"examples", {"1", "2", "12"}}};
}

Json colorValue() {
    return {{"pattern", kColorPattern},
            {"format", kColorFormat},
            {"errorMessage", R"(Write a colour as "#rrggbb", or as "#rrggbbaa" with the alpha last.)"},
            {"examples", {"#3366cc", "#3366cc80"}}};
}

Json visibilityValue() {
    return {{"enum", {"on", "off"}},
            {"enumDescriptions", {"Brings hidden icons back, never colours", "Hides geometry, text and icons"}},
            {"errorMessage", R"(Write "on" or "off".)"}};
}

Json valueOf(StylerKind kind) {
    switch (kind) {
        case StylerKind::Color:
            return colorValue();
        case StylerKind::Visibility:
            return visibilityValue();
        case StylerKind::Size:
            break;
    }
    return sizeValue();
}

Json memberSchema(std::string_view name, std::string_view title, std::string_view example, const Json& value) {
    Json schema{{"title", name},
                {"description", title},
                {"markdownDescription", fmt::format("{}\n\nExample: `\"{}\": \"{}\"`", title, name, example)},
                {"type", "string"}};
    schema.update(value);
    return schema;
}

Json stylersSchema() {
    Json members = Json::object();
    Json anyOf = Json::array();
    for (const Styler& styler : stylers()) {
        const std::string name(styler.name);
        members[name] = memberSchema(name, styler.title, styler.example, valueOf(styler.kind));
        anyOf.push_back({{"properties", {{name, true}}}, {"required", {name}}});
    }
    members[std::string(kLevelMember)] = memberSchema(kLevelMember, kLevelTitle, "15", levelValue());
    return {{"title", "Stylers"},
            {"description", "The values, all of them in quotes"},
            {"errorMessage", fmt::format("Ignored here. The stylers are an object with {}; a remark is called note.",
                                         fmt::join(stylerMembers(), ", "))},
            {"type", "object"},
            {"properties", members},
            {"patternProperties", {{remarkPattern(), true}}},
            {"additionalProperties", false},
            {"anyOf", anyOf}};
}

// A schema for one styler of a rule.
Json stylerMember(const std::string& name, const Json& schema) {
    return {{"properties", {{"stylers", {{"type", "object"}, {"properties", {{name, schema}}}}}}}};
}

// A schema for the element of a rule.
Json elementMember(const std::string& pattern) {
    return {{"properties", {{"elementType", {{"type", "string"}, {"pattern", pattern}}}}}};
}

// "; it works on geometry, geometry.fill", or nothing.
std::string whereItWorks(const std::vector<ElementClass>& classes) {
    std::vector<std::string> paths;
    for (const Element& element : elements()) {
        const std::string path(element.path);
        const bool namesLabels = path.find("labels") != std::string::npos || path.find("all") != std::string::npos;
        const ElementClass own{path.substr(path.find_last_of('.') + 1), namesLabels};
        if (std::ranges::find(classes, own) != classes.end()) paths.push_back(path);
    }
    return paths.empty() ? "" : fmt::format("; it works on {}", fmt::join(paths, ", "));
}

std::string refusalOf(const StylerColumn& column) {
    const auto& [name, value] = column.styler;
    const std::string shown = name == "visibility" ? fmt::format(R"("{}": "{}")", name, value) : name;
    if (column.elements.empty()) return fmt::format("No effect: {} does nothing to this feature type.", shown);
    return fmt::format("No effect: {} does nothing to this element{}.", shown, whereItWorks(column.elements));
}

// What a styler may still be where one of its values, or every value, does not work.
Json remainderOf(const StylerColumn& column) {
    const std::string& value = column.styler.value;
    if (value == "on") return {{"enum", {"off"}}, {"errorMessage", refusalOf(column)}};
    if (value == "off") return {{"enum", {"on"}}, {"errorMessage", refusalOf(column)}};
    return false;
}

Json columnSchema(const StylerColumn& column) {
    Json refused = stylerMember(column.styler.name, remainderOf(column));
    refused["properties"]["stylers"]["errorMessage"] = refusalOf(column);
    if (column.elements.empty()) return refused;
    return {{"if", {{"not", elementMember(patternOf(column.elements))}}}, {"then", refused}};
}

Json opaqueColor() {
    return {{"type", "string"},
            {"pattern", kOpaqueColorPattern},
            {"errorMessage", R"(This feature type is always opaque; write "#rrggbb".)"}};
}

Json groupSchema(const TypeGroup& group) {
    Json conditions = Json::array();
    Json element = elementMember(patternOf(elementsOf(group)));
    element["properties"]["elementType"]["errorMessage"] = fmt::format(
        "No effect: no styler works on this element of this feature type{}.", whereItWorks(elementsOf(group)));
    conditions.push_back(element);
    for (const StylerColumn& column : group.columns) conditions.push_back(columnSchema(column));
    if (group.ignoresAlpha) conditions.push_back(stylerMember("color", opaqueColor()));
    const Json isOfGroup{{"properties", {{"featureType", {{"enum", group.names}}}}}, {"required", {"featureType"}}};
    return {{"if", isOfGroup}, {"then", {{"allOf", conditions}}}};
}

// What an editor writes for a new rule.
Json ruleSnippets() {
    const Json body{{"featureType", "${1:highway}"},
                    {"elementType", "${2:geometry.fill}"},
                    {"stylers", {{"color", "#${3:3366cc}"}}}};
    return Json::array({Json{{"label", "rule"}, {"description", "A rule with a colour"}, {"body", body}}});
}

Json ruleSchema(const std::vector<TypeGroup>& groups, SchemaWords words) {
    Json conditions = Json::array();
    for (const TypeGroup& group : groups) conditions.push_back(groupSchema(group));
    const Json members{{"featureType", featureTypeSchema(words)},
                       {"elementType", elementTypeSchema(groups)},
                       {"stylers", stylersSchema()}};
    return {{"title", "Rule"},
            {"description", "Styles one element of one feature type; later rules add to earlier ones"},
            {"errorMessage", "Ignored here. A rule has featureType, elementType and stylers; a remark is called note."},
            {"defaultSnippets", ruleSnippets()},
            {"type", "object"},
            {"required", {"featureType", "elementType", "stylers"}},
            {"properties", members},
            {"patternProperties", {{remarkPattern(), true}}},
            {"additionalProperties", false},
            {"allOf", conditions}};
}

void dropEditorWords(Json& schema) {
    if (schema.is_object()) {
        for (const char* word : kEditorWords) schema.erase(word);
        if (schema.contains("format") && schema["format"] == kColorFormat) schema.erase("format");
    }
    if (!schema.is_structured()) return;
    for (Json& each : schema) dropEditorWords(each);
}

}  // namespace

nlohmann::ordered_json styleSchema(SchemaWords words) {
    Json schema{{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                {"$id", kId},
                {"title", "Custom map style"},
                {"description", "The rules of a custom map style, applied from first to last"},
                {"errorMessage", "A style is a list of rules."},
                {"type", "array"},
                {"items", ruleSchema(typeGroups(), words)}};
    if (words == SchemaWords::Standard) dropEditorWords(schema);
    return schema;
}

}  // namespace customstyle_tool
