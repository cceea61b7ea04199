#include "vi/vos/VString.h"

#include <utf8/core.h>
#include <utf8/unchecked.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <iterator>
#include <string_view>

namespace _orvik_vi {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

bool isAscii(char unit) {
    return static_cast<unsigned char>(unit) < 0x80;
}

struct ByteRange {
    unsigned char first;
    unsigned char last;

    bool contains(unsigned char byte) const { return byte >= first && byte <= last; }
};

// Bytes of a character after its lead byte; none for a byte that leads no character.
std::size_t followersOf(unsigned char lead) {
    if (ByteRange{0xC2, 0xDF}.contains(lead)) return 1;
    if (ByteRange{0xE0, 0xEF}.contains(lead)) return 2;
    return ByteRange{0xF0, 0xF4}.contains(lead) ? 3 : 0;
}

// What may directly follow a lead byte, so that no character is overlong, a surrogate or beyond U+10FFFF.
ByteRange secondOf(unsigned char lead) {
    switch (lead) {
        case 0xE0:
            return {0xA0, 0xBF};
        case 0xED:
            return {0x80, 0x9F};
        case 0xF0:
            return {0x90, 0xBF};
        case 0xF4:
            return {0x80, 0x8F};
        default:
            return {0x80, 0xBF};
    }
}

// Length of a malformed sequence: the longest beginning of a character, at least one byte.
std::size_t malformedLength(std::string_view utf8) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const std::size_t end = std::min(utf8.size(), 1 + followersOf(byteAt(0)));
    ByteRange allowed = secondOf(byteAt(0));
    std::size_t length = 1;
    for (; length < end && allowed.contains(byteAt(length)); ++length) allowed = {0x80, 0xBF};
    return length;
}

std::u16string decoded(std::string_view utf8) {
    // ASCII reads the same in both forms.
    if (std::ranges::all_of(utf8, isAscii)) return {utf8.begin(), utf8.end()};
    std::u16string utf16;
    while (true) {
        const char* const wellFormedEnd = utf8::find_invalid(utf8.data(), utf8.data() + utf8.size());
        utf8::unchecked::utf8to16(utf8.data(), wellFormedEnd, std::back_inserter(utf16));
        utf8.remove_prefix(static_cast<std::size_t>(wellFormedEnd - utf8.data()));
        if (utf8.empty()) return utf16;
        utf16 += kReplacement;
        utf8.remove_prefix(malformedLength(utf8));
    }
}

// The character at a position: a unit, a pair, or for half of a pair the replacement character.
char32_t characterAt(std::u16string_view text, std::size_t position) {
    const auto isHigh = [](char16_t unit) { return (unit & 0xFC00) == 0xD800; };
    const auto isLow = [](char16_t unit) { return (unit & 0xFC00) == 0xDC00; };
    const char16_t unit = text[position];
    if (isLow(unit)) return kReplacement;
    if (!isHigh(unit)) return unit;
    if (position + 1 == text.size() || !isLow(text[position + 1])) return kReplacement;
    return 0x10000U + ((unit & 0x3FFU) << 10) + (text[position + 1] & 0x3FFU);
}

}  // namespace

CVString::CVString(const char* utf8) {
    if (utf8 != nullptr) m_text = decoded(utf8);
}

CVString::CVString(const char16_t* utf16) {
    if (utf16 != nullptr) m_text = utf16;
}

CVString& CVString::operator+=(const CVString& tail) {
    m_text += tail.m_text;
    return *this;
}

int CVString::Compare(const CVString& other) const {
    return m_text.compare(other.m_text);
}

int CVString::Compare(const char* utf8) const {
    if (utf8 == nullptr) return m_text.empty() ? 0 : 1;
    // ASCII reads the same in both forms and is compared in place, which ends at the first difference.
    std::size_t i = 0;
    for (; i < m_text.size() && utf8[i] != '\0' && isAscii(utf8[i]); ++i) {
        const char16_t there = static_cast<unsigned char>(utf8[i]);
        if (m_text[i] != there) return m_text[i] < there ? -1 : 1;
    }
    if (utf8[i] == '\0') return i == m_text.size() ? 0 : 1;
    return m_text.compare(i, std::u16string::npos, decoded(utf8 + i));
}

int CVString::Find(const CVString& text) const {
    const std::size_t position = m_text.find(text.m_text);
    return position == std::u16string::npos ? -1 : static_cast<int>(position);
}

CVString CVString::Mid(int first) const {
    return Mid(first, GetLength());
}

CVString CVString::Mid(int first, int count) const {
    const std::size_t begin = std::min(m_text.size(), static_cast<std::size_t>(std::max(first, 0)));
    CVString part;
    part.m_text = m_text.substr(begin, static_cast<std::size_t>(std::max(count, 0)));
    return part;
}

void CVString::Format(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list measured;
    va_copy(measured, arguments);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_copy made it, which the check overlooks
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::string utf8(static_cast<std::size_t>(std::max(length, 0)), '\0');
    std::vsnprintf(utf8.data(), utf8.size() + 1, format, arguments);
    va_end(arguments);
    m_text = decoded(utf8.c_str());
}

std::string CVString::ToUtf8() const {
    std::string utf8;
    utf8.reserve(m_text.size());
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        const char32_t character = characterAt(m_text, i);
        if (character > 0xFFFF) ++i;
        utf8::unchecked::append(character, std::back_inserter(utf8));
    }
    return utf8;
}

}  // namespace _orvik_vi
