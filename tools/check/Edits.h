// Edits that carry out the remedies of findings.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// Bytes of a text, and what replaces them.
struct Edit {
    TextRange range;
    std::string text;
};

/// The edits that carry out the remedy of one finding; none where only its author can decide, and none for a style that
/// was made from other files.
std::vector<Edit> editsOf(const Finding& finding, const StyleStudy& study);

/// The edits that carry out many remedies together. Values to correct come first: if there are any, nothing is removed,
/// because what has no effect beside a wrong value may have one beside the right value.
std::vector<Edit> jointEdits(std::span<const Finding> findings, const StyleStudy& study);

/// The text with the edits applied, which must be sorted and must not overlap.
std::string edited(std::string_view text, std::span<const Edit> edits);

}  // namespace customstyle_tool
