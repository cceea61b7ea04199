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

/// Why there is no regular file to read under a path, if so.
/// @param what  what the file is meant to be, as the failure calls it: "style file"
std::optional<ReadFailure> problemOfFile(const std::string& path, const char* what);

/// Reads a regular file whole.
std::variant<std::unique_ptr<SourceFile>, ReadFailure> readSource(const std::string& path, const char* what);

/// The value that a file holds, which has to outlive it. The failure tells the place.
std::variant<JsonDocument, ReadFailure> documentOf(const SourceFile& file, const char* what);

/// A style file that is JSON: its rules in the order in which the component applies them.
class StyleSource {
public:
    StyleSource(const SourceFile& file, JsonDocument document);

    const SourceFile& file() const { return *m_file; }
    const JsonDocument& document() const { return m_document; }

    /// The rules: whatever values the outermost list or object holds.
    const std::vector<JsonValue>& rules() const { return m_rules; }

private:
    const SourceFile* m_file;
    JsonDocument m_document;
    std::vector<JsonValue> m_rules;
};

}  // namespace customstyle_tool
