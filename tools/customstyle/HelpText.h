// The help of the program and its subcommands, for a terminal.
#pragma once

#include <span>
#include <string>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

std::string programHelp(std::span<const Command> commands);
std::string commandHelp(const Command& command);

/// What the program is, in one sentence.
const char* programSummary();

}  // namespace customstyle_tool
