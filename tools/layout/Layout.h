// The layout of a style file.
#pragma once

#include <cstddef>
#include <string>

#include "tools/json/JsonDocument.h"

namespace customstyle_tool {

/// A value is on one line if it fits into this many characters.
inline constexpr std::size_t kLineWidth = 120;

/// A rule gets more room, because its columns take some.
inline constexpr std::size_t kRuleWidth = 132;

/// The document laid out: one rule per line where it fits, the members of such rules in columns, one blank line where
/// the text had any between two rules. Names, texts, numbers, their order and repeated members stay byte for byte, and
/// so does the kind of line end, which is that of the text's first line. Laying it out again changes nothing.
std::string laidOut(const JsonDocument& document);

}  // namespace customstyle_tool
