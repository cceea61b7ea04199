// Completion for shells, from how the subcommands describe themselves.
#pragma once

#include <span>
#include <string>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

/// The script that a shell loads.
std::string bashCompletion(std::span<const Command> commands);
std::string zshCompletion(std::span<const Command> commands);
std::string fishCompletion(std::span<const Command> commands);

}  // namespace customstyle_tool
