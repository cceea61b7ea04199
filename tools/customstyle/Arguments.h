// Options and arguments that several subcommands take, and what their words mean.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/customstyle/Command.h"

namespace customstyle_tool {

/// The argument STYLE, which can be written --style STYLE, too.
Option styleOption(std::string& style);

/// The --mapping that every subcommand takes that loads a style.
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

/// "fill, stroke or icon".
std::string eitherOf(const std::vector<std::string>& names);

/// What is wrong with a word that is not one of these: the nearest, or all that exist.
/// @param what  as in "unknown WHAT"
std::string unknownWord(const std::string& what, const std::string& word, const std::vector<std::string>& known);

}  // namespace customstyle_tool
