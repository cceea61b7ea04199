// Options and arguments that several subcommands take, and what their words mean.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/customstyle/Command.h"
#include "tools/support/Spelling.h"

namespace customstyle_tool {

/// The argument STYLE, which can also be written --style STYLE.
Option styleOption(std::string& style);

/// The --mapping of every subcommand that loads a style.
Option mappingOption(std::optional<std::string>& directory);

/// A --format with these values, each with what it is for.
Option formatOption(std::string& format, const std::vector<std::pair<std::string, std::string>>& values);

/// --color auto|always|never.
Option colorOption(std::string& choice);

/// An option that takes one of some words.
Option choiceOption(std::string names, std::string value, std::string help, Target target,
                    std::vector<std::string> choices);

/// --id N and --level L, each more than once; a list 1,2 or a range 4-9 counts as one value.
Option styleIdOption(std::vector<std::string>& words);
Option levelOption(std::vector<std::string>& words);

/// The numbers that words of --id and --level name, in their order, each once.
std::vector<unsigned int> styleIdsIn(const std::vector<std::string>& words);
std::vector<int> levelsIn(const std::vector<std::string>& words);

}  // namespace customstyle_tool
