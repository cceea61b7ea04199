// A style file's rules with their places.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/json/JsonDocument.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// A style file: its rules in the order in which the component applies them.
class StyleSource {
public:
    /// @param isWhole  whether the file is JSON; if not, the document holds what can be read of it
    StyleSource(const SourceFile& file, JsonDocument document, bool isWhole = true);

    const SourceFile& file() const { return *m_file; }
    const JsonDocument& document() const { return m_document; }

    /// The text for the component: that of the file or, if the file is broken, a list of the rules that can be read.
    std::string_view text() const { return m_readable.empty() ? m_file->text() : std::string_view(m_readable); }

    /// Whether the file is JSON.
    bool isWhole() const { return m_readable.empty(); }

    /// The rules: whatever values the outermost list or object holds.
    const std::vector<JsonValue>& rules() const { return m_rules; }

private:
    const SourceFile* m_file;
    JsonDocument m_document;
    std::vector<JsonValue> m_rules;
    std::string m_readable;  // of a broken file
};

}  // namespace customstyle_tool
