// CVString as a value: joining, comparing, searching, cutting and formatting.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/CaseName.h"
#include "tests/support/IntLimits.h"
#include "vi/vos/VString.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVString;

TEST(VString, IsEmptyAtFirst) {
    const CVString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_EQ(text.ToUtf8(), "");
    EXPECT_EQ(static_cast<const char16_t*>(text)[0], u'\0');
}

TEST(VString, NullPointersGiveTheEmptyText) {
    EXPECT_TRUE(CVString(static_cast<const char*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CVString(static_cast<const char16_t*>(nullptr)).IsEmpty());
}

TEST(VString, ACopyIsIndependentOfItsOrigin) {
    CVString origin("land");
    const CVString copy = origin;
    origin += "scape";
    EXPECT_EQ(copy.ToUtf8(), "land");
    EXPECT_EQ(origin.ToUtf8(), "landscape");
}

TEST(VString, AssignmentReplacesTheText) {
    CVString text("a long text that does not fit into a short buffer");
    text = "grid";
    EXPECT_EQ(text.ToUtf8(), "grid");
    text = CVString();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(VString, PlusJoinsTextsInOrderAndChangesNeither) {
    const CVString head("label");
    const CVString tail("s.text");
    EXPECT_EQ((head + tail).ToUtf8(), "labels.text");
    EXPECT_EQ(("<" + head + ">").ToUtf8(), "<label>");
    EXPECT_EQ(head.ToUtf8(), "label");
    EXPECT_EQ(tail.ToUtf8(), "s.text");
}

TEST(VString, ATextCanBeAppendedToItself) {
    CVString text("na");
    text += text;
    EXPECT_EQ(text.ToUtf8(), "nana");
}

TEST(VString, TheUnitsEndWithAZero) {
    const CVString text("ab");
    const char16_t* units = text;
    EXPECT_EQ(std::u16string(units), u"ab");
    EXPECT_EQ(units[2], u'\0');
}

// ---- Compare --------------------------------------------------------------------------------------------------------

struct CompareCase {
    const char* name;
    const char* left;
    const char* right;
    int sign;
};

int signOf(int number) {
    return (number > 0) - (number < 0);
}

class VStringCompare : public testing::TestWithParam<CompareCase> {};

TEST_P(VStringCompare, OrdersTexts) {
    EXPECT_EQ(signOf(CVString(GetParam().left).Compare(CVString(GetParam().right))), GetParam().sign);
}

TEST_P(VStringCompare, OrdersATextAndUtf8) {
    EXPECT_EQ(signOf(CVString(GetParam().left).Compare(GetParam().right)), GetParam().sign);
}

TEST_P(VStringCompare, OrdersTheOtherWayRound) {
    EXPECT_EQ(signOf(CVString(GetParam().right).Compare(GetParam().left)), -GetParam().sign);
    EXPECT_EQ(signOf(CVString(GetParam().right).Compare(CVString(GetParam().left))), -GetParam().sign);
}

INSTANTIATE_TEST_SUITE_P(
    VString, VStringCompare,
    testing::Values(CompareCase{"EqualTexts", "fill", "fill", 0}, CompareCase{"TwoEmptyTexts", "", "", 0},
                    CompareCase{"TheEmptyTextComesFirst", "", "a", -1},
                    CompareCase{"APrefixComesFirst", "label", "labels", -1},
                    CompareCase{"CapitalsComeBeforeSmallLetters", "Fill", "fill", -1},
                    CompareCase{"TheFirstDifferenceDecides", "abz", "ac", -1},
                    CompareCase{"EqualTextsOutsideAscii", "\xC3\xA9t\xC3\xA9", "\xC3\xA9t\xC3\xA9", 0},
                    CompareCase{"AsciiComesBeforeTheRest", "z", "\xC3\xA9", -1},
                    CompareCase{"AccentsAreNotNormalised", "e\xCC\x81", "\xC3\xA9", -1},
                    // U+1F600 starts with the unit D83D, which is below U+FF5E.
                    CompareCase{"UnitsCountNotCharacters", "\xF0\x9F\x98\x80", "\xEF\xBD\x9E", -1}),
    caseName);

TEST(VString, ANullPointerComparesAsTheEmptyText) {
    EXPECT_EQ(CVString().Compare(static_cast<const char*>(nullptr)), 0);
    EXPECT_GT(CVString("a").Compare(static_cast<const char*>(nullptr)), 0);
}

// ---- Find -----------------------------------------------------------------------------------------------------------

struct FindCase {
    const char* name;
    const char* text;
    const char* wanted;
    int position;
};

class VStringFind : public testing::TestWithParam<FindCase> {};

TEST_P(VStringFind, GivesThePositionOfTheFirstOccurrence) {
    EXPECT_EQ(CVString(GetParam().text).Find(GetParam().wanted), GetParam().position);
}

INSTANTIATE_TEST_SUITE_P(
    VString, VStringFind,
    testing::Values(FindCase{"AtTheStart", "labels.text", "labels", 0},
                    FindCase{"InTheMiddle", "labels.text.fill", ".text", 6},
                    FindCase{"AtTheEnd", "labels.text", "xt", 9}, FindCase{"TheFirstOfSeveral", "a.b.c", ".", 1},
                    FindCase{"Absent", "geometry", "labels", -1}, FindCase{"CaseCounts", "Labels", "labels", -1},
                    FindCase{"LongerThanTheText", "all", "alla", -1}, FindCase{"TheEmptyTextAtZero", "all", "", 0},
                    FindCase{"TheEmptyTextInTheEmptyText", "", "", 0}, FindCase{"NothingInTheEmptyText", "", "a", -1},
                    FindCase{"PositionsCountUnits",
                             "\xF0\x9F\x98\x80"
                             "b",
                             "b", 2}),
    caseName);

// ---- Mid ------------------------------------------------------------------------------------------------------------

struct MidCase {
    const char* name;
    int first;
    int count;
    const char* part;
};

class VStringMid : public testing::TestWithParam<MidCase> {};

TEST_P(VStringMid, CutsWithinTheText) {
    EXPECT_EQ(CVString("geometry").Mid(GetParam().first, GetParam().count).ToUtf8(), GetParam().part);
}

INSTANTIATE_TEST_SUITE_P(
    VString, VStringMid,
    testing::Values(MidCase{"Within", 3, 2, "me"}, MidCase{"Whole", 0, 8, "geometry"},
                    MidCase{"CountBeyondTheEnd", 5, 100, "try"}, MidCase{"LargestCount", 1, kIntMax, "eometry"},
                    MidCase{"FirstAtTheEnd", 8, 1, ""}, MidCase{"FirstBeyondTheEnd", 9, 1, ""},
                    MidCase{"LargestFirst", kIntMax, kIntMax, ""}, MidCase{"NegativeFirstCountsAsZero", -3, 3, "geo"},
                    MidCase{"LowestFirst", kIntMin, 1, "g"}, MidCase{"CountZero", 2, 0, ""},
                    MidCase{"NegativeCountIsNone", 2, -1, ""}, MidCase{"LowestCount", 0, kIntMin, ""}),
    caseName);

TEST(VString, MidWithoutACountRunsToTheEnd) {
    EXPECT_EQ(CVString("labels.icon").Mid(7).ToUtf8(), "icon");
    EXPECT_EQ(CVString("icon").Mid(0).ToUtf8(), "icon");
    EXPECT_EQ(CVString("icon").Mid(4).ToUtf8(), "");
    EXPECT_EQ(CVString("icon").Mid(5).ToUtf8(), "");
    EXPECT_EQ(CVString("icon").Mid(-1).ToUtf8(), "icon");
    EXPECT_EQ(CVString().Mid(0).ToUtf8(), "");
}

// ---- Format ---------------------------------------------------------------------------------------------------------

TEST(VString, FormatReplacesTheText) {
    CVString text("before");
    text.Format("%d:%d", 13, 15);
    EXPECT_EQ(text.ToUtf8(), "13:15");
}

TEST(VString, FormatTakesPrintfConversions) {
    CVString text;
    text.Format("%s|%5d|%-4d|%lld|%08x|%%|%c", "land", -7, 42, 1234567890123LL, 0xff00ffu, 'x');
    EXPECT_EQ(text.ToUtf8(), "land|   -7|42  |1234567890123|00ff00ff|%|x");
}

TEST(VString, FormatMayProduceNothing) {
    CVString text("before");
    text.Format("%s", "");
    EXPECT_TRUE(text.IsEmpty());
}

TEST(VString, FormatOfALongTextIsNotCut) {
    const std::string longText(100'000, 'x');
    CVString text;
    text.Format("<%s>", longText.c_str());
    EXPECT_EQ(text.GetLength(), 100'002);
    EXPECT_EQ(text.Find(">"), 100'001);
}

TEST(VString, FormatInsertsUtf8) {
    CVString text;
    text.Format("\xC3\xA9%s", "\xF0\x9F\x98\x80\xFF");
    EXPECT_EQ(std::u16string(text), u"\u00E9\U0001F600\uFFFD");
}

TEST(VString, FormatEndsBeforeTheFirstNul) {
    CVString text;
    text.Format("a%cb", 0);
    EXPECT_EQ(text.GetLength(), 1);
    EXPECT_EQ(text.ToUtf8(), "a");
}

}  // namespace
}  // namespace customstyle_test
