#include "tools/support/PlainText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace customstyle_tool {
namespace {

// A line shows at most this many columns, and at most that many before the place.
constexpr std::size_t kShownColumns = 120;
constexpr std::size_t kColumnsBefore = 50;

// A quoted text of more bytes than this is cut.
constexpr std::size_t kQuotedBytes = 60;

struct CharacterRange {
    char32_t first;
    char32_t last;
};

// Control characters, and those that change the direction of writing or are invisible.
constexpr CharacterRange kEscaped[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},     {0x200B, 0x200F},
                                       {0x2028, 0x202E}, {0x2060, 0x2069}, {0xFEFF, 0xFEFF}, {0xD800, 0xDFFF}};

bool isIn(std::span<const CharacterRange> ranges, char32_t character) {
    return std::ranges::any_of(ranges, [character](const CharacterRange& range) {
        return character >= range.first && character <= range.last;
    });
}

struct Decoded {
    char32_t character;
    std::size_t size;  // 0 if it is not UTF-8
};

std::size_t sizeOfLead(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

Decoded decode(std::string_view text) {
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t size = sizeOfLead(lead);
    if (size <= 1) return {lead, size};
    if (text.size() < size) return {lead, 0};
    char32_t character = lead & (0x7F >> size);
    for (const char byte : text.substr(1, size - 1)) {
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) return {lead, 0};
        character = character << 6 | (static_cast<unsigned char>(byte) & 0x3F);
    }
    const bool isValid = character >= kSmallest[size] && character <= 0x10FFFF;
    return isValid ? Decoded{character, size} : Decoded{lead, 0};
}

std::string escapeOf(char32_t character) {
    if (character == '\n') return "\\n";
    if (character == '\r') return "\\r";
    return fmt::format("\\u{:04x}", static_cast<std::uint32_t>(character));
}

// East Asian characters take two columns.
std::size_t columnsOf(char32_t character) {
    constexpr CharacterRange kWide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                                        {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                                        {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
    return isIn(kWide, character) ? 2 : 1;
}

// A character as it may be printed: unchanged, or as an escape if it would control the terminal, change the direction
// of writing, or is not UTF-8.
struct PrintableCharacter {
    std::string_view source;
    std::string shown;
    std::size_t columns;
};

PrintableCharacter nextCharacter(std::string_view text) {
    const auto [character, size] = decode(text);
    if (size == 0) return {text.substr(0, 1), fmt::format("\\x{:02x}", static_cast<std::uint32_t>(character)), 4};
    if (character == '\t') return {text.substr(0, 1), " ", 1};
    if (!isIn(kEscaped, character))
        return {text.substr(0, size), std::string(text.substr(0, size)), columnsOf(character)};
    std::string escape = escapeOf(character);
    const std::size_t columns = escape.size();
    return {text.substr(0, size), std::move(escape), columns};
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const PrintableCharacter next = nextCharacter(text);
        columns += next.columns;
        text.remove_prefix(next.source.size());
    }
    return columns;
}

std::size_t startOfExcerpt(std::string_view line, std::size_t begin) {
    // Only what can be shown is examined: a line may be the whole file.
    std::size_t at = line.size() > kShownColumns && begin > kColumnsBefore ? begin - kColumnsBefore : 0;
    while (at > 0 && at < begin && (static_cast<unsigned char>(line[at]) & 0xC0) == 0x80) ++at;
    std::string_view before = line.substr(at, begin - at);
    std::size_t columns = columnsOf(before);
    if (columns < kShownColumns) return at;
    // Escapes are so much longer than what they stand for that the place would not be shown.
    while (columns > kColumnsBefore) {
        const PrintableCharacter next = nextCharacter(before);
        columns -= next.columns;
        before.remove_prefix(next.source.size());
    }
    return begin - before.size();
}

}  // namespace

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const Decoded next = decode(text);
        if (next.size == 0 || (next.character >= 0xD800 && next.character <= 0xDFFF)) return false;
        text.remove_prefix(next.size);
    }
    return true;
}

std::string escapedText(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const PrintableCharacter next = nextCharacter(text);
        shown += next.shown;
        text.remove_prefix(next.source.size());
    }
    return shown;
}

std::string inQuotes(std::string_view text) {
    return "\"" + shortened(text, kQuotedBytes) + "\"";
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        pieces.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return pieces;
}

std::string indented(std::string_view text, std::string_view margin) {
    std::string lines;
    if (text.empty()) return lines;
    if (text.ends_with('\n')) text.remove_suffix(1);
    for (const std::string& line : split(text, '\n')) lines += fmt::format("{}{}\n", margin, line);
    return lines;
}

std::string rangesText(std::span<const unsigned int> numbers) {
    std::vector<std::string> parts;
    for (std::size_t first = 0; first < numbers.size();) {
        std::size_t last = first;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
        parts.push_back(first == last ? fmt::format("{}", numbers[first])
                                      : fmt::format("{}-{}", numbers[first], numbers[last]));
        first = last + 1;
    }
    return fmt::format("{}", fmt::join(parts, ", "));
}

std::string wrapped(std::string_view text, std::size_t width, std::size_t column, std::size_t used) {
    std::string lines;
    std::size_t at = used;
    const auto startLine = [&] {
        lines += "\n" + std::string(column, ' ');
        at = column;
    };
    if (used >= column && used > 0) startLine();
    lines.append(column - at, ' ');
    at = column;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        if (at > column && at + 1 + word.size() > width) startLine();
        if (at > column) lines += ' ';
        at += word.size() + (at > column ? 1 : 0);
        lines += word;
    }
    return lines + "\n";
}

std::string shortened(std::string_view text, std::size_t most) {
    if (text.size() <= most) return std::string(text);
    std::size_t end = most;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return std::string(text.substr(0, end)) + "...";
}

Excerpt excerptOf(std::string_view line, std::size_t begin, std::size_t end) {
    std::size_t at = startOfExcerpt(line, begin);
    Excerpt excerpt;
    if (at > 0) excerpt = {"...", "   "};
    std::size_t columns = 0;
    while (at < line.size() && columns < kShownColumns) {
        const PrintableCharacter next = nextCharacter(line.substr(at));
        excerpt.line += next.shown;
        excerpt.carets.append(next.columns, at >= begin && at < end ? '^' : ' ');
        columns += next.columns;
        at += next.source.size();
    }
    if (at < line.size()) excerpt.line += "...";
    if (excerpt.carets.find('^') == std::string::npos) excerpt.carets += '^';
    excerpt.carets.resize(excerpt.carets.find_last_of('^') + 1);
    return excerpt;
}

}  // namespace customstyle_tool
