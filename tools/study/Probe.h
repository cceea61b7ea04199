// Asks a fresh component what it would make of a single rule or styler.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// What a rule alone leaves in a store over defaultMapping().
struct AloneOutcome {
    std::unique_ptr<_orvik_framework::CustomConfig> store;
    std::vector<std::string> log;
};

/// Loads the rule into an empty store.
AloneOutcome outcomeAlone(const std::string& ruleText);

/// The same for a rule made of these values.
AloneOutcome outcomeAlone(std::string_view featureType, std::string_view elementPath, std::string_view styler,
                          std::string_view value);

/// Whether two rules do the same, each by itself, and log the same.
bool doTheSame(const std::string& left, const std::string& right);

/// Whether a rule with this one styler does what it says: it is accepted without complaint, changes an answer, and does
/// not hide an icon by being "on".
bool worksAlone(std::string_view featureType, std::string_view elementPath, std::string_view styler,
                std::string_view value);

/// The same with a value that the component accepts.
bool acceptsStyler(std::string_view featureType, std::string_view elementPath, std::string_view styler);

/// The usual element paths on which a type accepts a styler. The component is asked once for each type and styler.
const std::vector<std::string>& elementsTaking(const std::string& featureType, const std::string& styler);

}  // namespace customstyle_tool
