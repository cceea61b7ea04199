// Arguments that several subcommands take.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

namespace customstyle_tool {

/// Adds a --mapping that may be left out, as loadStyle takes it.
void addMapping(CLI::App& command, std::optional<std::string>& directory);

/// Adds a --format with these values.
void addFormat(CLI::App& command, std::string& format, const std::vector<std::string>& values,
               const std::string& description);

/// Tests of arguments that are a style id or a level: plain decimal numbers, without zeros in front.
CLI::Validator isStyleId();
CLI::Validator isLevel();

/// Tests an argument that is a file to write.
CLI::Validator isOutputFile();

}  // namespace customstyle_tool
