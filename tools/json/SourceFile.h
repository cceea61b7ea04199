// A file that an author wrote, with its places.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/json/JsonDocument.h"
#include "tools/json/LineIndex.h"

namespace customstyle_tool {

/// A text as it was read, with its line numbers. Not copied, so that views of the text stay valid.
class SourceFile {
public:
    /// @param path  the name by which messages call the file
    SourceFile(std::string path, std::string text)
        : m_path(std::move(path)), m_text(std::move(text)), m_lines(m_text) {}
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    const std::string& path() const { return m_path; }
    std::string_view text() const { return m_text; }
    const LineIndex& lines() const { return m_lines; }

    /// "file:line:column" of a byte.
    std::string place(std::size_t offset) const;

private:
    std::string m_path;
    std::string m_text;
    LineIndex m_lines;
};

/// Why a file could not be read: one sentence with the file, the reason and the remedy.
struct ReadFailure {
    std::string text;
};

/// The value that a file holds, which has to outlive it. The failure tells the place.
std::variant<JsonDocument, ReadFailure> documentOf(const SourceFile& file, const char* what);

}  // namespace customstyle_tool
