#include "check/Finding.h"

#include <algorithm>
#include <tuple>

namespace customstyle_tool {
namespace {

auto orderOf(const Finding& finding) {
    return std::tuple(finding.range.begin, infoOf(finding.code).name, std::string_view(finding.message),
                      finding.range.end);
}

}  // namespace

void sortFindings(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, {}, orderOf);
    const auto repeated = std::ranges::unique(findings, {}, orderOf);
    findings.erase(repeated.begin(), repeated.end());
}

bool hasSeverity(const std::vector<Finding>& findings, Severity severity) {
    return std::ranges::any_of(findings,
                               [&](const Finding& finding) { return infoOf(finding.code).severity == severity; });
}

}  // namespace customstyle_tool
