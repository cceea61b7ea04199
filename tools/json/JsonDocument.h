// JSON as it is in a file: each value with its position, members in order, repeated ones included.
//
// Reads exactly what the component's JSON package reads, with its leniencies: control characters are blanks and may
// be in strings, numbers may start with zeros, and what follows the first value or a NUL byte is ignored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "tools/json/JsonError.h"

namespace customstyle_tool {

struct JsonTree;
class JsonChildren;

enum class JsonKind : std::uint8_t { Null, False, True, Number, String, Array, Object };

/// The bytes [begin, end) of a text.
struct TextRange {
    std::size_t begin;
    std::size_t end;

    std::size_t size() const { return end - begin; }
    bool operator==(const TextRange&) const = default;
};

/// One value of a document: a small handle, to be passed by value, valid while a copy of its document and the text
/// live.
class JsonValue {
public:
    JsonValue() = default;
    JsonValue(const JsonTree& tree, std::uint32_t node) : m_tree(&tree), m_node(node) {}

    JsonKind kind() const;

    /// The position of the value, quotes and brackets included.
    TextRange range() const;

    /// The value as it is written.
    std::string_view source() const;

    bool isMember() const;

    /// The name of a member, decoded; ends before its first NUL, as the component reads it. Empty for other values.
    std::string name() const;

    /// The name, including what follows a NUL.
    std::string wholeName() const;

    /// The position of the name, quotes included; empty at the start of a value that is not a member.
    TextRange nameRange() const;

    /// A text, decoded; ends before its first NUL, as the component reads it. Empty for other kinds.
    std::string text() const;

    /// The text, including what follows a NUL.
    std::string wholeText() const;

    /// A number, infinite if it is too large for a double; 0 for other kinds.
    double number() const;

    /// The number without its fraction, limited to the range of int. True counts as 1, other kinds as 0.
    int integer() const;

    /// The elements of a list or members of an object in their order; none for other kinds.
    JsonChildren children() const;

    /// The index among the children of its parent, from 0.
    std::size_t position() const;

    /// The list or object around the value; none for the outermost value.
    std::optional<JsonValue> parent() const;

    /// The way from the outermost value: `$[3].stylers.color`, `$["odd name"]`. Repeated members have the same path.
    std::string path() const;

    /// The member that the component finds under a name: the first whose name() differs in ASCII letter case only.
    /// None if there is no such member or the value is not an object.
    std::optional<JsonValue> firstMemberIgnoringCase(std::string_view wanted) const;

    /// Whether both are the same value of the same document.
    bool operator==(const JsonValue&) const = default;

private:
    const JsonTree* m_tree = nullptr;
    std::uint32_t m_node = 0;
};

/// The children of a value, for range-based loops and algorithms.
class JsonChildren {
public:
    class Iterator {
    public:
        using value_type = JsonValue;
        using difference_type = std::ptrdiff_t;
        using iterator_concept = std::forward_iterator_tag;

        Iterator() = default;
        Iterator(const JsonTree& tree, std::uint32_t node) : m_tree(&tree), m_node(node) {}

        JsonValue operator*() const { return {*m_tree, m_node}; }
        Iterator& operator++();
        Iterator operator++(int);
        bool operator==(const Iterator&) const = default;

    private:
        const JsonTree* m_tree = nullptr;
        std::uint32_t m_node = 0;
    };

    JsonChildren(Iterator begin, Iterator end) : m_begin(begin), m_end(end) {}

    Iterator begin() const { return m_begin; }
    Iterator end() const { return m_end; }
    bool empty() const { return m_begin == m_end; }

private:
    Iterator m_begin;
    Iterator m_end;
};

/// A text that is JSON. Copies share the tree.
class JsonDocument {
public:
    explicit JsonDocument(std::shared_ptr<const JsonTree> tree) : m_tree(std::move(tree)) {}

    std::string_view text() const;
    JsonValue root() const { return {*m_tree, 0}; }

    /// Offset of the first byte after the outermost value that is not blank: the component ignores it and all after
    /// it.
    std::optional<std::size_t> ignoredTextBegin() const;

private:
    std::shared_ptr<const JsonTree> m_tree;
};

/// Reads a text, which has to outlive the document. Takes linear time, and 32 bytes for each value.
/// Refuses texts of 4 GiB or more.
std::variant<JsonDocument, JsonError> parseJson(std::string_view text);

/// What can be read of a text.
struct JsonReading {
    std::optional<JsonDocument> document;  ///< none if not even an outermost list starts
    std::vector<JsonError> errors;         ///< in the order of reading; none for a text that is JSON
};

/// Reads a text, which has to outlive the document, and continues after an error: list elements that cannot be read are
/// left out.
JsonReading readJson(std::string_view text);

}  // namespace customstyle_tool
