// From byte offsets to the lines and columns that an editor shows.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace customstyle_tool {

/// What some editors write at the start of a UTF-8 text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A place as editors count it: everything from 1.
struct LinePosition {
    std::size_t line;
    std::size_t column;      ///< in characters (code points); a byte order mark at the start of the text does not count
    std::size_t byteColumn;  ///< in bytes

    bool operator==(const LinePosition&) const = default;
};

/// The lines of a text, which has to outlive the index. Lines end with \n or \r\n; the line end belongs to its line.
class LineIndex {
public:
    explicit LineIndex(std::string_view text);

    /// The position of a byte. An offset beyond the text counts as the end of the text.
    /// In malformed UTF-8 each byte counts as a character unless it could continue one.
    LinePosition position(std::size_t offset) const;

    /// The byte at a line and a column in characters, as position() counts them; the end of the line or of the text
    /// where they have fewer.
    std::size_t offset(std::size_t line, std::size_t column) const;

    /// A text that ends with a line end has an empty last line; the empty text has one line.
    std::size_t lineCount() const { return m_lineBegins.size(); }

    /// A line without its line end.
    /// @param line  1 to lineCount()
    std::string_view lineText(std::size_t line) const;

private:
    std::size_t charactersBefore(std::size_t offset) const;

    std::string_view m_text;
    std::vector<std::size_t> m_lineBegins;
    std::vector<std::size_t> m_charactersBeforeBlock;
};

}  // namespace customstyle_tool
