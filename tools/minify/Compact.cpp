#include "tools/minify/Compact.h"

#include <string_view>

namespace customstyle_tool {
namespace {

void append(std::string& out, std::string_view text, JsonValue value) {
    if (value.isMember()) {
        const TextRange name = value.nameRange();
        out.append(text.substr(name.begin, name.size())).append(":");
    }
    const bool isList = value.kind() == JsonKind::Array;
    if (!isList && value.kind() != JsonKind::Object) {
        out += value.source();
        return;
    }
    out += isList ? '[' : '{';
    const char* separator = "";
    for (const JsonValue child : value.children()) {
        out += separator;
        append(out, text, child);
        separator = ",";
    }
    out += isList ? ']' : '}';
}

}  // namespace

std::string compactText(const JsonDocument& document) {
    std::string out;
    append(out, document.text(), document.root());
    return out;
}

}  // namespace customstyle_tool
