// What the subcommands print besides their answers, and whether in colour.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

/// Prints on standard error what is wrong, in one line.
/// @return kMisuse
int complain(std::string_view text);

/// Whether all that was printed has reached standard output; complains if not.
/// @return the status, or kMisuse
int withOutputWritten(int status);

/// Prints a text as it is.
/// @throws std::system_error where that fails
void print(std::string_view text);

/// Whether output has colours: "always", "never", or "auto": where standard output is a terminal that can show them and
/// the environment variable NO_COLOR is unset or empty.
bool isColored(const std::string& choice);

/// "1 rule", "2 rules".
std::string counted(std::size_t number, std::string_view what);

}  // namespace customstyle_tool
