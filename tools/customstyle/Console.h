// What the subcommands say beside their answers.
#pragma once

#include <string_view>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

/// Says on standard error what is wrong, in one line.
/// @return the status
int complain(std::string_view text, int status = kMisuse);

/// Whether all that was printed has reached standard output; complains if not.
/// @return the status, or kMisuse
int withOutputWritten(int status);

}  // namespace customstyle_tool
