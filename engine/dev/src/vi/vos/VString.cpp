#include "vi/vos/VString.h"

#include <unicode/ustring.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <string_view>

namespace _orvik_vi {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;

bool isAscii(char unit) {
    return static_cast<unsigned char>(unit) < 0x80;
}

std::u16string decoded(std::string_view utf8) {
    // ASCII reads the same in both forms.
    if (std::ranges::all_of(utf8, isAscii)) return {utf8.begin(), utf8.end()};
    // One byte never becomes more than one UTF-16 unit.
    std::u16string utf16(std::min<std::size_t>(utf8.size(), std::numeric_limits<std::int32_t>::max()), u'\0');
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(utf16.data(), static_cast<std::int32_t>(utf16.size()), &length, utf8.data(),
                         static_cast<std::int32_t>(utf16.size()), kReplacement, nullptr, &status);
    utf16.resize(static_cast<std::size_t>(length));
    return utf16;
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
    std::string utf8(3 * m_text.size(), '\0');  // one UTF-16 unit becomes at most three bytes
    std::int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(utf8.data(), static_cast<std::int32_t>(utf8.size()), &length, m_text.data(),
                       static_cast<std::int32_t>(m_text.size()), kReplacement, nullptr, &status);
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}

}  // namespace _orvik_vi
