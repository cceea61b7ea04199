// Asks the component what it would make of a rule that stands alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/replay/StoreImage.h"
#include "tools/replay/TracedReplay.h"

namespace customstyle_tool {

/// The text of a mapping file with one style id for each feature type: enough to see which types a rule reaches.
const std::string& oneIdPerType();

/// What is left behind by a rule that stands alone.
struct AloneOutcome {
    StoreImage store;
    std::vector<std::string> log;

    bool operator==(const AloneOutcome&) const = default;
};

/// Loads the rule into an empty store over oneIdPerType().
AloneOutcome outcomeAlone(const std::string& ruleText);

/// The steps of the rule in an empty store over oneIdPerType().
std::vector<ReplayStep> stepsOf(const std::string& ruleText);

/// Whether the component does something for a styler on an element of a type, and does not complain.
bool acceptsStyler(std::string_view featureType, std::string_view elementPath, std::string_view styler);

/// The usual element paths on which a type takes a styler. The component is asked once for each type and styler.
const std::vector<std::string>& elementsTaking(const std::string& featureType, const std::string& styler);

/// Every element path that has a plain meaning.
const std::vector<std::string>& usualElements();

}  // namespace customstyle_tool
