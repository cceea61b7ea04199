#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "tests/support/CaseName.h"
#include "tests/support/Repeated.h"
#include "tools/support/PlainText.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

struct EscapeCase {
    const char* name;
    std::string text;
    std::string shown;
};

void PrintTo(const EscapeCase& each, std::ostream* out) {
    *out << each.name;
}

class EscapedText : public testing::TestWithParam<EscapeCase> {};

TEST_P(EscapedText, IsSafeToPrint) {
    EXPECT_EQ(escapedText(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, EscapedText,
    testing::Values(EscapeCase{"PlainText", "water: #3366cc", "water: #3366cc"},
                    EscapeCase{"TerminalSequence", "\x1b[2J", "\\u001b[2J"},
                    EscapeCase{"LineEnds", "a\r\nb", "a\\r\\nb"}, EscapeCase{"TabIsABlank", "a\tb", "a b"},
                    EscapeCase{"ZeroByte", std::string("a\0b", 3), "a\\u0000b"},
                    EscapeCase{"Delete", "\x7f", "\\u007f"},
                    EscapeCase{"SecondControlSet",
                               "\xC2\x9B"
                               "2J",
                               "\\u009b2J"},
                    EscapeCase{"TurnedWriting",
                               "\xE2\x80\xAE"  // NOLINT(misc-misleading-bidirectional): shown
                               "x",
                               "\\u202ex"},
                    EscapeCase{"OtherScripts", "\xE6\xB0\xB4 \xC3\xA9", "\xE6\xB0\xB4 \xC3\xA9"},
                    EscapeCase{"LoneContinuation",
                               "\x80"
                               "a",
                               "\\x80a"},
                    EscapeCase{"TabAtTheEnd", "a\t", "a "},
                    EscapeCase{"FirstOfThreeBytes", "\xE0\xA0\x80", "\xE0\xA0\x80"},
                    EscapeCase{"FirstOfFourBytes", "\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
                    EscapeCase{"LastCharacter", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
                    EscapeCase{"BeyondTheLastCharacter", "\xF4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
                    EscapeCase{"ContinuationsOnly", "\x84\x80\x80\x80", "\\x84\\x80\\x80\\x80"},
                    EscapeCase{"CutCharacter", "\xE6\xB0", "\\xe6\\xb0"},
                    EscapeCase{"CharacterCutByAnother", "\xE6\xB0x", "\\xe6\\xb0x"},
                    EscapeCase{"OverlongSlash", "\xC0\xAF", "\\xc0\\xaf"},
                    EscapeCase{"OverlongInThreeBytes", "\xE0\x80\xAF", "\\xe0\\x80\\xaf"}),
    caseName);

struct Utf8Case {
    const char* name;
    std::string_view text;
    bool isUtf8;
};

class Utf8 : public testing::TestWithParam<Utf8Case> {};

TEST_P(Utf8, IsDistinguishedFromOtherBytes) {
    EXPECT_EQ(isUtf8(GetParam().text), GetParam().isUtf8);
}

INSTANTIATE_TEST_SUITE_P(Texts, Utf8,
                         testing::Values(Utf8Case{"NoText", "", true}, Utf8Case{"Letters", "water", true},
                                         Utf8Case{"OtherScripts", "\xE6\xB0\xB4 \xC3\xA9", true},
                                         Utf8Case{"BeforeTheSurrogates", "\xED\x9F\xBF", true},
                                         Utf8Case{"FirstSurrogate", "\xED\xA0\x80", false},
                                         Utf8Case{"LastSurrogate", "\xED\xBF\xBF", false},
                                         Utf8Case{"AfterTheSurrogates", "\xEE\x80\x80", true},
                                         Utf8Case{"AnotherByteAtTheEnd", "water \xFF", false}),
                         caseName);

TEST(Excerpt, UnderlinesThePlace) {
    const Excerpt excerpt = excerptOf(R"({"a": 12})", 6, 8);
    EXPECT_EQ(excerpt.line, R"({"a": 12})");
    EXPECT_EQ(excerpt.carets, "      ^^");
}

TEST(Excerpt, UnderlinesEscapesAndWideCharactersInFull) {
    const Excerpt excerpt = excerptOf("\x1b\xE6\xB0\xB4x", 0, 4);
    EXPECT_EQ(excerpt.line, "\\u001b\xE6\xB0\xB4x");
    EXPECT_EQ(excerpt.carets, "^^^^^^^^");
}

TEST(Excerpt, PointsBehindTheLineForItsEnd) {
    EXPECT_EQ(excerptOf("[1", 2, 3).carets, "  ^");
    EXPECT_EQ(excerptOf("", 0, 0).carets, "^");
}

TEST(Excerpt, EndsWithTheLineForAPlaceThatGoesOn) {
    EXPECT_EQ(excerptOf("[{", 1, 400).carets, " ^");
}

TEST(Excerpt, IsCutAroundThePlaceInALongLine) {
    const std::string line = std::string(5000, 'a') + "XY" + std::string(5000, 'b');
    const Excerpt excerpt = excerptOf(line, 5000, 5002);
    EXPECT_LT(excerpt.line.size(), 140U);
    EXPECT_TRUE(excerpt.line.starts_with("...a") && excerpt.line.ends_with("b..."));
    EXPECT_EQ(excerpt.line.substr(excerpt.carets.find('^'), 2), "XY");
    EXPECT_EQ(excerpt.carets.size(), excerpt.line.find("XY") + 2);
}

struct ExcerptCase {
    const char* name;
    std::string line;
    std::size_t begin;
    std::size_t end;
    std::string shown;
    std::string carets;
};

class ExcerptOf : public testing::TestWithParam<ExcerptCase> {};

TEST_P(ExcerptOf, ShowsThePlace) {
    const Excerpt excerpt = excerptOf(GetParam().line, GetParam().begin, GetParam().end);
    EXPECT_EQ(excerpt.line, GetParam().shown);
    EXPECT_EQ(excerpt.carets, GetParam().carets);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ExcerptOf,
    testing::Values(ExcerptCase{"ATabTakesAColumn", "\tx", 1, 2, " x", " ^"},
                    ExcerptCase{"AnEscapedByteTakesFour", "\x80x", 1, 2, "\\x80x", "    ^"},
                    ExcerptCase{"UpTo120ColumnsAreShown", repeated("a", 120), 0, 1, repeated("a", 120), "^"},
                    ExcerptCase{"LongerLinesAreCut", repeated("a", 121), 0, 1, repeated("a", 120) + "...", "^"},
                    ExcerptCase{"TheByteBeforeTheExcerptIsDots", repeated("a", 130), 51, 52,
                                "..." + repeated("a", 120) + "...", repeated(" ", 53) + "^"},
                    ExcerptCase{"ItBeginsWithAWholeCharacter", "\xC3\xA9" + repeated("a", 200), 51, 52,
                                "..." + repeated("a", 120) + "...", repeated(" ", 52) + "^"},
                    ExcerptCase{"ThePlaceMayBeTheLastColumn", repeated("a", 119) + "X", 119, 120,
                                repeated("a", 119) + "X", repeated(" ", 119) + "^"},
                    ExcerptCase{"EscapesDoNotPushThePlaceOut", repeated("\xFF", 30) + "X", 30, 31,
                                "..." + repeated("\\xff", 12) + "X", repeated(" ", 3 + 12 * 4) + "^"},
                    ExcerptCase{"FiftyColumnsAreLeftBeforeThePlace", repeated("\xFF", 30) + "abX", 32, 33,
                                "..." + repeated("\\xff", 12) + "abX", repeated(" ", 3 + 50) + "^"},
                    ExcerptCase{"ItBeginsAtThePlaceAtTheLatest", repeated("\x80", 200), 60, 61,
                                "..." + repeated("\\x80", 30) + "...", "   ^^^^"}),
    caseName);

struct WideCase {
    const char* name;
    char32_t first;
    char32_t last;
};

class WideCharacters : public testing::TestWithParam<WideCase> {};

std::string utf8(char32_t character) {
    const auto last = [character](unsigned int shift) { return static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x10000) return {static_cast<char>(0xE0 | character >> 12), last(6), last(0)};
    return {static_cast<char>(0xF0 | character >> 18), last(12), last(6), last(0)};
}

std::size_t columnsOf(char32_t character) {
    const std::string text = utf8(character);
    return excerptOf(text, 0, text.size()).carets.size();
}

TEST_P(WideCharacters, TakeTwoColumns) {
    EXPECT_EQ(columnsOf(GetParam().first), 2U);
    EXPECT_EQ(columnsOf(GetParam().last), 2U);
    EXPECT_NE(columnsOf(GetParam().first - 1), 2U);
    EXPECT_NE(columnsOf(GetParam().last + 1), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, WideCharacters,
    testing::Values(WideCase{"HangulLetters", 0x1100, 0x115F}, WideCase{"IdeographsAndKana", 0x2E80, 0xA4CF},
                    WideCase{"HangulSyllables", 0xAC00, 0xD7A3}, WideCase{"OtherFormsOfIdeographs", 0xF900, 0xFAFF},
                    WideCase{"VerticalPunctuation", 0xFE30, 0xFE6F}, WideCase{"WideLatin", 0xFF00, 0xFF60},
                    WideCase{"WideSigns", 0xFFE0, 0xFFE6}, WideCase{"Emoji", 0x1F300, 0x1FAFF},
                    WideCase{"RareIdeographs", 0x20000, 0x3FFFD}),
    caseName);

struct WrapCase {
    const char* name;
    const char* text;
    std::size_t width;
    std::size_t column;
    std::size_t used;
    const char* lines;
};

class WrappedText : public testing::TestWithParam<WrapCase> {};

TEST_P(WrappedText, FitsItsColumns) {
    const auto& [name, text, width, column, used, lines] = GetParam();
    EXPECT_EQ(wrapped(text, width, column, used), lines);
}

INSTANTIATE_TEST_SUITE_P(Texts, WrappedText,
                         testing::Values(WrapCase{"AWordThatFits", "ab cd", 5, 0, 0, "ab cd\n"},
                                         WrapCase{"AWordThatDoesNotFit", "ab cd", 4, 0, 0, "ab\ncd\n"},
                                         WrapCase{"AWordWiderThanALine", "abcdef", 4, 0, 0, "abcdef\n"},
                                         WrapCase{"BesideItsHeading", "ab cd", 8, 4, 2, "  ab\n    cd\n"},
                                         WrapCase{"BelowAHeadingThatEndsAtItsColumn", "ab", 9, 1, 1, "\n ab\n"},
                                         WrapCase{"BelowAHeadingThatIsWider", "ab", 9, 2, 5, "\n  ab\n"}),
                         caseName);

TEST(RangesText, JoinsTheNumbersOfTheListOnly) {
    const std::array<unsigned int, 6> numbers{7, 2101, 2103, 2104, 2105, 2106};
    EXPECT_EQ(rangesText(numbers), "7, 2101, 2103-2106");
    EXPECT_EQ(rangesText(std::span(numbers).first(5)), "7, 2101, 2103-2105");
    EXPECT_EQ(rangesText({}), "");
}

TEST(ShortenedText, IsCutBetweenCharacters) {
    EXPECT_EQ(shortened("highway", 7), "highway");
    EXPECT_EQ(shortened("highways", 7), "highway...");
    EXPECT_EQ(shortened("stra\xC3\x9F"
                        "e",
                        5),
              "stra...");
    EXPECT_EQ(shortened("\xE6\xB0\xB4", 2), "...");
    EXPECT_EQ(shortened(std::string_view("a\x80\x80\x80").substr(1), 2), "...");
}

TEST(QuotedText, IsCutWhereItIsLong) {
    EXPECT_EQ(inQuotes("water"), "\"water\"");
    EXPECT_EQ(inQuotes(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

}  // namespace
}  // namespace customstyle_test
