#include "tools/check/Report.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kLongestLine = 400;  // bytes

std::string placeText(const SourceFile& file, std::size_t offset) {
    return escapedText(file.place(offset));
}

// Names and texts of the file stand in it, which may be very long.
std::string shownText(std::string_view text) {
    return escapedText(shortened(text, kLongestLine));
}

std::string excerptText(const SourceFile& file, TextRange range) {
    const LinePosition position = file.lines().position(range.begin);
    const std::size_t begin = position.byteColumn - 1;
    const Excerpt excerpt = excerptOf(file.lines().lineText(position.line), begin, begin + range.size());
    return fmt::format("  {}\n  {}\n", excerpt.line, excerpt.carets);
}

Json jsonOf(const SourceFile& file, std::size_t offset) {
    const LinePosition position = file.lines().position(offset);
    return {{"offset", offset}, {"line", position.line}, {"column", position.column}};
}

Json jsonOf(const SourceFile& file, TextRange range) {
    return {{"begin", jsonOf(file, range.begin)}, {"end", jsonOf(file, range.end)}};
}

Json jsonOf(const Finding& finding) {
    Json related = Json::array();
    for (const RelatedPlace& place : finding.related) {
        related.push_back({{"text", place.text}, {"range", jsonOf(*finding.file, place.range)}});
    }
    const CodeInfo& info = infoOf(finding.code);
    return {{"code", info.name},
            {"severity", severityName(info.severity)},
            {"rule", finding.rule ? Json(*finding.rule + 1) : Json(nullptr)},
            {"path", finding.path},
            {"range", jsonOf(*finding.file, finding.range)},
            {"message", finding.message},
            {"remedy", finding.remedy},
            {"can_go", finding.canGo},
            {"log", finding.log.empty() ? Json(nullptr) : Json(finding.log)},
            {"related", related}};
}

std::string dumped(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

FindingCounts countFindings(const std::vector<CheckedFile>& files) {
    FindingCounts counts;
    std::size_t* const bySeverity[] = {&counts.errors, &counts.warnings, &counts.notes};
    for (const CheckedFile& file : files) {
        for (const Finding& finding : file.findings)
            ++*bySeverity[static_cast<std::size_t>(infoOf(finding.code).severity)];
    }
    return counts;
}

std::string findingText(const Finding& finding) {
    const CodeInfo& info = infoOf(finding.code);
    std::string text = fmt::format("{}: {}: {} [{}]\n", placeText(*finding.file, finding.range.begin),
                                   severityName(info.severity), escapedText(finding.message), info.name);
    text += excerptText(*finding.file, finding.range);
    if (finding.rule) text += fmt::format("  in: rule {}, {}\n", *finding.rule + 1, shownText(finding.path));
    text += fmt::format("  remedy: {}\n", escapedText(finding.remedy));
    if (!finding.log.empty()) text += fmt::format("  log: {}\n", shownText(finding.log));
    for (const RelatedPlace& place : finding.related) {
        text += fmt::format("  {}: {}\n", placeText(*finding.file, place.range.begin), escapedText(place.text));
    }
    return text;
}

std::string reportJson(const std::vector<CheckedFile>& files, const std::vector<std::string>& unreadable) {
    Json list = Json::array();
    for (const CheckedFile& checked : files) {
        Json findings = Json::array();
        for (const Finding& finding : checked.findings) findings.push_back(jsonOf(finding));
        list.push_back({{"path", checked.file->path()}, {"findings", findings}});
    }
    const auto [errors, warnings, notes] = countFindings(files);
    return dumped({{"version", 1},
                   {"files", list},
                   {"unreadable", unreadable},
                   {"summary", {{"errors", errors}, {"warnings", warnings}, {"notes", notes}}}});
}

}  // namespace customstyle_tool
