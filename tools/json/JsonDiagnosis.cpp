#include "tools/json/JsonDiagnosis.h"

#include <algorithm>
#include <string>

#include "tools/json/JsonScalars.h"

namespace customstyle_tool {
namespace {

using MaybeError = std::optional<JsonError>;

constexpr std::string_view kInvisibleCharacters[] = {
    "\xC2\xA0",      // no-break space
    "\xC2\x85",      // next line
    "\xE2\x80\x8B",  // zero-width space
    "\xE2\x80\xA8",  // line separator
    "\xE2\x80\xA9",  // paragraph separator
    "\xE2\x81\xA0",  // word joiner
    "\xE3\x80\x80",  // ideographic space
    "\xEF\xBB\xBF",  // byte order mark
};

constexpr std::string_view kWrongQuotes[] = {
    "'", "`", "\xE2\x80\x98", "\xE2\x80\x99", "\xE2\x80\x9C", "\xE2\x80\x9D", "\xC2\xAB", "\xC2\xBB",
};

constexpr std::string_view kLiteralNames[] = {"true", "false", "null"};

template <std::size_t Count>
bool beginsWithAny(std::string_view text, const std::string_view (&beginnings)[Count]) {
    return std::ranges::any_of(beginnings, [text](std::string_view beginning) { return text.starts_with(beginning); });
}

std::string_view rest(const StuckPlace& place) {
    return place.text.substr(place.at);
}

bool isInArray(const StuckPlace& place) {
    return place.openBracket && place.text[*place.openBracket] == '[';
}

bool isWordByte(char byte) {
    return isLetter(byte) || isDigit(byte) || byte == '_';
}

std::string_view firstWord(std::string_view text) {
    const auto end = std::ranges::find_if_not(text, isWordByte);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

bool isHexadecimal(std::string_view word) {
    return std::ranges::all_of(word, isHexDigit);
}

bool isColor(std::string_view text) {
    const std::string_view digits = text.starts_with('#') ? firstWord(text.substr(1)) : std::string_view();
    return digits.size() >= 3 && isHexadecimal(digits);
}

bool isComment(std::string_view text) {
    return text.starts_with("//") || text.starts_with("/*") || (text.starts_with('#') && !isColor(text));
}

bool isWordInCapitals(std::string_view word) {
    const auto isWord = [word](std::string_view small) { return equalIgnoringCase(word, small); };
    return std::ranges::any_of(kLiteralNames, isWord);
}

MaybeError endOfText(const StuckPlace& place) {
    if (place.at < place.text.size()) return {};
    if (place.isCutByNul) return JsonError{JsonFault::NulByte, place.at};
    if (!place.openBracket) return JsonError{JsonFault::NoValue, 0};
    const JsonFault fault = isInArray(place) ? JsonFault::UnclosedArray : JsonFault::UnclosedObject;
    return JsonError{fault, *place.openBracket};
}

// What is wrong between any two values.
MaybeError foreignText(const StuckPlace& place) {
    if (isComment(rest(place))) return JsonError{JsonFault::Comment, place.at};
    if (beginsWithAny(rest(place), kInvisibleCharacters)) return JsonError{JsonFault::InvisibleCharacter, place.at};
    return {};
}

MaybeError foreignEncoding(const StuckPlace& place) {
    if (place.at > 0) return {};
    if (place.text.starts_with("\xFF\xFE") || place.text.starts_with("\xFE\xFF")) return JsonError{JsonFault::Utf16, 0};
    if (place.text.starts_with("\xEF\xBB\xBF")) return JsonError{JsonFault::ByteOrderMarkAlone, 0};
    return {};
}

MaybeError wrongBracket(const StuckPlace& place) {
    const char bracket = rest(place).front();
    if (isInArray(place) && bracket == '}') return JsonError{JsonFault::WrongBracketInArray, place.at};
    if (!isInArray(place) && bracket == ']') return JsonError{JsonFault::WrongBracketInObject, place.at};
    return {};
}

// A text over several lines lacks its closing quote on the first line: from there on, inside and outside are swapped.
MaybeError textOverLineEnd(const StuckPlace& place) {
    const auto [begin, end] = place.lastToken;
    const std::string_view token = place.text.substr(begin, end - begin);
    if (!token.starts_with('"') || token.find('\n') == std::string_view::npos) return {};
    return JsonError{JsonFault::UnterminatedText, begin};
}

// Something that belongs to the number or word just read: 1.2.3, 12px, nullable.
MaybeError overlongToken(const StuckPlace& place) {
    const auto [begin, end] = place.lastToken;
    if (begin == end || end != place.at) return {};
    const char first = place.text[begin];
    const char next = rest(place).front();
    if (isLetter(first) && isWordByte(next)) return JsonError{JsonFault::UnquotedText, begin};
    const bool continues = isWordByte(next) || std::string_view("+-.%").find(next) != std::string_view::npos;
    if ((first == '-' || isDigit(first)) && continues) return JsonError{JsonFault::MalformedNumber, begin};
    return {};
}

JsonFault faultOfWord(std::string_view text) {
    if (isWordInCapitals(firstWord(text))) return JsonFault::CapitalsInWord;
    return isLetter(text.front()) || isColor(text) ? JsonFault::UnquotedText : JsonFault::UnknownCharacter;
}

JsonFault faultOfValue(std::string_view text) {
    if (std::string_view(",:]}").find(text.front()) != std::string_view::npos) return JsonFault::MissingValue;
    if (std::string_view("+-.").find(text.front()) != std::string_view::npos) return JsonFault::MalformedNumber;
    if (beginsWithAny(text, kWrongQuotes)) return JsonFault::WrongQuotes;
    return faultOfWord(text);
}

}  // namespace

JsonError whyNoValue(const StuckPlace& place) {
    if (const MaybeError error = endOfText(place)) return *error;
    if (const MaybeError error = foreignEncoding(place)) return *error;
    if (const MaybeError error = foreignText(place)) return *error;
    return {faultOfValue(rest(place)), place.at};
}

JsonError whyNoName(const StuckPlace& place) {
    if (const MaybeError error = endOfText(place)) return *error;
    if (const MaybeError error = foreignText(place)) return *error;
    if (const MaybeError error = wrongBracket(place)) return *error;
    const bool missing = std::string_view(",:").find(rest(place).front()) != std::string_view::npos;
    if (missing) return {JsonFault::MissingName, place.at};
    const bool quoted = beginsWithAny(rest(place), kWrongQuotes);
    return {quoted ? JsonFault::WrongQuotes : JsonFault::UnquotedName, place.at};
}

JsonError whyNoColon(const StuckPlace& place) {
    if (const MaybeError error = textOverLineEnd(place)) return *error;
    if (const MaybeError error = endOfText(place)) return *error;
    if (const MaybeError error = foreignText(place)) return *error;
    return {JsonFault::MissingColon, place.lastToken.end};
}

JsonError whyNoClosingQuote(const StuckPlace& place) {
    if (place.isCutByNul) return {JsonFault::NulByte, place.text.size()};
    return {JsonFault::UnterminatedText, place.at};
}

JsonError whyNoComma(const StuckPlace& place) {
    if (const MaybeError error = textOverLineEnd(place)) return *error;
    if (const MaybeError error = endOfText(place)) return *error;
    if (const MaybeError error = foreignText(place)) return *error;
    if (const MaybeError error = overlongToken(place)) return *error;
    if (const MaybeError error = wrongBracket(place)) return *error;
    const JsonFault fault = isInArray(place) ? JsonFault::MissingCommaInArray : JsonFault::MissingCommaInObject;
    return {fault, place.lastToken.end};
}

}  // namespace customstyle_tool
