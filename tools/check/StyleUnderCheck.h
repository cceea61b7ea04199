// What the parts of the style check share.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/check/RuleView.h"
#include "tools/replay/ProvenEffects.h"
#include "tools/replay/TracedReplay.h"

namespace customstyle_tool {

/// A style with its replay, and what has been found so far.
class StyleUnderCheck {
public:
    StyleUnderCheck(const StyleSource& style, std::string_view mapping);

    const StyleSource& style() const { return *m_style; }
    const std::vector<RuleView>& rules() const { return m_rules; }
    const std::vector<ReplayStep>& steps() const { return m_replay.steps(); }
    const _orvik_framework::CustomConfig& outcome() const { return m_replay.config(); }
    const RuleView& ruleOf(const ReplayStep& step) const { return m_rules[step.rule]; }

    /// Adds a finding; the remedy is that of the code until the caller says a better one.
    Finding& add(Code code, const RuleView& rule, TextRange range, const std::string& path, std::string message);
    Finding& add(Code code, const RuleView& rule, JsonValue value, std::string message);
    /// At a styler with its name.
    Finding& add(Code code, const ReplayStep& step, std::string message);
    /// What concerns the whole file.
    Finding& addToFile(Code code, TextRange range, std::string message);

    /// Notes that a styler of a rule is already known to do nothing, so that the proof of it need not be told.
    void explain(std::size_t rule, const std::string& styler) { m_explained.emplace(rule, styler); }
    bool isExplained(std::size_t rule, const std::string& styler) const { return m_explained.contains({rule, styler}); }

    std::vector<Finding>& findings() { return m_findings; }
    /// Those of one rule so far, in the order in which they were added. Valid until the next is added.
    std::vector<Finding*> findingsOf(const RuleView& rule);

    /// "rule 3", counted from 1, and "the "weight" of rule 3" where the rule has several stylers.
    std::string nameOf(const ReplayStep& step) const;

private:
    const StyleSource* m_style;
    std::vector<RuleView> m_rules;
    TracedReplay m_replay;
    std::vector<Finding> m_findings;
    std::unordered_map<std::size_t, std::vector<std::size_t>> m_findingsOfRule;  // by place of the rule
    std::set<std::pair<std::size_t, std::string>> m_explained;
};

// The parts, in the order in which they have to run.
void findMembers(StyleUnderCheck& check);  ///< names, letter case, doubles, kinds of values
void findLogged(StyleUnderCheck& check);   ///< what the component logs
void findValues(StyleUnderCheck& check);   ///< colours, sizes and levels that are read otherwise than written
void findReach(StyleUnderCheck& check);    ///< what each step reached, and what it did not
void findHistory(StyleUnderCheck& check);  ///< what steps do to the work of others
void findKeys(StyleUnderCheck& check);     ///< the store's capacity

/// What leaving out each rule and each styler proves.
void findEffects(StyleUnderCheck& check, std::string_view mapping, const Progress& progress);

}  // namespace customstyle_tool
