#include "tools/json/SourceFile.h"

#include <fmt/format.h>

namespace customstyle_tool {

SourceOrigin SourceFile::origin(TextRange range) const {
    return m_origins ? m_origins(range) : SourceOrigin{{this, range}, {}};
}

std::string SourceFile::place(std::size_t offset) const {
    const auto [file, range] = origin({offset, offset}).place;
    const LinePosition position = file->lines().position(range.begin);
    return fmt::format("{}:{}:{}", file->path(), position.line, position.column);
}

std::variant<JsonDocument, ReadFailure> documentOf(const SourceFile& file, const char* what) {
    if (file.text().empty()) return ReadFailure{fmt::format("{}: is empty; a {} holds JSON", file.path(), what)};
    auto parsed = parseJson(file.text());
    if (const JsonError* error = std::get_if<JsonError>(&parsed)) {
        return ReadFailure{fmt::format("{}: is not JSON: {}", file.place(error->offset), error->reason())};
    }
    return std::get<JsonDocument>(std::move(parsed));
}

}  // namespace customstyle_tool
