// What the finders share: the one way to make a finding about a style.
#pragma once

#include <string>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// The findings that one finder makes of a study.
class StyleFindings {
public:
    explicit StyleFindings(const StyleStudy& study) : m_study(study) {}

    const StyleStudy& study() const { return m_study; }
    const std::vector<RuleView>& rules() const { return m_study.rules(); }
    const std::vector<ReplayStep>& steps() const { return m_study.steps(); }
    const RuleView& ruleOf(const ReplayStep& step) const { return rules()[step.rule]; }

    /// Adds a finding; the remedy is that of the code until the caller sets a better one.
    Finding& add(Code code, const RuleView& rule, TextRange range, const std::string& path, std::string message);
    Finding& add(Code code, const RuleView& rule, JsonValue value, std::string message);
    /// Adds a finding at a styler and its name.
    Finding& add(Code code, const ReplayStep& step, std::string message);
    /// Adds a finding about the whole file.
    Finding& addToFile(Code code, TextRange range, std::string message);

    std::vector<Finding> take() { return std::move(m_findings); }

    /// "rule 3", counted from 1, and "the "weight" of rule 3" where the rule has several stylers.
    std::string nameOf(std::size_t step) const;

    /// The same for several steps: "rule 2", "rules 2 and 3", "rule 2 and the color of rule 3".
    std::string namesOf(const std::vector<std::size_t>& steps) const;

    /// Where a step is, for findings about other steps.
    RelatedPlace placeOf(std::size_t step, std::string text) const;

private:
    const StyleStudy& m_study;
    std::vector<Finding> m_findings;
};

// The finders. None sees what the others have found.
std::vector<Finding> findInDocument(const StyleStudy& study);  ///< the file as a whole
std::vector<Finding> findMembers(const StyleStudy& study);     ///< names, letter case, duplicates, kinds of values
std::vector<Finding> findLogged(const StyleStudy& study);      ///< what the component logs
std::vector<Finding> findValues(const StyleStudy& study);      ///< values that are not read as written
std::vector<Finding> findReach(const StyleStudy& study);       ///< what each step reached, and what it did not
std::vector<Finding> findHistory(const StyleStudy& study);     ///< what steps do to the work of others
std::vector<Finding> findBackgrounds(
    const StyleStudy& study);                            ///< what happens to the background of the land and of the grid
std::vector<Finding> findKeys(const StyleStudy& study);  ///< the store's capacity

}  // namespace customstyle_tool
