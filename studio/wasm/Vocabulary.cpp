#include "studio/wasm/Vocabulary.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/schema/RuleTable.h"
#include "tools/vocabulary/Descriptions.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_studio {
namespace {

using customstyle_tool::ElementClass;
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

Json stylersJson() {
    Json list = Json::array();
    for (const auto& each : customstyle_tool::stylers()) list.push_back({{"word", each.name}, {"title", each.title}});
    list.push_back({{"word", customstyle_tool::kLevelMember}, {"title", customstyle_tool::kLevelTitle}});
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
    const Json vocabulary{{"types", typesJson()}, {"elements", elementsJson()}, {"stylers", stylersJson()}};
    return vocabulary.dump();
}

std::string takesJson() {
    return Json{{"takes", takesTable()}}.dump();
}

}  // namespace customstyle_studio
