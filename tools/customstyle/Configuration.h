// The file customstyle.toml beside the styles: the settings of the commands.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/check/FindingCodes.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Settings that a file may have; missing ones keep their defaults.
struct Configuration {
    std::string path{};  ///< of the file; empty where there is none
    std::optional<std::string> mappingDirectory{};
    std::optional<std::string> baseline{};
    std::vector<Code> selected{};  ///< only these, if there are any
    std::vector<Code> ignored{};
    std::map<Code, Severity> severities{};
    bool effects = false;
    bool warningsAreErrors = false;
};

/// What is wrong with a configuration: one sentence with file and position.
struct ConfigurationProblem {
    std::string text;
};

/// Reads a configuration. Paths in it are relative to its folder. A setting or a code that does not exist is a problem.
std::variant<Configuration, ConfigurationProblem> readConfiguration(const std::string& path);

/// Why the mapping of some settings cannot be read, naming the settings; nothing where it can, or where there is none.
std::optional<ReadFailure> problemOfMapping(const Configuration& configuration);

/// The file customstyle.toml that applies to a style: in its folder, else in the nearest folder above that has one.
std::optional<std::string> configurationFor(const std::string& style);

/// The codes in words of --select and --ignore, lists with commas.
std::vector<Code> codesIn(const std::vector<std::string>& words);

/// What is wrong with such a word; empty if nothing is.
std::string problemOfCodes(const std::string& word);

}  // namespace customstyle_tool
