#include "tools/build/BuiltText.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>
#include <variant>

#include "tools/layout/Layout.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

constexpr std::string_view kBegin = "[\n";
constexpr std::string_view kEnd = "\n]\n";

}  // namespace

// Finds for a piece of the finished text where it was written. Laying a text out moves its values, but keeps them and
// their order.
class BuiltText::Places {
public:
    Places(std::vector<Written> written, const SourceFile& build, std::vector<std::shared_ptr<const SourceFile>> files)
        : m_written(std::move(written)), m_build(&build), m_files(std::move(files)) {}

    // The values of a document, without the outermost list.
    void setRanges(const JsonDocument& document) { addRanges(document.root()); }

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
    m_rules.push_back({kBegin.size() + m_text.size(), &file, rule.range});
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

std::string BuiltText::problemOf(const JsonError& error) const {
    const auto next = std::ranges::upper_bound(m_rules, error.offset, {}, &RuleStart::offset);
    const RuleStart& rule = next == m_rules.begin() ? m_rules.front() : *std::prev(next);
    return fmt::format("{}: a style cannot hold this rule: {}", rule.file->place(rule.range.begin), error.reason());
}

std::variant<std::unique_ptr<SourceFile>, std::string> BuiltText::file(
    const SourceFile& build, std::vector<std::shared_ptr<const SourceFile>> files) && {
    const std::string unformatted = fmt::format("{}{}{}", kBegin, m_text, kEnd);
    const auto read = parseJson(unformatted);
    if (const auto* const error = std::get_if<JsonError>(&read)) return problemOf(*error);
    std::string text = laidOut(std::get<JsonDocument>(read));
    std::vector<std::string> paths;
    for (const auto& each : files) paths.push_back(each->path());
    const auto places = std::make_shared<Places>(std::move(m_written), build, std::move(files));
    const auto formatted = parseJson(text);  // nested as deeply as `unformatted`
    places->setRanges(std::get<JsonDocument>(formatted));
    return std::make_unique<SourceFile>(
        build.path(), std::move(text), [places](TextRange range) { return places->originOf(range); }, std::move(paths));
}

}  // namespace customstyle_tool
