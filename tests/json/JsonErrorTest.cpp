// What a refusal says, and where it sends people to look.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <string>
#include <string_view>
#include <utility>

#include "tests/support/CaseName.h"
#include "tools/json/JsonDocument.h"
#include "tools/json/JsonError.h"

namespace customstyle_test {
namespace {

using customstyle_tool::JsonError;
using customstyle_tool::JsonReading;
using customstyle_tool::parseJson;
using customstyle_tool::readJson;
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
                                         ErrorCase{"Utf16BigEndWithoutANul", "^\xFE\xFF\x4E\x2D", kUtf16},
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
                                         ErrorCase{"AWordAfterAHash", "[^#done\n 1]", kComment},
                                         ErrorCase{"TwoDigitsAfterAHash", "[^#12\n 1]", kComment},
                                         ErrorCase{"BeforeAColon", "{\"a\" ^/**/: 1}", kComment},
                                         ErrorCase{"BeforeAValue", "{\"a\": ^/**/ 1}", kComment},
                                         ErrorCase{"ASlashAloneIsNone", "[^/ 1]", kUnknown}),
                         caseName);

INSTANTIATE_TEST_SUITE_P(Lists, Refusal,
                         testing::Values(ErrorCase{"NoComma", "[1^ 2]", "a comma or ] is missing here"},
                                         ErrorCase{"NoCommaAtALineEnd", "[{}^\n {}]", "a comma or ] is missing here"},
                                         ErrorCase{"ASemicolon", "[1^; 2]", "a comma or ] is missing here"},
                                         ErrorCase{"NoCommaBehindAText", "[\"a\"^b]", "a comma or ] is missing here"},
                                         ErrorCase{"NoCommaBehindAWord", "[true^-1]", "a comma or ] is missing here"},
                                         ErrorCase{"TwoCommas", "[1,^, 2]", "a value is missing here"},
                                         ErrorCase{"ACommaFirst", "[^, 2]", "a value is missing here"},
                                         ErrorCase{"TrailingComma", "[1^, ]",
                                                   "a trailing comma: the last element has no comma after it"},
                                         ErrorCase{"NeverClosed", "[1, ^[2, 3", "the ] of this list is missing"},
                                         ErrorCase{"NeverClosedBehindAComma", "^[1, ", "the ] of this list is missing"},
                                         ErrorCase{"ClosedAsAnObject", "[1^}", "a list ends with ], not with }"}),
                         caseName);

INSTANTIATE_TEST_SUITE_P(InvisibleCharacters, Refusal,
                         testing::Values(ErrorCase{"NoBreakSpace", "[^\xC2\xA0 1]", kInvisible},
                                         ErrorCase{"NextLine", "[^\xC2\x85 1]", kInvisible},
                                         ErrorCase{"ZeroWidthSpace", "[^\xE2\x80\x8B 1]", kInvisible},
                                         ErrorCase{"LineSeparator", "[^\xE2\x80\xA8 1]", kInvisible},
                                         ErrorCase{"ParagraphSeparator", "[^\xE2\x80\xA9 1]", kInvisible},
                                         ErrorCase{"WordJoiner", "[^\xE2\x81\xA0 1]", kInvisible},
                                         ErrorCase{"IdeographicSpace", "[^\xE3\x80\x80 1]", kInvisible}),
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
                    ErrorCase{"NeverClosedAndEmpty", "^{", "the } of this object is missing"},
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
                    ErrorCase{"ClosedAtTheEndOfTheNextLine", "[^\"a,\n\"", kUnterminated},
                    ErrorCase{"ANameClosedAtTheEndOfTheNextLine", "{^\"a: 1,\n\"", kUnterminated},
                    ErrorCase{"NoQuotes", "[^red]", "a string needs double quotes"},
                    ErrorCase{"AShortColorWithoutQuotes", "[^#fff]", "a string needs double quotes"},
                    ErrorCase{"AColorWithoutQuotes", "[^#ff0000]", "a string needs double quotes"},
                    ErrorCase{"MoreThanAWord", "[^nullable]", "a string needs double quotes"},
                    ErrorCase{"TrueInCapitals", "[^True]", "true, false and null are lower case"},
                    ErrorCase{"FalseInCapitals", "[^FALSE]", "true, false and null are lower case"},
                    ErrorCase{"NullInCapitals", "[^Null]", "true, false and null are lower case"},
                    ErrorCase{"AnUnknownEscape", R"(["C:^\maps"])", "unknown escape; write a backslash as two"},
                    ErrorCase{"TooFewDigits", R"(["^\u00e"])", "\\u needs four hexadecimal digits"},
                    ErrorCase{"AHighSurrogateAlone", R"(["a^\ud83d"])", kLoneSurrogate},
                    ErrorCase{"ALowSurrogateAlone", R"(["^\ude00"])", kLoneSurrogate},
                    ErrorCase{"AnErrorInAName", R"({"a^\q": 1})", "unknown escape; write a backslash as two"}),
    caseName);

constexpr auto kWrongQuotes = "a string needs straight double quotes"sv;

INSTANTIATE_TEST_SUITE_P(Quotes, Refusal,
                         testing::Values(ErrorCase{"Single", "[^'a']", kWrongQuotes},
                                         ErrorCase{"Backticks", "[^`a`]", kWrongQuotes},
                                         ErrorCase{"SingleLeft", "[^\xE2\x80\x98 ]", kWrongQuotes},
                                         ErrorCase{"SingleRight", "[^\xE2\x80\x99 ]", kWrongQuotes},
                                         ErrorCase{"DoubleLeft", "[^\xE2\x80\x9C ]", kWrongQuotes},
                                         ErrorCase{"DoubleRight", "[^\xE2\x80\x9D ]", kWrongQuotes},
                                         ErrorCase{"AngleLeft", "[^\xC2\xAB ]", kWrongQuotes},
                                         ErrorCase{"AngleRight", "[^\xC2\xBB ]", kWrongQuotes},
                                         ErrorCase{"AroundAName", "{^\xE2\x80\x9C: 1}", kWrongQuotes}),
                         caseName);

constexpr auto kMalformed = "not a valid JSON number"sv;

INSTANTIATE_TEST_SUITE_P(
    Numbers, Refusal,
    testing::Values(ErrorCase{"APlusSign", "[^+1]", kMalformed}, ErrorCase{"NoWholePart", "[^.5]", kMalformed},
                    ErrorCase{"OnlyASign", "[^-]", kMalformed}, ErrorCase{"TwoPoints", "[^1.2.3]", kMalformed},
                    ErrorCase{"AUnit", "[^12px]", kMalformed}, ErrorCase{"ANegativeUnit", "[^-12px]", kMalformed},
                    ErrorCase{"Hexadecimal", "[^0xff]", kMalformed},
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

// NUL bytes that take no memory.
class Emptiness {
public:
    explicit Emptiness(std::size_t size)
        : m_size(size), m_bytes(mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {}
    ~Emptiness() {
        if (isThere()) munmap(m_bytes, m_size);
    }
    Emptiness(const Emptiness&) = delete;
    Emptiness& operator=(const Emptiness&) = delete;

    bool isThere() const { return m_bytes != MAP_FAILED; }
    std::string_view text() const { return {static_cast<const char*>(m_bytes), m_size}; }

private:
    std::size_t m_size;
    void* m_bytes;
};

TEST(Size, IsRefusedFromFourGibibytesOn) {
    constexpr std::size_t kLimit = std::size_t{4} << 30;
    const Emptiness emptiness(kLimit);
    ASSERT_TRUE(emptiness.isThere());
    const std::pair<std::size_t, std::string_view> expected[] = {{kLimit - 1, kNul},
                                                                 {kLimit, "the text is 4 GiB or longer"}};
    for (const auto& [size, reason] : expected) {
        const std::string_view text = emptiness.text().substr(0, size);
        const auto parsed = parseJson(text);
        ASSERT_TRUE(std::holds_alternative<JsonError>(parsed));
        const JsonReading read = readJson(text);
        EXPECT_FALSE(read.document.has_value());
        ASSERT_EQ(read.errors.size(), 1U);
        for (const JsonError& error : {std::get<JsonError>(parsed), read.errors.front()}) {
            EXPECT_EQ(error.reason(), reason);
            EXPECT_EQ(error.offset, 0U);
        }
    }
}

}  // namespace
}  // namespace customstyle_test
