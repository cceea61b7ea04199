// Numbers as regular expressions.
#pragma once

#include <string>

namespace customstyle_tool {

/// A regular expression for the decimal texts of 0 to `highest`, leading zeros allowed.
std::string patternOfNumbersTo(int highest);

}  // namespace customstyle_tool
