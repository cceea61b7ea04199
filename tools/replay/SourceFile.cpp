#include "replay/SourceFile.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

std::optional<std::string> problemOf(const fs::path& path, const char* what) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return fmt::format("{}: there is no such file; give the path of a {}", path.string(), what);
    }
    if (error) return fmt::format("{}: {}; give the path of a {}", path.string(), error.message(), what);
    if (fs::is_directory(status)) return fmt::format("{}: is a directory; give the path of a {}", path.string(), what);
    if (!fs::is_regular_file(status)) {
        return fmt::format("{}: is not a regular file; give the path of a {}", path.string(), what);
    }
    return {};
}

}  // namespace

std::string SourceFile::place(std::size_t offset) const {
    const LinePosition position = m_lines.position(offset);
    return fmt::format("{}:{}:{}", m_path, position.line, position.column);
}

std::variant<std::unique_ptr<SourceFile>, ReadFailure> readSource(const std::string& path, const char* what) {
    if (const auto problem = problemOf(path, what)) return ReadFailure{*problem};
    std::ifstream stream(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) return ReadFailure{fmt::format("{}: cannot be read; check its permissions", path)};
    return std::make_unique<SourceFile>(path, std::move(text));
}

StyleSource::StyleSource(const SourceFile& file, JsonDocument document)
    : m_file(&file), m_document(std::move(document)) {
    for (const JsonValue rule : m_document.root().children()) m_rules.push_back(rule);
}

}  // namespace customstyle_tool
