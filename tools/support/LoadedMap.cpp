#include "support/LoadedMap.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

#include "vi/vos/VJson.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;
using _orvik_framework::CustomConfig;
using Problem = std::optional<std::string>;

constexpr char kMappingName[] = "CustomIndex";

struct TreeDeleter {
    void operator()(cJSON* tree) const { cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<cJSON, TreeDeleter>;

Problem problemOfPath(const fs::path& file, const char* what, const char* option) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found) {
        return fmt::format("{}: there is no such {}; give its path with {}", file.string(), what, option);
    }
    if (error) return fmt::format("{}: {}", file.string(), error.message());
    if (fs::is_directory(status)) return fmt::format("{}: is a directory, not a {}", file.string(), what);
    if (!fs::is_regular_file(status)) return fmt::format("{}: is not a regular file", file.string());
    if (!std::ifstream(file)) return fmt::format("{}: cannot be read; check its permissions", file.string());
    return {};
}

Problem problemOfDirectory(const fs::path& directory) {
    std::error_code error;
    const fs::file_status status = fs::status(directory, error);
    if (fs::is_directory(status)) return {};
    const char* const remedy =
        "--mapping takes the directory that holds the file CustomIndex (no trailing separator needed)";
    if (fs::exists(status)) return fmt::format("{}: is not a directory; {}", directory.string(), remedy);
    return fmt::format("{}: there is no such directory; {}", directory.string(), remedy);
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Problem problemOfJson(const fs::path& file, const std::string& text) {
    const char* end = nullptr;
    const Tree tree(cJSON_ParseWithLengthOpts(text.data(), text.size(), &end, 0));
    if (tree != nullptr) return {};
    if (text.empty()) return fmt::format("{}: is empty; it must hold JSON", file.string());
    const char* const stop = end == nullptr ? text.data() : end;
    const auto line = 1 + std::count(text.data(), stop, '\n');
    const auto lineStart = std::find(std::make_reverse_iterator(stop), std::make_reverse_iterator(text.data()), '\n');
    return fmt::format("{}:{}:{}: is not valid JSON from here on", file.string(), line, 1 + (stop - lineStart.base()));
}

Problem problemOfMapping(const fs::path& file, const std::string& text) {
    const Tree tree(cJSON_ParseWithLength(text.data(), text.size()));
    const CustomConfig catalogue;
    std::vector<std::string> absent;
    for (int featureType = 0; featureType < _orvik_framework::EMAPCUSTOMSTYLE_ALL; ++featureType) {
        const std::string name = catalogue.GetFeatureTypeName(featureType);
        if (!cJSON_IsArray(cJSON_GetObjectItem(tree.get(), name.c_str()))) absent.push_back(name);
    }
    if (absent.empty()) return {};
    return fmt::format("{}: has no list of style ids for {}; add a member with an array for each, empty if need be",
                       file.string(), fmt::join(absent, ", "));
}

// The component has refused the files; find out why.
std::string explained(const fs::path& mapping, const fs::path& style) {
    const std::string mappingText = contentOf(mapping);
    if (Problem problem = problemOfJson(mapping, mappingText)) return *problem;
    if (Problem problem = problemOfMapping(mapping, mappingText)) return *problem;
    if (Problem problem = problemOfJson(style, contentOf(style))) return *problem;
    return "the files could not be loaded";
}

}  // namespace

LoadedMap loadMap(const std::string& mappingDirectory, const std::string& styleFile) {
    const fs::path mapping = fs::path(mappingDirectory) / kMappingName;
    if (Problem problem = problemOfDirectory(mappingDirectory)) return LoadFailure{*problem};
    if (Problem problem = problemOfPath(mapping, "mapping file", "--mapping DIR")) return LoadFailure{*problem};
    if (Problem problem = problemOfPath(styleFile, "style file", "--style FILE")) return LoadFailure{*problem};

    auto config = std::make_unique<CustomConfig>();
    const std::string prefix = (fs::path(mappingDirectory) / "").string();
    if (config->Init(prefix.c_str(), styleFile.c_str()) == 0) return LoadFailure{explained(mapping, styleFile)};
    g_zrsdk_custom_style_enable = 1;
    return config;
}

}  // namespace customstyle_tool
