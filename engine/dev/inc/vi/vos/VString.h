// CVString: the engine's UTF-16 text.
#pragma once

#include <string>

namespace [[gnu::visibility("default")]] _orvik_vi {

/// Text in UTF-16, a value type that owns its storage.
///
/// Eight-bit text is UTF-8. Every malformed byte sequence becomes U+FFFD, so that text from a user's file can always be
/// held, searched and logged. Lengths and positions count UTF-16 units, not characters. Comparison and search are
/// exact: case counts and nothing is normalised. The text ends before its first NUL.
class CVString {
public:
    /// The empty text.
    CVString() = default;

    /// Converts UTF-8 text. A null pointer gives the empty text.
    CVString(const char* utf8);  // NOLINT(google-explicit-constructor): the engine passes literals as texts

    /// Copies UTF-16 text up to its terminating zero. A null pointer gives the empty text.
    CVString(const char16_t* utf16);  // NOLINT(google-explicit-constructor)

    /// Appends a text.
    CVString& operator+=(const CVString& tail);
    friend CVString operator+(CVString head, const CVString& tail) { return head += tail; }

    /// Orders by UTF-16 units: negative when this text comes first, 0 when both are equal, positive otherwise.
    int Compare(const CVString& other) const;
    int Compare(const char* utf8) const;

    /// Position of the first occurrence of a text, -1 when it does not occur. The empty text occurs at 0.
    int Find(const CVString& text) const;

    /// The text from a position on, at most `count` units of it. Positions beyond the end give the empty text; a
    /// negative position counts as 0, a negative count as none.
    CVString Mid(int first) const;
    CVString Mid(int first, int count) const;

    /// Length in UTF-16 units.
    int GetLength() const { return static_cast<int>(m_text.size()); }

    bool IsEmpty() const { return m_text.empty(); }

    /// Replaces the text by printf-like output. The format and the texts that it inserts (%s) are UTF-8.
    void Format(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Zero-terminated UTF-16 units, valid until the text changes.
    operator const char16_t*() const { return m_text.c_str(); }  // NOLINT(google-explicit-constructor)

    /// The text in UTF-8; half of a surrogate pair becomes U+FFFD.
    std::string ToUtf8() const;

private:
    std::u16string m_text;
};

}  // namespace _orvik_vi
