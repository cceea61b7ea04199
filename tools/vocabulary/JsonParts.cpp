#include "tools/vocabulary/JsonParts.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {

using Json = nlohmann::ordered_json;

std::string jsonText(const Json& json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

std::string memberName(std::string fieldName) {
    std::ranges::replace(fieldName, ' ', '_');
    return fieldName;
}

Json colorJson(std::uint64_t packedColor) {
    return {{"rgb", rgbText(packedColor)}, {"alpha", alphaOf(packedColor)}};
}

Json styleJson(const _orvik_framework::tagCustomStyle& style) {
    Json members = Json::object();
    for (const FieldText& field : applyingFields(style)) {
        members[memberName(field.name)] = field.isColor ? colorJson(field.value) : Json(field.value);
    }
    return members;
}

Json levelsJson(const LevelSet& levels) {
    Json list = Json::array();
    for (std::size_t levelClass = 0; levelClass < kOtherLevels; ++levelClass) {
        if (levels[levelClass]) list.push_back(levelOfClass(levelClass));
    }
    if (levels[kOtherLevels]) list.push_back("other");
    return list;
}

}  // namespace customstyle_tool
