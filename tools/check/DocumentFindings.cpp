#include "tools/check/DocumentFindings.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "tools/check/StyleFindings.h"
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
        Finding& finding = findings.emplace_back(
            Code::TextCutAtNul, file, range, value.path(),
            fmt::format("the component reads only {}: a string ends at its first zero character", inQuotes(read)));
        finding.rule = ruleOf(value);
    };
    if (value.wholeName().size() > value.name().size()) add(value.nameRange(), value.name());
    if (value.wholeText().size() > value.text().size()) add(value.range(), value.text());
    for (const JsonValue child : value.children()) addCutTexts(findings, file, child);
}

void findOutermost(StyleFindings& found) {
    const JsonValue root = found.study().source().document().root();
    const TextRange start{root.range().begin, root.range().begin + 1};
    if (root.kind() == JsonKind::Object) {
        found.addToFile(Code::NotAList, start,
                        "the file is an object, not a list of rules; the component reads its members as rules");
        if (found.rules().empty()) {
            found.addToFile(Code::NoRules, root.range(), "the object has no rules; nothing is customised");
        }
    } else if (root.kind() != JsonKind::Array) {
        found.addToFile(Code::NotAList, root.range(),
                        std::string("the file is ") + std::string(kindName(root.kind())) +
                            ", not a list of rules; no rule applies");
    } else if (found.rules().empty()) {
        found.addToFile(Code::NoRules, root.range(), "the list has no rules; nothing is customised");
    }
}

// What the component reads in a name, string or number, but strict readers refuse.
const char* leniency(const SourceFile& file, TextRange range) {
    const std::string_view text = file.text().substr(range.begin, range.size());
    if (text.starts_with('"')) {
        const auto isControl = [](char byte) { return static_cast<unsigned char>(byte) < ' '; };
        if (std::ranges::any_of(text, isControl)) return "a line break or another control character inside a string";
        if (!hasStrictEscapes(text)) return "a \\u without four hexadecimal digits, which counts as \\u0000";
        return isUtf8(text) ? nullptr : "a string that is not UTF-8";
    }
    const bool isNumber = !text.empty() && (text[0] == '-' || isDigit(text[0]));
    return isNumber && !isStrictNumber(text) ? "a number that is not valid JSON" : nullptr;
}

void addLeniencies(StyleFindings& found, JsonValue value) {
    const SourceFile& file = found.study().source().file();
    for (const TextRange range : {value.nameRange(), value.range()}) {
        const char* const what = range.size() == 0 ? nullptr : leniency(file, range);
        if (what == nullptr) continue;
        Finding& finding = found.addToFile(
            Code::JsonLenient, range, fmt::format("{}: the component reads it, other programs refuse the file", what));
        finding.path = value.path();
        finding.rule = ruleOf(value);
    }
    for (const JsonValue child : value.children()) addLeniencies(found, child);
}

// Every text and every name with a zero character in it.
std::vector<Finding> textsCutAtNul(const SourceFile& file, const JsonDocument& document) {
    std::vector<Finding> findings;
    // Only an escape or a zero byte can produce this character.
    if (file.text().find("\\u") == std::string_view::npos && file.text().find('\0') == std::string_view::npos)
        return {};
    addCutTexts(findings, file, document.root());
    return findings;
}

}  // namespace

Finding jsonFinding(const SourceFile& file, const JsonError& error, std::string_view consequence) {
    const TextRange range{error.offset, error.offset + lengthAt(file.text(), error.offset)};
    return {codeOf(error.fault), file, range, "$", fmt::format("{}; {}", error.reason(), consequence)};
}

std::optional<Finding> textBehindEnd(const SourceFile& file, const JsonDocument& document) {
    const std::optional<std::size_t> begin = document.ignoredTextBegin();
    if (!begin) return {};
    std::size_t end = file.text().size();
    while (isBlank(file.text()[end - 1])) --end;
    return Finding(Code::TextAfterEnd, file, {*begin, end}, "$",
                   "the component stops reading before this; everything from here on is ignored");
}

std::vector<Finding> findInDocument(const StyleStudy& study) {
    StyleFindings found(study);
    if (study.source().isWhole()) findOutermost(found);
    addLeniencies(found, study.source().document().root());
    std::vector<Finding> findings = found.take();
    const SourceFile& file = study.source().file();
    if (std::optional<Finding> behind = textBehindEnd(file, study.source().document())) {
        if (study.source().isWhole()) findings.push_back(std::move(*behind));
    }
    for (Finding& cut : textsCutAtNul(file, study.source().document())) findings.push_back(std::move(cut));
    return findings;
}

std::string_view kindName(JsonKind kind) {
    constexpr std::string_view kNames[] = {"null", "false", "true", "a number", "a string", "a list", "an object"};
    return kNames[static_cast<std::size_t>(kind)];
}

}  // namespace customstyle_tool
