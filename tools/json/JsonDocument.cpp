#include "tools/json/JsonDocument.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "tools/json/JsonScalars.h"
#include "tools/json/JsonTree.h"

namespace customstyle_tool {
namespace {

std::string_view between(const JsonTree& tree, std::size_t begin, std::size_t end) {
    return tree.text.substr(begin, end - begin);
}

// A text of the document without its quotes, decoded.
std::string decoded(std::string_view quoted) {
    std::string text;
    decodeText(quoted.substr(1, quoted.size() - 2), text);  // was checked when the document was read
    return text;
}

std::string cutAtNul(std::string text) {
    text.resize(std::min(text.find('\0'), text.size()));
    return text;
}

bool isPlainName(std::string_view name) {
    const auto isPlain = [](char byte) { return isLetter(byte) || isDigit(byte) || byte == '_'; };
    return !name.empty() && !isDigit(name.front()) && std::ranges::all_of(name, isPlain);
}

std::string quotedName(std::string_view name) {
    std::string text = "[\"";
    for (const char byte : name) {
        if (isBlank(byte) && byte != ' ') {
            text += fmt::format("\\u{:04x}", static_cast<unsigned char>(byte));
        } else {
            if (byte == '"' || byte == '\\') text += '\\';
            text += byte;
        }
    }
    return text + "\"]";
}

std::string pathStep(const JsonValue& value) {
    if (!value.isMember()) return fmt::format("[{}]", value.position());
    const std::string name = value.wholeName();
    return isPlainName(name) ? "." + name : quotedName(name);
}

}  // namespace

JsonKind JsonValue::kind() const {
    return m_tree->nodes[m_node].kind;
}

TextRange JsonValue::range() const {
    const JsonNode& node = m_tree->nodes[m_node];
    return {node.begin, node.end};
}

std::string_view JsonValue::source() const {
    return between(*m_tree, range().begin, range().end);
}

bool JsonValue::isMember() const {
    return nameRange().size() > 0;
}

std::string JsonValue::name() const {
    return cutAtNul(wholeName());
}

std::string JsonValue::wholeName() const {
    const auto [begin, end] = nameRange();
    return begin == end ? std::string() : decoded(between(*m_tree, begin, end));
}

TextRange JsonValue::nameRange() const {
    const JsonNode& node = m_tree->nodes[m_node];
    return {node.nameBegin, node.nameEnd};
}

std::string JsonValue::text() const {
    return cutAtNul(wholeText());
}

std::string JsonValue::wholeText() const {
    return kind() == JsonKind::String ? decoded(source()) : std::string();
}

double JsonValue::number() const {
    return kind() == JsonKind::Number ? numberValue(source()) : 0.0;
}

int JsonValue::integer() const {
    if (kind() == JsonKind::True) return 1;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(number(), Limits::min(), Limits::max()));
}

JsonChildren JsonValue::children() const {
    const std::uint32_t behind = m_tree->nodes[m_node].behind;
    return {{*m_tree, m_node + 1}, {*m_tree, behind}};
}

std::size_t JsonValue::position() const {
    return m_tree->nodes[m_node].position;
}

std::optional<JsonValue> JsonValue::parent() const {
    if (m_node == 0) return {};
    return JsonValue(*m_tree, m_tree->nodes[m_node].parent);
}

std::string JsonValue::path() const {
    std::string way;
    JsonValue value = *this;
    while (const std::optional<JsonValue> parent = value.parent()) {
        way.insert(0, pathStep(value));
        value = *parent;
    }
    return "$" + way;
}

std::optional<JsonValue> JsonValue::firstMemberIgnoringCase(std::string_view wanted) const {
    if (kind() != JsonKind::Object) return {};
    for (const JsonValue member : children()) {
        if (equalIgnoringCase(member.name(), wanted)) return member;
    }
    return {};
}

JsonChildren::Iterator& JsonChildren::Iterator::operator++() {
    m_node = m_tree->nodes[m_node].behind;
    return *this;
}

JsonChildren::Iterator JsonChildren::Iterator::operator++(int) {
    const Iterator before = *this;
    ++*this;
    return before;
}

std::string_view JsonDocument::text() const {
    return m_tree->text;
}

std::optional<std::size_t> JsonDocument::ignoredTextBegin() const {
    const std::size_t behind = behindBlanks(text(), root().range().end);
    if (behind == text().size()) return {};
    return behind;
}

}  // namespace customstyle_tool
