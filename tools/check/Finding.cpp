#include "tools/check/Finding.h"

#include <algorithm>
#include <tuple>

namespace customstyle_tool {
namespace {

auto orderOf(const Finding& finding) {
    return std::tuple(finding.range.begin, std::string_view(infoOf(finding.code).name),
                      std::string_view(finding.message), finding.range.end);
}

}  // namespace

void sortFindings(std::vector<Finding>& findings) {
    std::ranges::stable_sort(findings, {}, orderOf);
    const auto isRepetition = [](const Finding& one, const Finding& next) { return orderOf(one) == orderOf(next); };
    findings.erase(std::unique(findings.begin(), findings.end(), isRepetition), findings.end());
}

}  // namespace customstyle_tool
