#include <gtest/gtest.h>

#include <string>

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

INSTANTIATE_TEST_SUITE_P(Texts, EscapedText,
                         testing::Values(EscapeCase{"PlainText", "water: #3366cc", "water: #3366cc"},
                                         EscapeCase{"TerminalSequence", "\x1b[2J", "\\u001b[2J"},
                                         EscapeCase{"LineEnds", "a\r\nb", "a\\r\\nb"},
                                         EscapeCase{"TabIsABlank", "a\tb", "a b"},
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
                                         EscapeCase{"CutCharacter", "\xE6\xB0", "\\xe6\\xb0"},
                                         EscapeCase{"OverlongSlash", "\xC0\xAF", "\\xc0\\xaf"},
                                         EscapeCase{"OverlongInThreeBytes", "\xE0\x80\xAF", "\\xe0\\x80\\xaf"}),
                         [](const testing::TestParamInfo<EscapeCase>& each) { return each.param.name; });

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

TEST(ShortenedText, IsCutBetweenCharacters) {
    EXPECT_EQ(shortened("highway", 7), "highway");
    EXPECT_EQ(shortened("highways", 7), "highway...");
    EXPECT_EQ(shortened("stra\xC3\x9F"
                        "e",
                        5),
              "stra...");
}

TEST(QuotedText, IsCutWhereItIsLong) {
    EXPECT_EQ(inQuotes("water"), "\"water\"");
    EXPECT_EQ(inQuotes(std::string(61, 'x')), '"' + std::string(60, 'x') + "...\"");
}

}  // namespace
}  // namespace customstyle_test
