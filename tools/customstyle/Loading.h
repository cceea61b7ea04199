// The files that subcommands read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/customstyle/Command.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// The mapping of a call: given, or that of the settings beside a style.
struct MappingArguments {
    std::optional<std::string> mappingDirectory;
    std::optional<std::string> configuration;
    bool withoutConfiguration = false;
};

/// The style and the mapping that most subcommands ask about.
struct StyleArguments : MappingArguments {
    std::string style;
};

/// --config and --no-config.
/// @param forWhat  which styles settings are for, as in "Settings for WHAT"
/// @param folder   in which the search for settings starts
void addSettingsOptions(std::vector<Option>& options, std::optional<std::string>& configuration, bool& without,
                        const std::string& forWhat, const std::string& folder = "the folder of the style");

/// --mapping, --config and --no-config.
void addMappingOptions(std::vector<Option>& options, MappingArguments& arguments);

/// STYLE and the options of its mapping.
void addStyleArguments(std::vector<Option>& options, StyleArguments& arguments);

/// What findMapping() takes in place of a style to look in the current folder.
inline constexpr char kHere[] = "-";

/// Looks for the mapping in the settings beside the first style that has any, if none is given.
/// @return whether the settings, if there are any, can be read; complains if not
bool findMapping(MappingArguments& arguments, const std::vector<std::string>& styles);

/// Reads a style file, or builds the style of a build file; warnings about the build go to standard error.
/// @return the file, or why there is none, a sentence for each reason
std::variant<std::unique_ptr<SourceFile>, std::vector<std::string>> readStyle(const std::string& path);

/// The mapping of a directory, or the standard one without; none after a complaint.
std::optional<Mapping> mappingOrComplain(const std::optional<std::string>& directory);

/// Loads a style, or complains.
/// @param without  the mapping if there is no directory
/// @return null after a complaint
std::unique_ptr<StyleStudy> loadOrComplain(const StyleArguments& arguments);
std::unique_ptr<StyleStudy> loadOrComplain(const std::string& style, const std::optional<std::string>& mappingDirectory,
                                           const Mapping& without = Mapping::standard());

/// Says that a file cannot be read.
/// @return kMisuse
int complainOf(const ReadFailure& failure);
int complainOf(const std::vector<std::string>& problems);

/// Why a result must not be written to a file; nothing where it may.
/// @param inputs  the files that were read for the result and that it must not replace
std::optional<std::string> problemOfTarget(const std::string& target, const std::vector<std::string>& inputs);

/// Writes a text to a file whole or not at all, or to standard output for "-"; complains where that fails, and where
/// the file is one of the inputs.
/// @return the status
/// @throws std::system_error where standard output cannot be written
int writeResult(const std::string& target, const std::string& text, const std::vector<std::string>& inputs);

/// The files that paths name: a folder means all files *.json in it and its folders, in order of their names, but
/// not for hidden ones.
struct StyleFiles {
    std::vector<std::string> paths;
    std::vector<std::string> problems;  ///< folders without style files, or that cannot be read
};
StyleFiles styleFilesIn(const std::vector<std::string>& paths);

}  // namespace customstyle_tool
