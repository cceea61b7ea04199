#include "tools/layout/Layout.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "tools/layout/Columns.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kRoomForRule = kRuleWidth - kIndent - 1;  // a comma may follow

bool isContainer(JsonValue value) {
    return value.kind() == JsonKind::Array || value.kind() == JsonKind::Object;
}

const char* opening(JsonValue container) {
    return container.kind() == JsonKind::Array ? "[" : "{";
}

const char* closing(JsonValue container) {
    return container.kind() == JsonKind::Array ? "]" : "}";
}

std::size_t beginOf(JsonValue value) {
    return value.isMember() ? value.nameRange().begin : value.range().begin;
}

std::string_view nameOf(std::string_view text, JsonValue member) {
    const TextRange range = member.nameRange();
    return text.substr(range.begin, range.size());
}

// Writes values without line breaks, and gives up when the line is full.
class OneLine {
public:
    OneLine(std::string_view text, std::size_t room) : m_text(text), m_room(room) {}

    /// A member comes with its name.
    bool append(JsonValue value) {
        if (value.isMember() && !(take(nameOf(m_text, value)) && take(": "))) return false;
        if (!isContainer(value)) return take(value.source());
        return take(opening(value)) && appendChildren(value) && take(closing(value));
    }

    const std::string& text() const { return m_line; }

private:
    bool appendChildren(JsonValue value) {
        const char* separator = "";
        for (const JsonValue child : value.children()) {
            if (!take(separator) || !append(child)) return false;
            separator = ", ";
        }
        return true;
    }

    bool take(std::string_view piece) {
        const std::size_t width = widthOf(piece);
        if (width > m_room) return false;
        m_room -= width;
        m_line += piece;
        return true;
    }

    std::string_view m_text;
    std::size_t m_room;
    std::string m_line;
};

std::optional<std::string> onOneLine(std::string_view text, JsonValue value, std::size_t room) {
    OneLine line(text, room);
    if (!line.append(value)) return {};
    return line.text();
}

std::optional<Row> rowOf(std::string_view text, JsonValue rule) {
    if (rule.kind() != JsonKind::Object || rule.isMember() || rule.children().empty()) return {};
    if (!onOneLine(text, rule, kRoomForRule)) return {};
    Row row;
    for (const JsonValue member : rule.children()) {
        if (!row.cells.empty()) row.cells.back() += ",";
        row.names += nameOf(text, member);
        row.cells.push_back(*onOneLine(text, member, kRoomForRule));
    }
    return row;
}

// Each rule's row, for those that have one.
std::vector<std::optional<Row>> alignedRows(std::string_view text, JsonValue root) {
    std::vector<std::optional<Row>> rows;
    for (const JsonValue rule : root.children()) rows.push_back(rowOf(text, rule));
    std::vector<Row*> present;
    for (std::optional<Row>& row : rows) {
        if (row) present.push_back(&*row);
    }
    alignColumns(present, kRoomForRule);
    return rows;
}

// Whether an author's blank line is before, or after, the comma in the text between two rules.
bool hasBlankLine(std::string_view between) {
    const std::string_view beforeComma = between.substr(0, between.find(','));
    const std::string_view behindComma = between.substr(beforeComma.size());
    return std::ranges::count(beforeComma, '\n') > 1 || std::ranges::count(behindComma, '\n') > 1;
}

const char* lineEndOf(std::string_view text) {
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && end > 0 && text[end - 1] == '\r' ? "\r\n" : "\n";
}

class Printer {
public:
    explicit Printer(std::string_view text) : m_text(text), m_lineEnd(lineEndOf(text)) {}

    std::string print(JsonValue root) {
        if (isContainer(root) && !root.children().empty()) {
            printRules(root);
        } else {
            printValue(root, 0);
        }
        return m_out + m_lineEnd;
    }

private:
    void printRules(JsonValue root) {
        const std::vector<std::optional<Row>> rows = alignedRows(m_text, root);
        m_out += opening(root);
        std::optional<JsonValue> before;
        for (const JsonValue rule : root.children()) {
            beginRule(rule, before);
            const std::optional<Row>& row = rows[rule.position()];
            row ? void(m_out += textOf(*row)) : printValue(rule, kIndent);
            before = rule;
        }
        endLine(0);
        m_out += closing(root);
    }

    void beginRule(JsonValue rule, std::optional<JsonValue> before) {
        if (before) {
            m_out += ",";
            const std::size_t end = before->range().end;
            if (hasBlankLine(m_text.substr(end, beginOf(rule) - end))) m_out += m_lineEnd;
        }
        endLine(kIndent);
    }

    void printValue(JsonValue value, std::size_t indent) {
        const std::size_t room = kLineWidth - std::min(kLineWidth, indent + 1);
        const std::optional<std::string> line = onOneLine(m_text, value, room);
        if (line || !isContainer(value)) return printUnbroken(value, line);
        printName(value);
        m_out += opening(value);
        const char* separator = "";
        for (const JsonValue child : value.children()) {
            m_out += separator;
            endLine(indent + kIndent);
            printValue(child, indent + kIndent);
            separator = ",";
        }
        if (!value.children().empty()) endLine(indent);
        m_out += closing(value);
    }

    void printUnbroken(JsonValue value, const std::optional<std::string>& line) {
        if (line) {
            m_out += *line;
        } else {
            printName(value);
            m_out += value.source();
        }
    }

    void printName(JsonValue value) {
        if (!value.isMember()) return;
        m_out += nameOf(m_text, value);
        m_out += ": ";
    }

    void endLine(std::size_t indent) {
        m_out += m_lineEnd;
        m_out.append(indent, ' ');
    }

    std::string_view m_text;
    const char* m_lineEnd;
    std::string m_out;
};

}  // namespace

std::string laidOut(const JsonDocument& document) {
    return Printer(document.text()).print(document.root());
}

}  // namespace customstyle_tool
