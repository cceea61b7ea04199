#include "tools/build/BuiltText.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "tools/layout/Layout.h"

namespace customstyle_tool {

// Finds for a piece of the finished text where it was written. Laying a text out moves its values, but keeps them and
// their order.
class BuiltText::Places {
public:
    Places(std::vector<Written> written, const SourceFile& build, std::vector<std::shared_ptr<const SourceFile>> files)
        : m_written(std::move(written)), m_build(&build), m_files(std::move(files)) {}

    // The values of the text, without the outermost list.
    void setText(std::string_view text) {
        const auto document = parseJson(text);
        addRanges(std::get<JsonDocument>(document).root());
    }

    SourceOrigin originOf(TextRange range) const {
        auto next = std::ranges::upper_bound(m_ranges, range.begin, {}, &Ranges::begin);
        while (next != m_ranges.begin()) {
            --next;
            if (range.end <= next->value.end) return originIn(*next, range);
        }
        return {{m_build, {0, 0}}, {}};
    }

private:
    struct Ranges {
        std::size_t begin;  // with the name
        TextRange name;
        TextRange value;
        std::size_t number;
    };

    void addRanges(JsonValue parent) {
        for (const JsonValue child : parent.children()) {
            const TextRange name = child.nameRange();
            const std::size_t begin = child.isMember() ? name.begin : child.range().begin;
            m_ranges.push_back({begin, name, child.range(), m_ranges.size()});
            addRanges(child);
        }
    }

    SourceOrigin originIn(const Ranges& ranges, TextRange range) const {
        const Written& written = m_written[ranges.number];
        const bool isName = range.begin < ranges.value.begin && range.end <= ranges.name.end;
        if (isName) return {{written.file, written.nameRange}, {}};
        const bool hasName = range.begin < ranges.value.begin;
        const std::size_t begin = hasName ? written.nameRange.begin : written.range.begin;
        return {{written.file, {begin, written.range.end}}, written.variable};
    }

    std::vector<Written> m_written;
    const SourceFile* m_build;
    std::vector<std::shared_ptr<const SourceFile>> m_files;
    std::vector<Ranges> m_ranges;
};

void BuiltText::add(const SourceFile& file, const RuleNode& rule, bool isAfterBlankLine) {
    if (!m_text.empty()) m_text += isAfterBlankLine ? ",\n\n" : ",\n";
    addNode(file, rule, false);
}

void BuiltText::addNode(const SourceFile& file, const RuleNode& node, bool inStylers) {
    m_written.push_back({&file, node.nameRange, node.range, {}});
    if (!node.nameJson.empty()) m_text += node.nameJson + ": ";
    if (node.kind == JsonKind::Array || node.kind == JsonKind::Object)
        return addChildren(file, node, inStylers || holdsStylers(node));
    const auto value = inStylers && node.kind == JsonKind::String ? m_lookup(file, node) : std::nullopt;
    m_text += value ? jsonText(value->text) : node.json;
    if (value) m_written.back().variable = value->variable;
}

void BuiltText::addChildren(const SourceFile& file, const RuleNode& node, bool inStylers) {
    m_text += node.kind == JsonKind::Array ? '[' : '{';
    const char* separator = "";
    for (const RuleNode& child : node.children) {
        m_text += separator;
        addNode(file, child, inStylers);
        separator = ", ";
    }
    m_text += node.kind == JsonKind::Array ? ']' : '}';
}

std::unique_ptr<SourceFile> BuiltText::file(const SourceFile& build,
                                            std::vector<std::shared_ptr<const SourceFile>> files) && {
    const std::string unformatted = "[\n" + m_text + "\n]\n";
    const auto document = parseJson(unformatted);
    std::string text = laidOut(std::get<JsonDocument>(document));
    const auto places = std::make_shared<Places>(std::move(m_written), build, std::move(files));
    places->setText(text);
    return std::make_unique<SourceFile>(build.path(), std::move(text),
                                        [places](TextRange range) { return places->originOf(range); });
}

}  // namespace customstyle_tool
