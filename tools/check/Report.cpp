#include "tools/check/Report.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/check/Edits.h"
#include "tools/support/PlainText.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kJsonVersion = 1;
constexpr std::size_t kLongestLine = 400;  // bytes

// Terminal escape codes.
constexpr char kBold[] = "1";
constexpr char kGreen[] = "32";
constexpr const char* kSeverityColors[] = {"1;31", "1;33", "1;36"};  // red, yellow, cyan

// Colours a text, if colours are wanted.
class Paint {
public:
    explicit Paint(bool isOn) : m_isOn(isOn) {}

    std::string operator()(const char* color, std::string_view text) const {
        return m_isOn ? fmt::format("\033[{}m{}\033[0m", color, text) : std::string(text);
    }

private:
    bool m_isOn;
};

std::string placeText(const SourceFile& file, std::size_t offset) {
    return escapedText(file.place(offset));
}

// It contains names and texts from the file, which may be very long.
std::string shownText(std::string_view text) {
    return escapedText(shortened(text, kLongestLine));
}

std::string excerptText(const SourceFile& file, TextRange range, const Paint& paint) {
    const LinePosition position = file.lines().position(range.begin);
    const std::size_t begin = position.byteColumn - 1;
    const Excerpt excerpt = excerptOf(file.lines().lineText(position.line), begin, begin + range.size());
    return fmt::format("  {}\n  {}\n", excerpt.line, paint(kGreen, excerpt.carets));
}

Json jsonOf(const SourceFile& file, std::size_t offset) {
    const LinePosition position = file.lines().position(offset);
    return {{"offset", offset}, {"line", position.line}, {"column", position.column}};
}

Json jsonOf(const SourceFile& file, TextRange range) {
    return {{"begin", jsonOf(file, range.begin)}, {"end", jsonOf(file, range.end)}};
}

Json editsJson(const Finding& finding, const StyleStudy* study) {
    Json list = Json::array();
    if (study == nullptr || !study->source().isWhole()) return list;
    for (const Edit& edit : editsOf(finding, *study)) {
        list.push_back({{"range", jsonOf(*finding.file, edit.range)}, {"text", edit.text}});
    }
    return list;
}

Json jsonOf(const Finding& finding, const StyleStudy* study) {
    Json related = Json::array();
    for (const RelatedPlace& place : finding.related) {
        const SourceFile& file = fileOf(finding, place);
        Json each{{"text", place.text}, {"range", jsonOf(file, place.range)}};
        if (&file != finding.file) each["file"] = file.path();
        related.push_back(each);
    }
    const CodeInfo& info = infoOf(finding.code);
    return {{"code", info.name},
            {"severity", severityName(severityOf(finding))},
            {"rule", finding.rule ? Json(*finding.rule + 1) : Json(nullptr)},
            {"path", finding.path},
            {"range", jsonOf(*finding.file, finding.range)},
            {"message", finding.message},
            {"remedy", finding.remedy},
            {"can_go", finding.canGo},
            {"edits", editsJson(finding, study)},
            {"log", finding.log.empty() ? Json(nullptr) : Json(finding.log)},
            {"related", related}};
}

}  // namespace

FindingCounts countFindings(const std::vector<Finding>& findings) {
    FindingCounts counts;
    std::size_t* const bySeverity[] = {&counts.errors, &counts.warnings, &counts.notes};
    for (const Finding& finding : findings) ++*bySeverity[static_cast<std::size_t>(severityOf(finding))];
    return counts;
}

FindingCounts countFindings(const std::vector<CheckedFile>& files) {
    FindingCounts counts;
    for (const CheckedFile& file : files) {
        const auto [errors, warnings, notes] = countFindings(file.findings);
        counts = {counts.errors + errors, counts.warnings + warnings, counts.notes + notes};
    }
    return counts;
}

std::string findingText(const Finding& finding, bool isColored) {
    const Paint paint(isColored);
    const Severity severity = severityOf(finding);
    std::string text = fmt::format("{}: {}: {} [{}]\n", paint(kBold, placeText(*finding.file, finding.range.begin)),
                                   paint(kSeverityColors[static_cast<std::size_t>(severity)], severityName(severity)),
                                   escapedText(finding.message), infoOf(finding.code).name);
    text += excerptText(*finding.file, finding.range, paint);
    if (finding.rule) text += fmt::format("  in: rule {}, {}\n", *finding.rule + 1, shownText(finding.path));
    text += fmt::format("  remedy: {}\n", escapedText(finding.remedy));
    if (!finding.log.empty()) text += fmt::format("  log: {}\n", shownText(finding.log));
    for (const RelatedPlace& place : finding.related) {
        text +=
            fmt::format("  {}: {}\n", placeText(fileOf(finding, place), place.range.begin), escapedText(place.text));
    }
    return text;
}

std::string lineReport(const Finding& finding) {
    return fmt::format("{}: {}: {} [{}]\n", placeText(*finding.file, finding.range.begin),
                       severityName(severityOf(finding)), escapedText(finding.message), infoOf(finding.code).name);
}

std::string jsonLineReport(const Finding& finding, const StyleStudy* study) {
    Json line{{"version", kJsonVersion}, {"file", finding.file->path()}};
    line.update(jsonOf(finding, study));
    return jsonText(line) + "\n";
}

std::string reportJson(const std::vector<CheckedFile>& files, const std::vector<std::string>& unreadable) {
    Json list = Json::array();
    for (const CheckedFile& checked : files) {
        Json findings = Json::array();
        for (const Finding& finding : checked.findings) findings.push_back(jsonOf(finding, checked.study.get()));
        list.push_back({{"path", checked.file->path()}, {"findings", findings}});
    }
    const auto [errors, warnings, notes] = countFindings(files);
    return jsonText({{"version", kJsonVersion},
                     {"files", list},
                     {"unreadable", unreadable},
                     {"summary", {{"errors", errors}, {"warnings", warnings}, {"notes", notes}}}},
                    2) +
           "\n";
}

}  // namespace customstyle_tool
