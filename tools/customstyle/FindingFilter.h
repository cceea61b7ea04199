// Which findings are reported, and with which severity.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/customstyle/Configuration.h"
#include "tools/customstyle/Suppression.h"

namespace customstyle_tool {

class FindingFilter {
public:
    /// @param selected  report these only; none for those of the configuration
    /// @param ignored   do not report these, nor those that the configuration ignores
    FindingFilter(std::vector<Code> selected, std::vector<Code> ignored);

    /// Removes what is not wanted from the findings of a file, and gives the others their severity.
    /// @param style  the style of the findings; null for a mapping file and for what cannot be read
    /// @return what is wrong with the remarks that silence findings
    std::vector<std::string> apply(std::vector<Finding>& findings, const Configuration& configuration,
                                   const StyleSource* style);

    /// Findings of the baseline are not wanted either.
    /// @return the number of the first line that is not an entry, or nothing
    std::optional<std::size_t> readBaseline(const std::string& path, const std::string& text);

    /// A baseline with all findings that passed so far.
    std::string baselineText(const std::string& path) const;

private:
    struct Passed {
        std::string file;
        std::string fingerprint;
        std::string code;
    };

    bool isWanted(const Finding& finding, const Configuration& configuration) const;
    bool isKnown(const Finding& finding, const std::string& fingerprint);

    std::vector<Code> m_selected;
    std::vector<Code> m_ignored;
    std::vector<Baseline> m_baselines;
    std::vector<Passed> m_passed;
};

}  // namespace customstyle_tool
