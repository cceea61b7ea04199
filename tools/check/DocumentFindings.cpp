#include "tools/check/DocumentFindings.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "tools/json/JsonScalars.h"

namespace customstyle_tool {
namespace {

struct FaultCode {
    JsonFault fault;
    Code code;
};

// All others are json-syntax.
constexpr FaultCode kFaultCodes[] = {
    {JsonFault::NoValue, Code::JsonEmpty},
    {JsonFault::Comment, Code::JsonComment},
    {JsonFault::TooDeep, Code::JsonTooDeep},
    {JsonFault::Utf16, Code::JsonEncoding},
    {JsonFault::ByteOrderMarkAlone, Code::JsonEncoding},
};

Code codeOf(JsonFault fault) {
    const auto* const found = std::ranges::find(kFaultCodes, fault, &FaultCode::fault);
    return found == std::end(kFaultCodes) ? Code::JsonSyntax : found->code;
}

Finding findingAt(const SourceFile& file, Code code, TextRange range, std::string path, std::string message) {
    return {.code = code,
            .file = &file,
            .range = range,
            .rule = {},
            .path = std::move(path),
            .message = std::move(message),
            .remedy = infoOf(code).remedy,
            .log = {},
            .related = {}};
}

// The characters that belong to the first byte: an opening // or /*, or one character of several bytes.
std::size_t lengthAt(std::string_view text, std::size_t offset) {
    const std::string_view rest = text.substr(offset);
    if (rest.starts_with("//") || rest.starts_with("/*")) return 2;
    std::size_t length = rest.empty() ? 0 : 1;
    while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80 &&
           static_cast<unsigned char>(rest[0]) >= 0xC0) {
        ++length;
    }
    return length;
}

std::optional<std::size_t> ruleOf(JsonValue value) {
    std::optional<std::size_t> rule;
    for (std::optional<JsonValue> outer = value; outer && outer->parent(); outer = outer->parent()) {
        rule = outer->position();
    }
    return rule;
}

void addCutTexts(std::vector<Finding>& findings, const SourceFile& file, JsonValue value) {
    const auto add = [&](TextRange range, const std::string& read) {
        Finding& finding = findings.emplace_back(findingAt(
            file, Code::TextCutAtNul, range, value.path(),
            fmt::format("the component reads only {}: a text ends at its first zero character", inQuotes(read))));
        finding.rule = ruleOf(value);
    };
    if (value.wholeName().size() > value.name().size()) add(value.nameRange(), value.name());
    if (value.wholeText().size() > value.text().size()) add(value.range(), value.text());
    for (const JsonValue child : value.children()) addCutTexts(findings, file, child);
}

}  // namespace

Finding jsonFinding(const SourceFile& file, const JsonError& error, std::string_view consequence) {
    const TextRange range{error.offset, error.offset + lengthAt(file.text(), error.offset)};
    return findingAt(file, codeOf(error.fault), range, "$", fmt::format("{}; {}", error.reason(), consequence));
}

std::optional<Finding> textBehindEnd(const SourceFile& file, const JsonDocument& document) {
    const std::optional<std::size_t> begin = document.ignoredTextBegin();
    if (!begin) return {};
    std::size_t end = file.text().size();
    while (isBlank(file.text()[end - 1])) --end;
    return findingAt(file, Code::TextAfterEnd, {*begin, end}, "$",
                     "the component stops reading before this; nothing from here on counts");
}

std::vector<Finding> textsCutAtNul(const SourceFile& file, const JsonDocument& document) {
    std::vector<Finding> findings;
    // Only an escape or a zero byte can bring the character in.
    if (file.text().find("\\u") == std::string_view::npos && file.text().find('\0') == std::string_view::npos)
        return {};
    addCutTexts(findings, file, document.root());
    return findings;
}

std::string_view kindName(JsonKind kind) {
    constexpr std::string_view kNames[] = {"null", "false", "true", "a number", "a text", "a list", "an object"};
    return kNames[static_cast<std::size_t>(kind)];
}

}  // namespace customstyle_tool
