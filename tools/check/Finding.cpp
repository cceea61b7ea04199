#include "tools/check/Finding.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

namespace customstyle_tool {
namespace {

auto orderOf(const Finding& finding) {
    return std::tuple(finding.range.begin, std::string_view(infoOf(finding.code).name),
                      std::string_view(finding.message), finding.range.end);
}

}  // namespace

void propose(Finding& finding, const std::string& json) {
    finding.remedy = "write " + json;
    finding.replacement = json;
}

void proposeName(Finding& finding, const std::string& name) {
    finding.remedy = fmt::format("did you mean \"{}\"?", name);
    finding.replacement = fmt::format("\"{}\"", name);
}

Severity severityOf(const Finding& finding) {
    return finding.severity.value_or(infoOf(finding.code).severity);
}

void sortFindings(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, {}, orderOf);
    const auto isRepetition = [](const Finding& one, const Finding& next) { return orderOf(one) == orderOf(next); };
    findings.erase(std::unique(findings.begin(), findings.end(), isRepetition), findings.end());
}

}  // namespace customstyle_tool
