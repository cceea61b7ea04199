#include "tools/json/JsonScalars.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <variant>

#include "tools/support/Numbers.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kUnicodeEscapeSize = 6;  // \u0000

std::size_t behindDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigit(text[at])) ++at;
    return at;
}

// ---- Numbers --------------------------------------------------------------------------------------------------------

// The exponent at `at`, or nothing if it has no digits.
std::size_t behindExponent(std::string_view text, std::size_t at) {
    if (at == text.size() || lowerCase(text[at]) != 'e') return at;
    std::size_t digits = at + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
    const std::size_t end = behindDigits(text, digits);
    return end == digits ? at : end;
}

// ---- Escapes --------------------------------------------------------------------------------------------------------

struct SimpleEscape {
    char letter;
    char meaning;
};

constexpr SimpleEscape kSimpleEscapes[] = {
    {'"', '"'}, {'\\', '\\'}, {'/', '/'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
};

struct Escape {
    std::size_t size;
    char32_t character;
};
using EscapeOrFault = std::variant<Escape, JsonFault>;

constexpr bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t unitOf(std::string_view escape) {
    return numberIn<std::uint32_t>(escape.substr(2, 4), 16).value_or(0);
}

EscapeOrFault readUnicodeEscape(std::string_view text) {
    if (text.size() < kUnicodeEscapeSize) return JsonFault::ShortUnicodeEscape;
    const char32_t first = unitOf(text);
    if (isLowSurrogate(first)) return JsonFault::LoneSurrogate;
    if (!isHighSurrogate(first)) return Escape{kUnicodeEscapeSize, first};

    const std::string_view next = text.substr(kUnicodeEscapeSize);
    if (next.size() < kUnicodeEscapeSize || !next.starts_with("\\u")) return JsonFault::LoneSurrogate;
    const char32_t second = unitOf(next);
    if (!isLowSurrogate(second)) return JsonFault::LoneSurrogate;
    return Escape{2 * kUnicodeEscapeSize, 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF)};
}

// The text starts with a backslash and another byte.
EscapeOrFault readEscape(std::string_view text) {
    if (text[1] == 'u') return readUnicodeEscape(text);
    const auto* const simple = std::ranges::find(kSimpleEscapes, text[1], &SimpleEscape::letter);
    if (simple == std::end(kSimpleEscapes)) return JsonFault::UnknownEscape;
    return Escape{2, static_cast<unsigned char>(simple->meaning)};
}

void appendUtf8(char32_t character, std::string& text) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (character < 0x80) return append(character);
    if (character < 0x800) {
        append(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            append(0xE0 | character >> 12);
        } else {
            append(0xF0 | character >> 18);
            append(0x80 | (character >> 12 & 0x3F));
        }
        append(0x80 | (character >> 6 & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}

}  // namespace

std::string inLowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), lowerCase);
    return text;
}

std::size_t behindBlanks(std::string_view text, std::size_t at) {
    while (at < text.size() && isBlank(text[at])) ++at;
    return at;
}

std::size_t numberLength(std::string_view text) {
    const std::size_t whole = text.starts_with('-') ? 1 : 0;
    std::size_t end = behindDigits(text, whole);
    std::size_t digits = end - whole;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = end + 1;
        end = behindDigits(text, fraction);
        digits += end - fraction;
    }
    return digits == 0 ? 0 : behindExponent(text, end);
}

double numberValue(std::string_view number) {
    // A number beyond the range of double is read as infinite or 0, as in the component.
    return std::strtod(std::string(number).c_str(), nullptr);
}

std::size_t closingQuote(std::string_view text, std::size_t at) {
    for (; at < text.size(); ++at) {
        if (text[at] == '"') return at;
        if (text[at] == '\\') ++at;
    }
    return std::string_view::npos;
}

bool hasStrictEscapes(std::string_view string) {
    for (std::size_t at = string.find('\\'); at < string.size(); at = string.find('\\', at + 2)) {
        const std::string_view escape = string.substr(at, kUnicodeEscapeSize);
        if (!escape.starts_with("\\u")) continue;
        if (escape.size() < kUnicodeEscapeSize || !std::ranges::all_of(escape.substr(2), isHexDigit)) return false;
    }
    return true;
}

std::optional<JsonError> decodeText(std::string_view inside, std::string& decoded) {
    decoded.clear();
    for (std::size_t at = 0; at < inside.size();) {
        const std::size_t backslash = std::min(inside.find('\\', at), inside.size());
        decoded.append(inside.substr(at, backslash - at));
        if (backslash == inside.size()) break;
        const EscapeOrFault escape = readEscape(inside.substr(backslash));
        if (const auto* fault = std::get_if<JsonFault>(&escape)) return JsonError{*fault, backslash};
        appendUtf8(std::get<Escape>(escape).character, decoded);
        at = backslash + std::get<Escape>(escape).size;
    }
    return {};
}

bool isStrictNumber(std::string_view number) {
    if (number.starts_with('-')) number.remove_prefix(1);
    const auto takeDigits = [&number] {
        const std::size_t count = std::min(number.find_first_not_of("0123456789"), number.size());
        const bool isZeroInFront = count > 1 && number[0] == '0';
        number.remove_prefix(count);
        return std::pair(count > 0, isZeroInFront);
    };
    const auto [hasWhole, isZeroInFront] = takeDigits();
    if (!hasWhole || isZeroInFront) return false;
    if (number.starts_with('.')) {
        number.remove_prefix(1);
        if (!takeDigits().first) return false;
    }
    if (number.empty()) return true;
    if (lowerCase(number[0]) != 'e') return false;
    number.remove_prefix(1);
    if (number.starts_with('+') || number.starts_with('-')) number.remove_prefix(1);
    return takeDigits().first && number.empty();
}

}  // namespace customstyle_tool
