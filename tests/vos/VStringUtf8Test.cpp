// CVString between UTF-8 and UTF-16, well formed and malformed.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/CaseName.h"
#include "vi/vos/VString.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVString;

struct Utf8Case {
    const char* name;
    const char* utf8;
    const char16_t* utf16;
};

class WellFormedUtf8 : public testing::TestWithParam<Utf8Case> {};

TEST_P(WellFormedUtf8, BecomesUtf16) {
    EXPECT_EQ(std::u16string(CVString(GetParam().utf8)), GetParam().utf16);
}

TEST_P(WellFormedUtf8, ComesBackFromUtf16) {
    EXPECT_EQ(CVString(GetParam().utf16).ToUtf8(), GetParam().utf8);
}

TEST_P(WellFormedUtf8, IsMeasuredInUtf16Units) {
    const std::u16string expected = GetParam().utf16;
    EXPECT_EQ(CVString(GetParam().utf8).GetLength(), static_cast<int>(expected.size()));
}

INSTANTIATE_TEST_SUITE_P(VString, WellFormedUtf8,
                         testing::Values(Utf8Case{"Ascii", "highway", u"highway"},
                                         Utf8Case{"LastOfOneByte", "\x7F", u"\u007F"},
                                         Utf8Case{"FirstOfTwoBytes", "\xC2\x80", u"\x80"},
                                         Utf8Case{"LastOfTwoBytes", "\xDF\xBF", u"\u07FF"},
                                         Utf8Case{"FirstOfThreeBytes", "\xE0\xA0\x80", u"\u0800"},
                                         Utf8Case{"BelowTheSurrogates", "\xED\x9F\xBF", u"\uD7FF"},
                                         Utf8Case{"AboveTheSurrogates", "\xEE\x80\x80", u"\uE000"},
                                         Utf8Case{"LastOfThreeBytes", "\xEF\xBF\xBF", u"\xFFFF"},
                                         Utf8Case{"LastOfThreeBytesBeforeALetter",
                                                  "\xEF\xBF\xBF"
                                                  "b",
                                                  u"\xFFFF"
                                                  u"b"},
                                         Utf8Case{"TheReplacementCharacter", "\xEF\xBF\xBD", u"\uFFFD"},
                                         Utf8Case{"FirstSurrogatePair", "\xF0\x90\x80\x80", u"\xD800\xDC00"},
                                         Utf8Case{"ASurrogatePairAmongLetters",
                                                  "a\xF0\x9F\x98\x80"
                                                  "b",
                                                  u"a\xD83D\xDE00"
                                                  u"b"},
                                         Utf8Case{"LastSurrogatePair", "\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"}),
                         caseName);

class MalformedUtf8 : public testing::TestWithParam<Utf8Case> {};

TEST_P(MalformedUtf8, BecomesReplacementCharacters) {
    EXPECT_EQ(std::u16string(CVString(GetParam().utf8)), GetParam().utf16);
}

TEST_P(MalformedUtf8, ComparesAsItsReplacementCharacters) {
    EXPECT_EQ(CVString(GetParam().utf16).Compare(GetParam().utf8), 0);
}

TEST_P(MalformedUtf8, LeavesTheLettersAroundIt) {
    std::string utf8 = "<";
    utf8.append(GetParam().utf8).append(">");
    std::u16string utf16 = u"<";
    utf16.append(GetParam().utf16).append(u">");
    EXPECT_EQ(std::u16string(CVString(utf8.c_str())), utf16);
}

INSTANTIATE_TEST_SUITE_P(
    VString, MalformedUtf8,
    testing::Values(Utf8Case{"ALoneContinuationByte", "\x80", u"\uFFFD"},
                    Utf8Case{"TwoContinuationBytes", "\xBF\x80", u"\uFFFD\uFFFD"},
                    Utf8Case{"TheByteFe", "\xFE", u"\uFFFD"}, Utf8Case{"TheByteFf", "\xFF", u"\uFFFD"},
                    Utf8Case{"TwoBytesTruncated", "\xC3", u"\uFFFD"},
                    Utf8Case{"ThreeBytesTruncatedAfterOne", "\xE2", u"\uFFFD"},
                    Utf8Case{"ThreeBytesTruncatedAfterTwo", "\xE2\x82", u"\uFFFD"},
                    Utf8Case{"ThreeBytesTruncatedAfterTheLowestSecond", "\xE0\xA0", u"\uFFFD"},
                    Utf8Case{"ThreeBytesTruncatedAfterTheHighestSecond", "\xE1\xBF", u"\uFFFD"},
                    Utf8Case{"TruncatedBeforeTheSurrogates", "\xED\x9F", u"\uFFFD"},
                    Utf8Case{"FourBytesTruncatedAfterTheLowestSecond", "\xF0\x90", u"\uFFFD"},
                    Utf8Case{"TruncatedAtTheLastCharacter", "\xF4\x8F\xBF", u"\uFFFD"},
                    Utf8Case{"FourBytesTruncatedAfterTwo", "\xF0\x9F", u"\uFFFD"},
                    Utf8Case{"FourBytesTruncatedAfterThree", "\xF0\x9F\x98", u"\uFFFD"},
                    Utf8Case{"ALeadByteBeforeACharacter", "\xE2\xC3\xA9", u"\uFFFD\u00E9"},
                    Utf8Case{"OverlongInTwoBytes", "\xC0\xAF", u"\uFFFD\uFFFD"},
                    Utf8Case{"OverlongNul", "\xC0\x80", u"\uFFFD\uFFFD"},
                    Utf8Case{"OverlongInThreeBytes", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
                    Utf8Case{"OverlongInFourBytes", "\xF0\x80\x80\xAF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Utf8Case{"AnEncodedHighSurrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                    Utf8Case{"AnEncodedLowSurrogate", "\xED\xBF\xBF", u"\uFFFD\uFFFD\uFFFD"},
                    Utf8Case{"BeyondTheLastCharacter", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Utf8Case{"FarBeyondTheLastCharacter", "\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}),
    caseName);

class LoneSurrogate : public testing::TestWithParam<Utf8Case> {};

TEST_P(LoneSurrogate, BecomesTheReplacementCharacterInUtf8) {
    EXPECT_EQ(CVString(GetParam().utf16).ToUtf8(), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(VString, LoneSurrogate,
                         testing::Values(Utf8Case{"HighAtTheEnd", "a\xEF\xBF\xBD", u"a\xD83D"},
                                         Utf8Case{"HighBeforeALetter",
                                                  "\xEF\xBF\xBD"
                                                  "a",
                                                  u"\xD83D"
                                                  u"a"},
                                         Utf8Case{"LowAlone", "\xEF\xBF\xBD", u"\xDE00"},
                                         Utf8Case{"ThePairReversed", "\xEF\xBF\xBD\xEF\xBF\xBD", u"\xDE00\xD83D"}),
                         caseName);

TEST(VStringUtf8, CuttingAPairInTwoLeavesHalves) {
    const CVString text("\xF0\x9F\x98\x80");
    EXPECT_EQ(text.GetLength(), 2);
    EXPECT_EQ(text.Mid(0, 1).ToUtf8(), "\xEF\xBF\xBD");
    EXPECT_EQ(text.Mid(1).ToUtf8(), "\xEF\xBF\xBD");
    EXPECT_EQ((text.Mid(0, 1) + text.Mid(1)).ToUtf8(), "\xF0\x9F\x98\x80");
}

TEST(VStringUtf8, EveryPairOfBytesIsHeldWithoutACrash) {
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const char bytes[] = {static_cast<char>(first), static_cast<char>(second), '!', '\0'};
            const CVString text(bytes);
            ASSERT_EQ(text.Mid(text.GetLength() - 1).Compare("!"), 0) << first << " " << second;
        }
    }
}

TEST(VStringUtf8, TheTextEndsBeforeItsFirstNul) {
    EXPECT_EQ(CVString("land\0scape").GetLength(), 4);
    EXPECT_EQ(CVString(u"land\0scape").GetLength(), 4);
}

}  // namespace
}  // namespace customstyle_test
