// The smallest parts of JSON text: white space, numbers and what is between quotes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tools/json/JsonError.h"

namespace customstyle_tool {

/// Whether a byte may be between values: every control character counts.
constexpr bool isBlank(char byte) {
    return static_cast<unsigned char>(byte) <= ' ';
}

constexpr bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

constexpr bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

constexpr char lowerCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

constexpr bool isHexDigit(char byte) {
    return isDigit(byte) || (lowerCase(byte) >= 'a' && lowerCase(byte) <= 'f');
}

std::string inLowerCase(std::string text);

constexpr bool equalIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lowerCase, lowerCase);
}

/// The first byte from `at` on that is not blank, or the size of the text.
std::size_t behindBlanks(std::string_view text, std::size_t at);

/// The length of the longest number that the text starts with; 0 if there is none.
std::size_t numberLength(std::string_view text);

/// Whether a number is written as the standard has it: no zero in front, digits on both sides of a point.
bool isStrictNumber(std::string_view number);

/// The value of a number as delimited by numberLength, correctly rounded; infinite beyond the range of double.
double numberValue(std::string_view number);

/// The position of the quote that closes a string, which starts at `at` after its opening quote; npos for none.
std::size_t closingQuote(std::string_view text, std::size_t at);

/// Whether each \u in a string, with its quotes or without, has its four hexadecimal digits, as the standard has it.
bool hasStrictEscapes(std::string_view string);

/// Replaces the escapes in what is between quotes. \u with wrong digits counts as \u0000.
///
/// @param inside   ends before a quote as closingQuote finds it
/// @param decoded  receives the decoded bytes; incomplete when there is an error
/// @return an error with its offset in `inside`, or nothing
std::optional<JsonError> decodeText(std::string_view inside, std::string& decoded);

}  // namespace customstyle_tool
