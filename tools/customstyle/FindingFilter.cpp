#include "tools/customstyle/FindingFilter.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

namespace customstyle_tool {
namespace {

bool isIn(const std::vector<Code>& codes, Code code) {
    return std::ranges::find(codes, code) != codes.end();
}

using SilencedCodes = std::set<std::pair<std::size_t, Code>>;  // by rule

SilencedCodes silencedIn(const StyleSource* style, std::vector<std::string>& problems) {
    SilencedCodes silenced;
    if (style == nullptr) return silenced;
    for (const Silencing& each : silencingsIn(*style)) {
        if (const auto code = codeNamed(each.code)) {
            silenced.emplace(each.rule, *code);
        } else {
            problems.push_back(fmt::format("{}: {}", style->file().place(each.offset), problemOfCodes(each.code)));
        }
    }
    return silenced;
}

}  // namespace

FindingFilter::FindingFilter(std::vector<Code> selected, std::vector<Code> ignored)
    : m_selected(std::move(selected)), m_ignored(std::move(ignored)) {}

bool FindingFilter::isWanted(const Finding& finding, const Configuration& configuration) const {
    const std::vector<Code>& selected = m_selected.empty() ? configuration.selected : m_selected;
    if (!selected.empty() && !isIn(selected, finding.code)) return false;
    return !isIn(m_ignored, finding.code) && !isIn(configuration.ignored, finding.code);
}

bool FindingFilter::isKnown(const Finding& finding, const std::string& fingerprint) {
    return std::ranges::any_of(m_baselines,
                               [&](Baseline& each) { return each.takes(finding.file->path(), fingerprint); });
}

std::vector<std::string> FindingFilter::apply(std::vector<Finding>& findings, const Configuration& configuration,
                                              const StyleSource* style) {
    std::vector<std::string> problems;
    const SilencedCodes silenced = silencedIn(style, problems);
    std::erase_if(findings, [&](const Finding& finding) {
        const bool isSilenced = finding.rule && silenced.contains({*finding.rule, finding.code});
        const std::string fingerprint = fingerprintOf(finding, style);
        if (isSilenced || !isWanted(finding, configuration) || isKnown(finding, fingerprint)) return true;
        m_passed.push_back({finding.file->path(), fingerprint, infoOf(finding.code).name});
        return false;
    });
    for (Finding& finding : findings) {
        const auto severity = configuration.severities.find(finding.code);
        if (severity != configuration.severities.end()) finding.severity = severity->second;
    }
    return problems;
}

std::optional<std::size_t> FindingFilter::readBaseline(const std::string& path, const std::string& text) {
    m_baselines.emplace_back(path);
    return m_baselines.back().read(text);
}

std::string FindingFilter::baselineText(const std::string& path) const {
    Baseline baseline(path);
    for (const Passed& each : m_passed) baseline.add(each.file, each.fingerprint, each.code);
    return baseline.text();
}

}  // namespace customstyle_tool
