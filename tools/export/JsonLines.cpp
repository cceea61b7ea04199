#include "tools/export/JsonLines.h"

#include <nlohmann/json.hpp>

#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kWidth = 120;
constexpr std::size_t kIndent = 2;

std::string inlineText(const Json& value) {
    if (!value.is_structured() || value.empty()) return jsonText(value);
    std::string text = value.is_array() ? "[" : "{";
    const char* separator = "";
    for (const auto& item : value.items()) {
        text += separator;
        if (value.is_object()) text += jsonText(item.key()) + ": ";
        text += inlineText(item.value());
        separator = ", ";
    }
    return text + (value.is_array() ? "]" : "}");
}

// @param column  where the value starts in its line
void write(std::string& text, const Json& value, std::size_t indent, std::size_t column) {
    const std::string line = inlineText(value);
    if (!value.is_structured() || column + line.size() < kWidth) {
        text += line;
        return;
    }
    text += value.is_array() ? '[' : '{';
    const char* separator = "\n";
    for (const auto& item : value.items()) {
        text += separator + std::string(indent + kIndent, ' ');
        const std::string key = value.is_object() ? jsonText(item.key()) + ": " : "";
        text += key;
        write(text, item.value(), indent + kIndent, indent + kIndent + key.size());
        separator = ",\n";
    }
    text += '\n' + std::string(indent, ' ') + (value.is_array() ? ']' : '}');
}

}  // namespace

std::string jsonLines(const Json& value) {
    std::string text;
    write(text, value, 0, 0);
    return text + '\n';
}

}  // namespace customstyle_tool
