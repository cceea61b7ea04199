#include "tools/support/LoadedMap.h"

#include <fmt/format.h>

#include <filesystem>
#include <vector>

#include "tools/support/FeatureTypes.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;
using _orvik_framework::CustomConfig;
using Problem = std::optional<ReadFailure>;

constexpr char kMappingName[] = "CustomIndex";
constexpr char kMapping[] = "mapping file";
constexpr char kStyle[] = "style file";

Problem problemOfMapping(const std::string& path, JsonValue root) {
    std::vector<std::string> absent;
    for (const std::string& name : mappedTypeNames()) {
        const auto list = root.firstMemberIgnoringCase(name);
        if (!list || list->kind() != JsonKind::Array) absent.push_back(name);
    }
    if (absent.empty()) return {};
    return ReadFailure{
        fmt::format("{}: has no list of style ids for {}; add a member with an array for each, empty if need be", path,
                    fmt::join(absent, ", "))};
}

std::string reasonAgainstDirectory(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return "there is no such directory";
    if (!fs::is_directory(status)) return "is not a directory";
    const bool isMissing = fs::status(mappingFileIn(path), error).type() == fs::file_type::not_found;
    return isMissing ? "holds no file CustomIndex" : "";
}

using Judge = Problem (*)(const std::string& path, JsonValue root);

Problem problemOfContent(const std::string& path, const char* what, Judge judge) {
    const auto source = readSource(path, what);
    if (const auto* failure = std::get_if<ReadFailure>(&source)) return *failure;
    const auto document = documentOf(*std::get<0>(source), what);
    if (const auto* failure = std::get_if<ReadFailure>(&document)) return *failure;
    return judge == nullptr ? Problem() : judge(path, std::get<JsonDocument>(document).root());
}

// The component has refused the files; find out why.
ReadFailure explained(const std::string& mapping, const std::string& style) {
    if (Problem problem = problemOfContent(mapping, kMapping, problemOfMapping)) return *problem;
    if (Problem problem = problemOfContent(style, kStyle, nullptr)) return *problem;
    return {fmt::format("{}, {}: cannot be loaded", mapping, style)};
}

}  // namespace

std::string mappingFileIn(const std::string& mappingDirectory) {
    return (fs::path(mappingDirectory) / kMappingName).string();
}

Problem problemOfMappingDirectory(const std::string& path) {
    const std::string reason = reasonAgainstDirectory(path);
    if (reason.empty()) return {};
    return ReadFailure{fmt::format(
        "{}: {}; --mapping takes the directory that holds the file CustomIndex (no trailing separator needed)",
        path.empty() ? "\"\"" : path, reason)};
}

LoadedMap loadMap(const std::string& mappingDirectory, const std::string& styleFile) {
    const std::string mapping = mappingFileIn(mappingDirectory);
    if (Problem problem = problemOfMappingDirectory(mappingDirectory)) return *problem;
    if (Problem problem = problemOfFile(mapping, kMapping)) return *problem;
    if (Problem problem = problemOfFile(styleFile, kStyle)) return *problem;

    auto config = std::make_unique<CustomConfig>();
    const std::string prefix = (fs::path(mappingDirectory) / "").string();
    if (config->Init(prefix.c_str(), styleFile.c_str()) == 0) return explained(mapping, styleFile);
    g_zrsdk_custom_style_enable = 1;
    return config;
}

}  // namespace customstyle_tool
