#include "tests/json/ComponentComparison.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <vector>

#include "tests/support/StyleBuilder.h"
#include "tools/json/JsonDocument.h"

namespace customstyle_test {
namespace {

using customstyle_tool::JsonChildren;
using customstyle_tool::JsonDocument;
using customstyle_tool::JsonError;
using customstyle_tool::JsonKind;
using customstyle_tool::JsonValue;
using customstyle_tool::parseJson;

int typeOf(JsonKind kind) {
    constexpr int kTypes[] = {cJSON_NULL,   cJSON_False, cJSON_True,  cJSON_Number,
                              cJSON_String, cJSON_Array, cJSON_Object};
    return kTypes[static_cast<int>(kind)];
}

// The component's parser keeps what it decodes after a NUL, but nobody sees it.
bool sameText(const char* expected, const std::string& visible, const std::string& whole) {
    return visible == expected && std::memcmp(expected, whole.c_str(), whole.size() + 1) == 0;
}

bool sameName(const cJSON& expected, const JsonValue& value) {
    if (expected.string == nullptr) return !value.isMember() && value.name().empty();
    return value.isMember() && sameText(expected.string, value.name(), value.wholeName());
}

bool sameScalar(const cJSON& expected, const JsonValue& value) {
    // The sign of a zero counts, too.
    if (std::bit_cast<std::uint64_t>(expected.valuedouble) != std::bit_cast<std::uint64_t>(value.number()))
        return false;
    if (expected.valueint != value.integer()) return false;
    if (expected.valuestring == nullptr) return value.wholeText().empty();
    return sameText(expected.valuestring, value.text(), value.wholeText());
}

const char* differenceOfValue(const cJSON& expected, const JsonValue& value) {
    if (expected.type != typeOf(value.kind())) return "another kind";
    if (!sameScalar(expected, value)) return "another content";
    const JsonChildren children = value.children();
    auto child = children.begin();
    for (const cJSON* node = expected.child; node != nullptr; node = node->next, ++child) {
        if (child == children.end()) return "too few children";
        if (!sameName(*node, *child)) return "another name";
        if (const char* difference = differenceOfValue(*node, *child)) return difference;
    }
    return child == children.end() ? nullptr : "too many children";
}

std::size_t endOfValue(std::string_view text) {
    const char* end = nullptr;
    const Tree tree(cJSON_ParseWithLengthOpts(text.data(), text.size(), &end, 0));
    return static_cast<std::size_t>(end - text.data());
}

std::string differenceOfRefusal(const JsonError& error, std::size_t textSize, bool accepted) {
    if (accepted) return "refused: " + std::string(error.reason());
    if (error.offset > textSize) return "an error beyond the text";
    return error.reason().empty() ? "an error without a reason" : "";
}

std::string differenceOfDocument(const JsonDocument& document, const cJSON* expected) {
    if (expected == nullptr) return "accepted";
    if (document.root().isMember()) return "a name for the outermost value";
    if (document.root().range().end != endOfValue(document.text())) return "another end";
    const char* difference = differenceOfValue(*expected, document.root());
    return difference == nullptr ? "" : difference;
}

std::string misplacedBelow(const JsonValue& value) {
    const std::string_view source = value.source();
    const Tree tree(_orvik_vi::cJSON_Parse(source, 1));
    if (tree == nullptr || endOfValue(source) != source.size()) return value.path() + " has a wrong range";
    if (differenceOfValue(*tree, value) != nullptr) return value.path() + " has the range of another value";
    for (const JsonValue child : value.children()) {
        if (child.parent() != value) return child.path() + " has a wrong parent";
        if (std::string misplaced = misplacedBelow(child); !misplaced.empty()) return misplaced;
    }
    return "";
}

}  // namespace

std::string differenceToComponent(std::string_view text) {
    // A buffer without a byte to spare, so that sanitizers see a read beyond it.
    const std::vector<char> bytes(text.begin(), text.end());
    const std::string_view exact(bytes.data(), bytes.size());
    const Tree tree(_orvik_vi::cJSON_Parse(exact, 1));
    const auto result = parseJson(exact);
    if (const auto* error = std::get_if<JsonError>(&result)) {
        return differenceOfRefusal(*error, text.size(), tree != nullptr);
    }
    return differenceOfDocument(std::get<JsonDocument>(result), tree.get());
}

std::string misplacedValue(std::string_view text) {
    const auto result = parseJson(text);
    const auto* document = std::get_if<JsonDocument>(&result);
    return document == nullptr ? "" : misplacedBelow(document->root());
}

}  // namespace customstyle_test
