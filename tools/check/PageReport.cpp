// Findings beside the lines of a page.
#include <fmt/format.h>

#include "tools/check/Report.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

// Each character of `special` becomes %XX.
std::string percentEscaped(const std::string& text, std::string_view special) {
    std::string result;
    for (const char c : text) {
        const bool isSpecial = special.find(c) != std::string_view::npos;
        result += isSpecial ? fmt::format("%{:02X}", static_cast<unsigned char>(c)) : std::string(1, c);
    }
    return result;
}

std::string cell(std::string_view text) {
    constexpr std::string_view kMarkup = "|\\<`*_";
    std::string result;
    for (const char c : escapedText(text)) {
        if (kMarkup.find(c) != std::string_view::npos) result += '\\';
        result += c;
    }
    return result;
}

}  // namespace

std::string githubReport(const Finding& finding) {
    const Severity severity = severityOf(finding);
    const LinePosition begin = finding.file->lines().position(finding.range.begin);
    const LinePosition end = finding.file->lines().position(finding.range.end);
    const std::string_view kind = severity == Severity::Note ? "notice" : severityName(severity);
    const std::string message = finding.message + ". Remedy: " + finding.remedy;
    return fmt::format("::{} file={},line={},endLine={},col={},endColumn={},title={}::{}\n", kind,
                       percentEscaped(finding.file->path(), "%\r\n:,"), begin.line, end.line, begin.column, end.column,
                       infoOf(finding.code).name, percentEscaped(message, "%\r\n"));
}

std::string markdownHead() {
    return "| position | severity | finding | remedy | code |\n|---|---|---|---|---|\n";
}

std::string markdownReport(const Finding& finding) {
    return fmt::format("| {} | {} | {} | {} | `{}` |\n", cell(finding.file->place(finding.range.begin)),
                       severityName(severityOf(finding)), cell(finding.message), cell(finding.remedy),
                       infoOf(finding.code).name);
}

}  // namespace customstyle_tool
