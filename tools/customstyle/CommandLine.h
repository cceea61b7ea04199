// The words of a call.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

/// What a call asks for.
struct Request {
    enum class Kind { Run, Help, Version, Problem };

    Kind kind = Kind::Problem;
    const Command* command = nullptr;  ///< to run, or to help with; null for the program's help
    std::string problem{};             ///< two lines: what is wrong, and the help that says more
};

/// Reads the words of a call, and stores their values in the targets of the chosen subcommand's options.
/// @param words  without the program's name
Request requestOf(std::vector<std::string> words, std::span<const Command> commands);

}  // namespace customstyle_tool
