// The files that subcommands read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/customstyle/Command.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// The style and the mapping that most subcommands ask about.
struct StyleArguments {
    std::string style;
    std::optional<std::string> mappingDirectory;
};

/// STYLE and --mapping.
void addStyleArguments(std::vector<Option>& options, StyleArguments& arguments);

/// The mapping of a directory, or the standard one without; none after a complaint.
std::optional<Mapping> mappingOrComplain(const std::optional<std::string>& directory);

/// Loads a style, or complains.
/// @param without  the mapping where there is no directory
/// @return null where there was something to complain of
std::unique_ptr<StyleStudy> loadOrComplain(const std::string& style, const std::optional<std::string>& mappingDirectory,
                                           const Mapping& without = Mapping::standard());

/// Says that a file cannot be read.
/// @return kMisuse
int complainOf(const ReadFailure& failure);

/// The files that paths name: a folder stands for all files *.json in it and its folders, in order of their names, but
/// not for hidden ones.
struct StyleFiles {
    std::vector<std::string> paths;
    std::vector<std::string> problems;  ///< folders without style files, or that cannot be read
};
StyleFiles styleFilesIn(const std::vector<std::string>& paths);

}  // namespace customstyle_tool
