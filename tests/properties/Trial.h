// A style and a map to try the tools on.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/model_check/StyleModel.h"

namespace customstyle_test::properties {

using model::Rule;
using Rules = std::vector<Rule>;

/// The lists of a mapping file, by feature type 0 to 71.
using StyleIds = std::vector<std::vector<int>>;

struct Trial {
    Rules rules;
    std::optional<StyleIds> mapping;  ///< none: the tools are called without one
    unsigned variant = 0;             ///< picks what is changed for a second style
};

/// The same trial for the same seed: natural and nasty rules, few and many; no map, one without shared ids, and maps
/// with shared, repeated, negative and zero ids and empty lists.
Trial randomTrial(unsigned seed);

/// A style that differs from the trial's by one rule, styler or value, or only in its text.
Rules variantOf(const Trial& trial);

/// What a member of a rule came to in a text; a rule as a whole has no member.
struct WrittenMember {
    std::size_t rule;
    std::optional<std::size_t> styler;  ///< index in the rule's stylers
    std::size_t begin, end;
};

/// A style as text, with the position of each part.
struct WrittenStyle {
    std::string text;
    std::vector<WrittenMember> members;

    /// The smallest part that holds the offset, or null.
    const WrittenMember* at(std::size_t offset) const;
};

WrittenStyle written(const Rules& rules);
std::string written(const StyleIds& mapping);

/// The rules of a text that holds nothing but rules with texts for members.
Rules readRules(std::string_view text);

}  // namespace customstyle_test::properties
