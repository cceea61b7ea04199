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

const SourceFile& fileOf(const Finding& finding, const RelatedPlace& place) {
    return place.file == nullptr ? *finding.file : *place.file;
}

void leadBack(Finding& finding) {
    for (RelatedPlace& place : finding.related) {
        const SourceOrigin origin = fileOf(finding, place).origin(place.range);
        place.file = origin.place.file;
        place.range = origin.place.range;
    }
    const SourceOrigin origin = finding.file->origin(finding.range);
    finding.file = origin.place.file;
    finding.range = origin.place.range;
    if (!origin.variable) return;
    const auto& [name, place] = *origin.variable;
    finding.related.push_back({place.range, fmt::format("${} is set here", name), place.file});
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
