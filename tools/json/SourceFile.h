// A file that an author wrote, with the positions in it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/json/JsonDocument.h"
#include "tools/json/LineIndex.h"

namespace customstyle_tool {

class SourceFile;

/// Bytes of a file that an author wrote.
struct SourcePlace {
    const SourceFile* file;
    TextRange range;
};

/// Where a piece of a text was written.
struct SourceOrigin {
    /// The variable that was there in place of a value, and where its value is set.
    struct Variable {
        std::string name;
        SourcePlace place;
    };

    SourcePlace place;
    std::optional<Variable> variable;
};
using SourceOrigins = std::function<SourceOrigin(TextRange)>;

/// A text as it was read, with its line numbers. It cannot be copied, so views of the text stay valid.
class SourceFile {
public:
    /// @param path     the name of the file in messages
    /// @param origins  for a text that was made from others: where its bytes were written
    /// @param sources  for such a text: the paths of those others
    SourceFile(std::string path, std::string text, SourceOrigins origins = {}, std::vector<std::string> sources = {})
        : m_path(std::move(path)),
          m_text(std::move(text)),
          m_lines(m_text),
          m_origins(std::move(origins)),
          m_sources(std::move(sources)) {}
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    const std::string& path() const { return m_path; }
    std::string_view text() const { return m_text; }
    const LineIndex& lines() const { return m_lines; }

    /// Whether the text was made from other files. An author then cannot edit its bytes.
    bool isBuilt() const { return m_origins != nullptr; }

    /// The paths of all files that hold what the author wrote: this one, or those that it was made from.
    std::vector<std::string> sources() const { return isBuilt() ? m_sources : std::vector<std::string>{m_path}; }

    /// Where a piece of the text was written: here, or in the files that it was made from.
    SourceOrigin origin(TextRange range) const;

    /// "file:line:column" of where a byte was written.
    std::string place(std::size_t offset) const;

private:
    std::string m_path;
    std::string m_text;
    LineIndex m_lines;
    SourceOrigins m_origins;
    std::vector<std::string> m_sources;
};

/// Why a file could not be read: one sentence with the file, the reason and the remedy.
struct ReadFailure {
    std::string text;
};

/// The value that a file holds, which has to outlive it. The failure names the place.
std::variant<JsonDocument, ReadFailure> documentOf(const SourceFile& file, const char* what);

}  // namespace customstyle_tool
