#include "tools/customstyle/Loading.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
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
    if (inside.empty()) return fmt::format("{}: the folder holds no style file (*.json)", folder);
    std::ranges::sort(inside);
    found.insert(found.end(), inside.begin(), inside.end());
    return {};
}

}  // namespace

void addStyleArguments(std::vector<Option>& options, StyleArguments& arguments) {
    options.push_back(styleOption(arguments.style));
    options.push_back(mappingOption(arguments.mappingDirectory));
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

std::unique_ptr<StyleStudy> loadOrComplain(const std::string& style, const std::optional<std::string>& mappingDirectory,
                                           const Mapping& without) {
    StyleOrFailure loaded = loadStyle(style, mappingDirectory, without);
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
