// What a refusal says, and where it sends people to look.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/CaseName.h"
#include "tools/json/JsonDocument.h"
#include "tools/json/JsonError.h"

namespace customstyle_test {
namespace {

using customstyle_tool::JsonError;
using customstyle_tool::parseJson;
using namespace std::string_view_literals;

struct ErrorCase {
    const char* name;
    std::string_view markedText;  ///< with ^ where a person should look
    std::string_view reason;
};

class Refusal : public testing::TestWithParam<ErrorCase> {};

TEST_P(Refusal, TellsPlaceAndReason) {
    std::string text(GetParam().markedText);
    const std::size_t place = text.find('^');
    text.erase(place, 1);
    const auto result = parseJson(text);
    ASSERT_TRUE(std::holds_alternative<JsonError>(result));
    EXPECT_EQ(std::get<JsonError>(result).reason(), GetParam().reason);
    EXPECT_EQ(std::get<JsonError>(result).offset, place);
}

constexpr auto kNoValue = "the text holds no JSON value"sv;
constexpr auto kUtf16 = "the text is UTF-16; save it as UTF-8"sv;
constexpr auto kNul = "a NUL byte ends the text here"sv;
constexpr auto kMarkAlone = "a byte order mark needs at least two bytes after it"sv;
constexpr auto kComment = "a comment is not JSON"sv;
constexpr auto kInvisible = "an invisible character is here; only spaces, tabs and line ends may be between values"sv;
constexpr auto kUnknown = "no JSON value starts with this character"sv;

INSTANTIATE_TEST_SUITE_P(WholeText, Refusal,
                         testing::Values(ErrorCase{"Empty", "^", kNoValue}, ErrorCase{"OnlyBlanks", "^ \r\n", kNoValue},
                                         ErrorCase{"Utf16LittleEnd", "^\xFF\xFE[\0]\0"sv, kUtf16},
                                         ErrorCase{"Utf16BigEnd", "^\xFE\xFF\0[\0]"sv, kUtf16},
                                         ErrorCase{"Utf16WithoutAByteOrderMark", "[^\0]\0"sv, kNul},
                                         ErrorCase{"ANulFirst", "^\0[]"sv, kNul},
                                         ErrorCase{"ANulInAText", "[\"a^\0b\"]"sv, kNul},
                                         ErrorCase{"ANulBehindAValue", "{\"a\":1^\0}"sv, kNul},
                                         ErrorCase{"AByteOrderMarkBeforeOneByte",
                                                   "^\xEF\xBB\xBF"
                                                   "1",
                                                   kMarkAlone},
                                         ErrorCase{"BinaryBytes",
                                                   "^\x7F"
                                                   "ELF",
                                                   kUnknown},
                                         ErrorCase{"Markup", "^<html>", kUnknown},
                                         ErrorCase{"ASecondByteOrderMark", "\xEF\xBB\xBF^\xEF\xBB\xBF[]", kInvisible},
                                         ErrorCase{"OnlyAClosingBracket", "^]", "a value is missing here"}),
                         caseName);

INSTANTIATE_TEST_SUITE_P(Comments, Refusal,
                         testing::Values(ErrorCase{"BeforeAll", "^// style\n[]", kComment},
                                         ErrorCase{"InAList", "[^/* one */ 1]", kComment},
                                         ErrorCase{"BehindAnElement", "[1, ^// one\n 2]", kComment},
                                         ErrorCase{"BeforeAComma", "[1 ^/* one */, 2]", kComment},
                                         ErrorCase{"BeforeAName", "{^# one\n \"a\": 1}", kComment},
                                         ErrorCase{"BeforeAColon", "{\"a\" ^/**/: 1}", kComment},
                                         ErrorCase{"BeforeAValue", "{\"a\": ^/**/ 1}", kComment},
                                         ErrorCase{"ASlashAloneIsNone", "[^/ 1]", kUnknown}),
                         caseName);

INSTANTIATE_TEST_SUITE_P(Lists, Refusal,
                         testing::Values(ErrorCase{"NoComma", "[1^ 2]", "a comma or ] is missing here"},
                                         ErrorCase{"NoCommaAtALineEnd", "[{}^\n {}]", "a comma or ] is missing here"},
                                         ErrorCase{"ASemicolon", "[1^; 2]", "a comma or ] is missing here"},
                                         ErrorCase{"TwoCommas", "[1,^, 2]", "a value is missing here"},
                                         ErrorCase{"ACommaFirst", "[^, 2]", "a value is missing here"},
                                         ErrorCase{"TrailingComma", "[1^, ]",
                                                   "a trailing comma: the last element has no comma after it"},
                                         ErrorCase{"NeverClosed", "[1, ^[2, 3", "the ] of this list is missing"},
                                         ErrorCase{"NeverClosedBehindAComma", "^[1, ", "the ] of this list is missing"},
                                         ErrorCase{"ClosedAsAnObject", "[1^}", "a list ends with ], not with }"},
                                         ErrorCase{"AnInvisibleBlank",
                                                   "[^\xC2\xA0"
                                                   "1]",
                                                   kInvisible}),
                         caseName);

INSTANTIATE_TEST_SUITE_P(
    Objects, Refusal,
    testing::Values(ErrorCase{"NoComma", R"({"a": 1^ "b": 2})", "a comma or } is missing here"},
                    ErrorCase{"NoColon", R"({"a"^ 1})", "a colon is missing here"},
                    ErrorCase{"AnEqualsSign", R"({"a"^ = 1})", "a colon is missing here"},
                    ErrorCase{"NoValue", R"({"a": ^})", "a value is missing here"},
                    ErrorCase{"NoMember", R"({"a": 1,^, "b": 2})", "a member is missing here"},
                    ErrorCase{"TrailingComma", R"({"a": 1^,})",
                              "a trailing comma: the last member has no comma after it"},
                    ErrorCase{"NeverClosed", R"([^{"a": 1)", "the } of this object is missing"},
                    ErrorCase{"NeverClosedBehindAName", R"(^{"a")", "the } of this object is missing"},
                    ErrorCase{"ClosedAsAList", R"({"a": 1^])", "an object ends with }, not with ]"},
                    ErrorCase{"ClosedAsAListAtOnce", R"({^])", "an object ends with }, not with ]"},
                    ErrorCase{"ABareName", "{^color: 1}", "a member's name needs double quotes"},
                    ErrorCase{"ANumberForAName", "{^1: 1}", "a member's name needs double quotes"},
                    ErrorCase{"ASingleQuotedName", "{^'a': 1}", "a string needs straight double quotes"}),
    caseName);

constexpr auto kUnterminated = "an unterminated string: its closing double quote is missing"sv;
constexpr auto kLoneSurrogate = "half of a surrogate pair; both halves must be next to each other"sv;

INSTANTIATE_TEST_SUITE_P(
    Texts, Refusal,
    testing::Values(ErrorCase{"NeverClosed", "[\"a\", ^\"b]", kUnterminated},
                    ErrorCase{"ClosedInTheNextLineOnly", "{\"a\": ^\"b,\n\"c\": 1}", kUnterminated},
                    ErrorCase{"ANameClosedInTheNextLineOnly", "{^\"a: 1,\n\"c\": 1}", kUnterminated},
                    ErrorCase{"SingleQuotes", "[^'a']", "a string needs straight double quotes"},
                    ErrorCase{"TypographicQuotes",
                              "[^\xE2\x80\x9C"
                              "a\xE2\x80\x9D]",
                              "a string needs straight double quotes"},
                    ErrorCase{"NoQuotes", "[^red]", "a string needs double quotes"},
                    ErrorCase{"AColorWithoutQuotes", "[^#ff0000]", "a string needs double quotes"},
                    ErrorCase{"MoreThanAWord", "[^nullable]", "a string needs double quotes"},
                    ErrorCase{"AWordInCapitals", "[^True]", "true, false and null are lower case"},
                    ErrorCase{"AnUnknownEscape", R"(["C:^\maps"])", "unknown escape; write a backslash as two"},
                    ErrorCase{"TooFewDigits", R"(["^\u00e"])", "\\u needs four hexadecimal digits"},
                    ErrorCase{"AHighSurrogateAlone", R"(["a^\ud83d"])", kLoneSurrogate},
                    ErrorCase{"ALowSurrogateAlone", R"(["^\ude00"])", kLoneSurrogate},
                    ErrorCase{"AnErrorInAName", R"({"a^\q": 1})", "unknown escape; write a backslash as two"}),
    caseName);

constexpr auto kMalformed = "not a valid JSON number"sv;

INSTANTIATE_TEST_SUITE_P(
    Numbers, Refusal,
    testing::Values(ErrorCase{"APlusSign", "[^+1]", kMalformed}, ErrorCase{"NoWholePart", "[^.5]", kMalformed},
                    ErrorCase{"OnlyASign", "[^-]", kMalformed}, ErrorCase{"TwoPoints", "[^1.2.3]", kMalformed},
                    ErrorCase{"AUnit", "[^12px]", kMalformed}, ErrorCase{"Hexadecimal", "[^0xff]", kMalformed},
                    ErrorCase{"AnExponentWithoutDigits", "[^1e]", kMalformed},
                    ErrorCase{"NegativeInfinity", "[^-Infinity]", kMalformed}),
    caseName);

TEST(Nesting, IsRefusedAtTheBracketThatIsTooMany) {
    const std::string text = std::string(1001, '[') + std::string(1001, ']');
    const auto result = parseJson(text);
    ASSERT_TRUE(std::holds_alternative<JsonError>(result));
    EXPECT_EQ(std::get<JsonError>(result).reason(), "nested deeper than 1,000");
    EXPECT_EQ(std::get<JsonError>(result).offset, 1000u);
}

TEST(Nesting, IsAcceptedUpToOneThousand) {
    const std::string text = std::string(1000, '[') + std::string(1000, ']');
    EXPECT_FALSE(std::holds_alternative<JsonError>(parseJson(text)));
}

}  // namespace
}  // namespace customstyle_test
