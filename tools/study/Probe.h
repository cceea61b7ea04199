// Asks a fresh component what it would make of a single rule, styler or value.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/study/StoreImage.h"
#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// What a rule alone leaves in the store.
struct AloneOutcome {
    StoreImage store;
    std::vector<std::string> log;

    bool operator==(const AloneOutcome&) const = default;
};

/// Loads the rule into an empty store over defaultMapping().
AloneOutcome outcomeAlone(const std::string& ruleText);

/// The steps of the rule in an empty store over defaultMapping().
std::vector<ReplayStep> stepsOfRule(const std::string& ruleText);

/// The steps of a rule that is written for the question.
std::vector<ReplayStep> stepsOfRule(std::string_view featureType, std::string_view elementPath, std::string_view styler,
                                    std::string_view value);

/// Whether the component does something for a styler on an element of a type, and does not complain.
bool acceptsStyler(std::string_view featureType, std::string_view elementPath, std::string_view styler);

/// The usual element paths on which a type takes a styler. The component is asked once for each type and styler.
const std::vector<std::string>& elementsTaking(const std::string& featureType, const std::string& styler);

}  // namespace customstyle_tool
