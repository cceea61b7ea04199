// Texts of a file on their way to a terminal.
#pragma once

#include <string>
#include <string_view>

namespace customstyle_tool {

/// The text with control characters as escapes (\x1b), so that a file can neither forge lines nor steer a terminal.
std::string printable(std::string_view text);

}  // namespace customstyle_tool
