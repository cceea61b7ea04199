#include "tools/customstyle/TestReport.h"

#include <fmt/format.h>

#include <set>
#include <vector>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

// Characters that XML does not allow are written as escapes first.
std::string xml(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

std::string xmlLine(std::string_view text) {
    return xml(escapedText(text));
}

std::vector<ExpectationFailure> failuresAt(std::size_t offset, std::span<const ExpectationFailure> failures) {
    std::vector<ExpectationFailure> found;
    for (const ExpectationFailure& each : failures) {
        if (each.expectation->offset == offset) found.push_back(each);
    }
    return found;
}

std::string caseOf(const Expectation& line, std::span<const ExpectationFailure> failures, const SourceFile& file,
                   const StyleStudy& style) {
    const std::string head = fmt::format("    <testcase name=\"{}\" classname=\"{}\" file=\"{}\" line=\"{}\"",
                                         xmlLine(line.text), xmlLine(style.source().file().path()),
                                         xmlLine(file.path()), file.lines().position(line.offset).line);
    const std::vector<ExpectationFailure> own = failuresAt(line.offset, failures);
    if (own.empty()) return head + "/>\n";
    const std::string text = failuresText(own, file, style, Swatches::None);
    return fmt::format("{}>\n      <failure message=\"not as expected\">{}</failure>\n    </testcase>\n", head,
                       xml(text));
}

}  // namespace

std::string junitReport(std::span<const Expectation> lines, std::span<const ExpectationFailure> failures,
                        const SourceFile& file, const StyleStudy& style) {
    std::set<std::size_t> failed;
    for (const ExpectationFailure& each : failures) failed.insert(each.expectation->offset);
    std::string cases;
    for (const Expectation& line : lines) cases += caseOf(line, failures, file, style);
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n  <testsuite name=\"{}\" tests=\"{}\" "
        "failures=\"{}\">\n{}  </testsuite>\n</testsuites>\n",
        xmlLine(file.path()), lines.size(), failed.size(), cases);
}

}  // namespace customstyle_tool
