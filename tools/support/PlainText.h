// Text from a user's file, safe to print.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace customstyle_tool {

/// A text with everything that could do more than be read written as an escape: \n, \u001b, \xff. Tabs become blanks.
std::string escapedText(std::string_view text);

/// Whether a text is well-formed UTF-8.
bool isUtf8(std::string_view text);

/// A text in quotes; cut, with dots for the rest, where it is long.
std::string inQuotes(std::string_view text);

/// The pieces of a text between separators: one piece if there is no separator.
std::vector<std::string> split(std::string_view text, char separator);

/// The lines of a text, each after a margin.
std::string indented(std::string_view text, std::string_view margin);

/// "2101, 2103-2106" for ascending numbers.
std::string rangesText(std::span<const unsigned int> numbers);

/// A text in lines of at most `width` columns, wrapped at blanks, each from a column on.
/// @param used  how many columns of the first line are there already; from `column` on the text begins a new line
std::string wrapped(std::string_view text, std::size_t width, std::size_t column = 0, std::size_t used = 0);

/// A text cut to at most this many bytes, with dots for the rest.
std::string shortened(std::string_view text, std::size_t most);

/// The part of a source line around a place, with carets under the place.
struct Excerpt {
    std::string line;
    std::string carets;
};

/// @param begin  first byte of the place in the line
/// @param end    the byte after the place; beyond the line if the place continues on the next
Excerpt excerptOf(std::string_view line, std::size_t begin, std::size_t end);

}  // namespace customstyle_tool
