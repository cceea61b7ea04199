#include "tools/json/JsonError.h"

#include <iterator>

namespace customstyle_tool {
namespace {

struct FaultReason {
    JsonFault fault;
    std::string_view reason;
};

constexpr FaultReason kReasons[] = {
    {JsonFault::NoValue, "the text holds no JSON value"},
    {JsonFault::TooLarge, "the text is 4 GiB or longer"},
    {JsonFault::Utf16, "the text is UTF-16; save it as UTF-8"},
    {JsonFault::NulByte, "a NUL byte ends the text here"},
    {JsonFault::ByteOrderMarkAlone, "a byte order mark needs at least two bytes after it"},
    {JsonFault::Comment, "a comment is not JSON"},
    {JsonFault::InvisibleCharacter,
     "an invisible character is here; only spaces, tabs and line ends may be between values"},
    {JsonFault::UnknownCharacter, "no JSON value starts with this character"},
    {JsonFault::MissingValue, "a value is missing here"},
    {JsonFault::MissingName, "a member is missing here"},
    {JsonFault::MissingColon, "a colon is missing here"},
    {JsonFault::MissingCommaInArray, "a comma or ] is missing here"},
    {JsonFault::MissingCommaInObject, "a comma or } is missing here"},
    {JsonFault::TrailingCommaInArray, "a trailing comma: the last element has no comma after it"},
    {JsonFault::TrailingCommaInObject, "a trailing comma: the last member has no comma after it"},
    {JsonFault::WrongBracketInArray, "a list ends with ], not with }"},
    {JsonFault::WrongBracketInObject, "an object ends with }, not with ]"},
    {JsonFault::UnclosedArray, "the ] of this list is missing"},
    {JsonFault::UnclosedObject, "the } of this object is missing"},
    {JsonFault::TooDeep, "nested deeper than 1,000"},
    {JsonFault::UnquotedText, "a string needs double quotes"},
    {JsonFault::UnquotedName, "a member's name needs double quotes"},
    {JsonFault::WrongQuotes, "a string needs straight double quotes"},
    {JsonFault::UnterminatedText, "an unterminated string: its closing double quote is missing"},
    {JsonFault::UnknownEscape, "unknown escape; write a backslash as two"},
    {JsonFault::ShortUnicodeEscape, "\\u needs four hexadecimal digits"},
    {JsonFault::LoneSurrogate, "half of a surrogate pair; both halves must be next to each other"},
    {JsonFault::MalformedNumber, "not a valid JSON number"},
    {JsonFault::CapitalsInWord, "true, false and null are lower case"},
};

constexpr bool eachReasonStandsAtItsFault() {
    for (std::size_t i = 0; i < std::size(kReasons); ++i) {
        if (kReasons[i].fault != static_cast<JsonFault>(i)) return false;
    }
    return std::size(kReasons) == static_cast<std::size_t>(JsonFault::kCount);
}
static_assert(eachReasonStandsAtItsFault());

}  // namespace

std::string_view JsonError::reason() const {
    return kReasons[static_cast<std::size_t>(fault)].reason;
}

}  // namespace customstyle_tool
