#include "tools/host/Files.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

// Why there is nothing to read, or nothing.
std::string reasonAgainst(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return path == "-" ? "standard input is not read" : "there is no such file";
    }
    if (error) return error.message();
    if (fs::is_directory(status)) return "is a directory";
    return fs::is_regular_file(status) ? "" : "is not a regular file";
}

}  // namespace

std::optional<ReadFailure> problemOfFile(const std::string& path, const char* what) {
    const std::string shown = path.empty() ? "\"\"" : path;
    const std::string reason = reasonAgainst(path);
    if (!reason.empty()) return ReadFailure{fmt::format("{}: {}; give the path of a {}", shown, reason, what)};
    if (!std::ifstream(path)) return ReadFailure{fmt::format("{}: cannot be read; check its permissions", shown)};
    return {};
}

std::variant<std::unique_ptr<SourceFile>, ReadFailure> readSource(const std::string& path, const char* what) {
    if (auto problem = problemOfFile(path, what)) return std::move(*problem);
    std::ifstream stream(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) return ReadFailure{fmt::format("{}: cannot be read to its end", path)};
    return std::make_unique<SourceFile>(path, std::move(text));
}

}  // namespace customstyle_tool
