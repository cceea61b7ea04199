// The manual pages, from how the subcommands describe themselves.
#pragma once

#include <span>
#include <string>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

/// The page customstyle(1), which leads to the others, in mdoc.
std::string programManual(std::span<const Command> commands);

/// The page customstyle-NAME(1) of a subcommand.
std::string commandManual(const Command& command);

}  // namespace customstyle_tool
