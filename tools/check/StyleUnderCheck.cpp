#include "tools/check/StyleUnderCheck.h"

#include <fmt/format.h>

namespace customstyle_tool {

StyleUnderCheck::StyleUnderCheck(const StyleSource& style, std::string_view mapping)
    : m_style(&style), m_rules(viewsOf(style)), m_replay(mapping, style) {}

Finding& StyleUnderCheck::add(Code code, const RuleView& rule, TextRange range, const std::string& path,
                              std::string message) {
    m_findingsOfRule[rule.place].push_back(m_findings.size());
    return m_findings.emplace_back(Finding{.code = code,
                                           .file = &m_style->file(),
                                           .range = range,
                                           .rule = rule.place,
                                           .path = path,
                                           .message = std::move(message),
                                           .remedy = infoOf(code).remedy,
                                           .log = {},
                                           .related = {}});
}

Finding& StyleUnderCheck::add(Code code, const RuleView& rule, JsonValue value, std::string message) {
    return add(code, rule, value.range(), value.path(), std::move(message));
}

Finding& StyleUnderCheck::add(Code code, const ReplayStep& step, std::string message) {
    const RuleView& rule = ruleOf(step);
    const std::optional<JsonValue> styler = step.styler.empty() ? std::nullopt : rule.member(step.styler);
    return add(code, rule, rule.stylerRange(step.styler), styler ? styler->path() : rule.value.path(),
               std::move(message));
}

Finding& StyleUnderCheck::addToFile(Code code, TextRange range, std::string message) {
    return m_findings.emplace_back(Finding{.code = code,
                                           .file = &m_style->file(),
                                           .range = range,
                                           .rule = {},
                                           .path = "$",
                                           .message = std::move(message),
                                           .remedy = infoOf(code).remedy,
                                           .log = {},
                                           .related = {}});
}

std::vector<Finding*> StyleUnderCheck::findingsOf(const RuleView& rule) {
    std::vector<Finding*> findings;
    for (const std::size_t place : m_findingsOfRule[rule.place]) findings.push_back(&m_findings[place]);
    return findings;
}

std::string StyleUnderCheck::nameOf(const ReplayStep& step) const {
    std::size_t stylers = 0;
    for (const char* name : {"color", "visibility", "weight", "fontsize"}) {
        stylers += ruleOf(step).textMember(name) ? 1 : 0;
    }
    return stylers > 1 ? fmt::format("the {} of rule {}", step.styler, step.rule + 1)
                       : fmt::format("rule {}", step.rule + 1);
}

}  // namespace customstyle_tool
