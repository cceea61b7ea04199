// Why a text is not JSON, in words for people.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace customstyle_tool {

enum class JsonFault : std::uint8_t {
    NoValue,
    TooLarge,
    Utf16,
    NulByte,
    ByteOrderMarkAlone,
    Comment,
    InvisibleCharacter,
    UnknownCharacter,
    MissingValue,
    MissingName,
    MissingColon,
    MissingCommaInArray,
    MissingCommaInObject,
    TrailingCommaInArray,
    TrailingCommaInObject,
    WrongBracketInArray,
    WrongBracketInObject,
    UnclosedArray,
    UnclosedObject,
    TooDeep,
    UnquotedText,
    UnquotedName,
    WrongQuotes,
    UnterminatedText,
    UnknownEscape,
    ShortUnicodeEscape,
    LoneSurrogate,
    MalformedNumber,
    CapitalsInWord,
    kCount
};

struct JsonError {
    JsonFault fault;
    std::size_t offset;  ///< byte of the text where a person should look

    /// One clause without a full stop: "a comma or ] is missing here".
    std::string_view reason() const;
};

}  // namespace customstyle_tool
