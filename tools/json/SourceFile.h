// A file that an author wrote, with its places.
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
    /// What stood there in place of a value, and where its value is set.
    struct Variable {
        std::string name;
        SourcePlace place;
    };

    SourcePlace place;
    std::optional<Variable> variable;
};
using SourceOrigins = std::function<SourceOrigin(TextRange)>;

/// A text as it was read, with its line numbers. Not copied, so that views of the text stay valid.
class SourceFile {
public:
    /// @param path     the name by which messages call the file
    /// @param origins  of a text that was made from others: where its bytes were written
    /// @param sources  of such a text: the paths of those others
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

    /// Whether the text was made from other files. Its bytes are then nothing that an author could edit.
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

/// The value that a file holds, which has to outlive it. The failure tells the place.
std::variant<JsonDocument, ReadFailure> documentOf(const SourceFile& file, const char* what);

}  // namespace customstyle_tool
