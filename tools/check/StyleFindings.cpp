#include "tools/check/StyleFindings.h"

#include <fmt/format.h>

#include <algorithm>

namespace customstyle_tool {
namespace {

// The number of steps that a message names before it says "and others".
constexpr std::size_t kNamedSteps = 6;

std::string listed(std::vector<std::string> names) {
    if (names.size() > kNamedSteps) {
        const std::size_t others = names.size() - kNamedSteps + 1;
        names.resize(kNamedSteps - 1);
        names.push_back(fmt::format("{} others", others));
    }
    if (names.size() < 2) return names.empty() ? "" : names.front();
    const std::string last = names.back();
    names.pop_back();
    return fmt::format("{} and {}", fmt::join(names, ", "), last);
}

}  // namespace

Finding& StyleFindings::add(Code code, const RuleView& rule, TextRange range, const std::string& path,
                            std::string message) {
    Finding& finding = addToFile(code, range, std::move(message));
    finding.rule = rule.place;
    finding.path = path;
    return finding;
}

Finding& StyleFindings::add(Code code, const RuleView& rule, JsonValue value, std::string message) {
    return add(code, rule, value.range(), value.path(), std::move(message));
}

Finding& StyleFindings::add(Code code, const ReplayStep& step, std::string message) {
    const RuleView& rule = ruleOf(step);
    const std::optional<JsonValue> styler = step.styler.empty() ? std::nullopt : rule.member(step.styler);
    Finding& finding =
        add(code, rule, rule.stylerRange(step.styler), styler ? styler->path() : rule.value.path(), std::move(message));
    finding.step = static_cast<std::size_t>(&step - steps().data());
    return finding;
}

Finding& StyleFindings::addToFile(Code code, TextRange range, std::string message) {
    return m_findings.emplace_back(code, m_study.source().file(), range, "$", std::move(message));
}

std::string StyleFindings::nameOf(std::size_t step) const {
    const std::size_t rule = steps()[step].rule;
    const auto [begin, end] = m_study.stepsOf(rule);
    return end - begin > 1 ? fmt::format("the {} of rule {}", steps()[step].styler, rule + 1)
                           : fmt::format("rule {}", rule + 1);
}

std::string StyleFindings::namesOf(const std::vector<std::size_t>& places) const {
    std::vector<std::string> plain;  // such as "2", for rules with one styler
    std::vector<std::string> others;
    for (const std::size_t step : places) {
        const std::string name = nameOf(step);
        name.starts_with("rule ") ? plain.push_back(name.substr(5)) : others.push_back(name);
    }
    if (plain.empty()) return listed(others);
    const std::string rules = fmt::format("{} {}", plain.size() > 1 ? "rules" : "rule", listed(plain));
    return others.empty() ? rules : fmt::format("{}{}{}", rules, plain.size() > 1 ? ", and " : " and ", listed(others));
}

RelatedPlace StyleFindings::placeOf(std::size_t step, std::string text) const {
    return {ruleOf(steps()[step]).stylerRange(steps()[step].styler), std::move(text)};
}

}  // namespace customstyle_tool
