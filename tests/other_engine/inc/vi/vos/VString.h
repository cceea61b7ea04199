// CVString of another engine: ASCII is all that it converts.
#pragma once

#include <string>

namespace [[gnu::visibility("default")]] _orvik_vi {

class CVString {
public:
    CVString() = default;
    CVString(const char* text) : m_text(text, text + std::char_traits<char>::length(text)) {}  // NOLINT
    CVString(const char16_t* text) : m_text(text) {}                                           // NOLINT

    CVString& operator+=(const CVString& tail) {
        m_text += tail.m_text;
        return *this;
    }
    friend CVString operator+(CVString head, const CVString& tail) { return head += tail; }

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Format(const char* format, ...) { *this = format; }
    operator const char16_t*() const { return m_text.c_str(); }  // NOLINT

private:
    std::u16string m_text;
};

}  // namespace _orvik_vi
