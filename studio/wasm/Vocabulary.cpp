#include "studio/wasm/Vocabulary.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/schema/RuleTable.h"
#include "tools/vocabulary/Descriptions.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/JsonParts.h"
#include "tools/vocabulary/Levels.h"
#include "tools/vocabulary/StyleFields.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_studio {
namespace {

using customstyle_tool::ElementClass;
using customstyle_tool::FieldKind;
using customstyle_tool::StyleField;
using customstyle_tool::StylerKind;
using Json = nlohmann::ordered_json;

Json typesJson() {
    Json list = Json::array();
    for (const auto& each : customstyle_tool::featureTypeDescriptions()) {
        list.push_back({{"word", each.word}, {"title", each.title}});
    }
    return list;
}

Json elementsJson() {
    Json list = Json::array();
    for (const auto& each : customstyle_tool::elements()) list.push_back({{"word", each.path}, {"title", each.title}});
    return list;
}

const char* nameOf(StylerKind kind) {
    switch (kind) {
        case StylerKind::Color:
            return "color";
        case StylerKind::Visibility:
            return "visibility";
        case StylerKind::Size:
            break;
    }
    return "size";
}

Json stylersJson() {
    Json list = Json::array();
    for (const auto& each : customstyle_tool::stylers()) {
        list.push_back(
            {{"word", each.name}, {"title", each.title}, {"kind", nameOf(each.kind)}, {"example", each.example}});
    }
    list.push_back(
        {{"word", customstyle_tool::kLevelMember}, {"title", customstyle_tool::kLevelTitle}, {"kind", "level"}});
    return list;
}

// The fields of a record that hold a value, as the answers name them.
Json fieldsJson() {
    Json list = Json::array();
    for (const StyleField& field : customstyle_tool::styleFields()) {
        const bool isColor = field.kind == FieldKind::Color;
        if (!isColor && field.kind != FieldKind::Size) continue;
        list.push_back({{"word", customstyle_tool::memberName(field.name)},
                        {"title", field.name},
                        {"kind", isColor ? "color" : "size"}});
    }
    return list;
}

// The class of an element path: its last word, and whether it reaches labels.
ElementClass classOf(std::string_view path) {
    const bool namesLabels = path.find("labels") != path.npos || path.find("all") != path.npos;
    return {std::string(path.substr(path.rfind('.') + 1)), namesLabels};
}

Json elementsIn(const std::vector<ElementClass>& classes) {
    Json list = Json::array();
    for (const auto& element : customstyle_tool::elements()) {
        if (std::ranges::find(classes, classOf(element.path)) != classes.end()) list.push_back(element.path);
    }
    return list;
}

Json takesTable() {
    Json list = Json::array();
    for (const auto& group : customstyle_tool::typeGroups()) {
        for (const auto& column : group.columns) {
            list.push_back({{"types", group.names},
                            {"styler", column.styler.name},
                            {"value", column.styler.value},
                            {"elements", elementsIn(column.elements)}});
        }
    }
    return list;
}

}  // namespace

std::string vocabularyJson() {
    const Json vocabulary{
        {"types", typesJson()},
        {"elements", elementsJson()},
        {"stylers", stylersJson()},
        {"fields", fieldsJson()},
        {"levels", {{"lowest", customstyle_tool::kLowestLevel}, {"highest", customstyle_tool::kHighestLevel}}}};
    return vocabulary.dump();
}

std::string takesJson() {
    return Json{{"takes", takesTable()}}.dump();
}

}  // namespace customstyle_studio
