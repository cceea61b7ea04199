#include "tools/customstyle/Loading.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "tools/build/StyleBuild.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Configuration.h"
#include "tools/customstyle/Console.h"
#include "tools/host/AtomicFile.h"
#include "tools/host/Files.h"
#include "tools/host/LoadedMap.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

bool isHidden(const fs::path& path) {
    return path.filename().string().starts_with('.');
}

// The style files below a folder, or why they cannot be found.
std::string addFilesIn(const std::string& folder, std::vector<std::string>& found) {
    std::error_code error;
    std::vector<std::string> inside;
    for (fs::recursive_directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
        std::error_code unreadable;
        if (isHidden(each->path())) {
            each.disable_recursion_pending();
        } else if (each->path().extension() == ".json" && !each->is_directory(unreadable)) {
            inside.push_back(each->path().string());
        }
    }
    if (error) return fmt::format("{}: {}", folder, error.message());
    if (inside.empty()) return fmt::format("{}: the folder has no style file (*.json)", folder);
    std::ranges::sort(inside);
    found.insert(found.end(), inside.begin(), inside.end());
    return {};
}

}  // namespace

void addSettingsOptions(std::vector<Option>& options, std::optional<std::string>& configuration, bool& without,
                        const std::string& forWhat, const std::string& folder) {
    options.push_back({.names = "--config",
                       .value = "FILE",
                       .help = fmt::format("Settings for {}; without it, customstyle.toml in {} or the nearest above",
                                           forWhat, folder),
                       .target = &configuration,
                       .offer = Offer::Files});
    options.push_back({.names = "--no-config", .help = "Use no settings", .target = &without});
}

void addMappingOptions(std::vector<Option>& options, MappingArguments& arguments) {
    options.push_back(mappingOption(arguments.mappingDirectory));
    addSettingsOptions(options, arguments.configuration, arguments.withoutConfiguration, "the mapping");
}

void addStyleArguments(std::vector<Option>& options, StyleArguments& arguments) {
    options.push_back(styleOption(arguments.style));
    addMappingOptions(options, arguments);
}

bool findMapping(MappingArguments& arguments, const std::vector<std::string>& styles) {
    if (arguments.mappingDirectory || arguments.withoutConfiguration) return true;
    std::optional<std::string> path = arguments.configuration;
    for (const std::string& style : styles) {
        if (!path) path = configurationFor(style);
    }
    if (!path) return true;
    auto read = readConfiguration(*path);
    if (const auto* problem = std::get_if<ConfigurationProblem>(&read)) {
        complain(problem->text);
        return false;
    }
    arguments.mappingDirectory = std::get<Configuration>(read).mappingDirectory;
    const auto problem = problemOfMapping(std::get<Configuration>(read));
    if (problem) complainOf(*problem);
    return !problem;
}

std::variant<std::unique_ptr<SourceFile>, std::vector<std::string>> readStyle(const std::string& path) {
    if (!isBuildFile(path)) {
        auto read = readSource(path, "style file");
        if (const auto* failure = std::get_if<ReadFailure>(&read)) return std::vector<std::string>{failure->text};
        return std::get<0>(std::move(read));
    }
    auto built = builtStyle(path);
    if (auto* problems = std::get_if<BuildProblems>(&built)) return std::move(*problems);
    auto& style = std::get<BuiltStyle>(built);
    for (const std::string& warning : style.warnings) complain(warning);
    return std::move(style.file);
}

std::optional<Mapping> mappingOrComplain(const std::optional<std::string>& directory) {
    if (!directory) return Mapping::standard();
    auto loaded = loadMapping(*directory);
    if (Mapping* const mapping = std::get_if<Mapping>(&loaded)) return std::move(*mapping);
    complainOf(std::get<ReadFailure>(loaded));
    return {};
}

int complainOf(const ReadFailure& failure) {
    return complain(failure.text);
}

int complainOf(const std::vector<std::string>& problems) {
    for (const std::string& problem : problems) complain(problem);
    return kMisuse;
}

std::optional<std::string> problemOfTarget(const std::string& target, const std::vector<std::string>& inputs) {
    for (const std::string& input : inputs) {
        std::error_code error;
        if (fs::equivalent(input, target, error))
            return fmt::format("{}: the result is made from this file; write it to another one", target);
    }
    return {};
}

int writeResult(const std::string& target, const std::string& text, const std::vector<std::string>& inputs) {
    if (target == "-") {
        print(text);
        if (std::fflush(stdout) != 0) throw std::system_error(errno, std::generic_category());
        return kGood;
    }
    std::optional<std::string> problem = problemOfTarget(target, inputs);
    if (!problem && isBuildFile(target))
        problem = fmt::format("{}: .toml is for build files; give the style a name that ends with .json", target);
    if (!problem) problem = writeWhole(target, text);
    return problem ? complain(*problem) : kGood;
}

std::unique_ptr<StyleStudy> loadOrComplain(const StyleArguments& arguments) {
    StyleArguments complete = arguments;
    if (!findMapping(complete, {complete.style})) return nullptr;
    return loadOrComplain(complete.style, complete.mappingDirectory);
}

std::unique_ptr<StyleStudy> loadOrComplain(const std::string& style, const std::optional<std::string>& mappingDirectory,
                                           const Mapping& without) {
    auto read = readStyle(style);
    if (const auto* problems = std::get_if<std::vector<std::string>>(&read)) {
        complainOf(*problems);
        return nullptr;
    }
    StyleOrFailure loaded = studyOf(std::get<0>(std::move(read)), mappingDirectory, without);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&loaded)) {
        complainOf(*failure);
        return nullptr;
    }
    return std::get<0>(std::move(loaded));
}

StyleFiles styleFilesIn(const std::vector<std::string>& paths) {
    StyleFiles files;
    for (const std::string& path : paths) {
        std::error_code error;
        if (!fs::is_directory(path, error)) {
            files.paths.push_back(path);
            continue;
        }
        std::string problem = addFilesIn(path, files.paths);
        if (!problem.empty()) files.problems.push_back(std::move(problem));
    }
    return files;
}

}  // namespace customstyle_tool
