// From byte offsets to lines and columns.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/CaseName.h"
#include "tests/support/Repeated.h"
#include "tools/json/LineIndex.h"

namespace customstyle_test {
namespace {

using customstyle_tool::LineIndex;
using customstyle_tool::LinePosition;
using namespace std::string_view_literals;

struct PositionCase {
    const char* name;
    std::string_view text;
    std::size_t offset;
    LinePosition position;
};

class Position : public testing::TestWithParam<PositionCase> {};

TEST_P(Position, CountsLinesCharactersAndBytesFromOne) {
    const LinePosition position = LineIndex(GetParam().text).position(GetParam().offset);
    EXPECT_EQ(position.line, GetParam().position.line);
    EXPECT_EQ(position.column, GetParam().position.column);
    EXPECT_EQ(position.byteColumn, GetParam().position.byteColumn);
}

INSTANTIATE_TEST_SUITE_P(
    LineIndex, Position,
    testing::Values(PositionCase{"OfTheEmptyText", "", 0, {1, 1, 1}}, PositionCase{"OfTheBegin", "ab", 0, {1, 1, 1}},
                    PositionCase{"OfTheEnd", "ab", 2, {1, 3, 3}}, PositionCase{"BeyondTheEnd", "ab", 99, {1, 3, 3}},
                    PositionCase{"OfALineEnd", "ab\nc", 2, {1, 3, 3}},
                    PositionCase{"BehindALineEnd", "ab\nc", 3, {2, 1, 1}},
                    PositionCase{"OfACarriageReturn", "ab\r\nc", 2, {1, 3, 3}},
                    PositionCase{"OfTheLineEndBehindACarriageReturn", "ab\r\nc", 3, {1, 4, 4}},
                    PositionCase{"BehindBoth", "ab\r\nc", 4, {2, 1, 1}},
                    PositionCase{"ACarriageReturnAloneEndsNoLine", "a\rb", 2, {1, 3, 3}},
                    PositionCase{"InAnEmptyLine", "a\n\n\nb", 3, {3, 1, 1}},
                    PositionCase{"OfTheEndBehindALineEnd", "a\n", 2, {2, 1, 1}},
                    PositionCase{"BehindTwoByteCharacters", "\xC3\xA9\xC3\xA9x", 4, {1, 3, 5}},
                    PositionCase{"BehindAFourByteCharacter", "\xF0\x9F\x98\x80x", 4, {1, 2, 5}},
                    PositionCase{"InALaterLineWithAccents", "\xC3\xA9\n\xC3\xA9x", 5, {2, 2, 3}},
                    PositionCase{"AByteOrderMarkTakesNoColumn", "\xEF\xBB\xBF[]", 4, {1, 2, 5}},
                    PositionCase{"AByteOrderMarkCountsInItsLineOnly", "\xEF\xBB\xBF[\n]", 5, {2, 1, 1}},
                    PositionCase{"OfTheByteOrderMark", "\xEF\xBB\xBF[]", 0, {1, 1, 1}},
                    PositionCase{"NulIsACharacter", "\0\0x"sv, 2, {1, 3, 3}}),
    caseName);

TEST(LineIndex, ColumnsInVeryLongLinesAreCountedToo) {
    const std::string text = "first\n" + repeated("a\xC3\xA9", 10'000);
    const LineIndex lines(text);
    for (std::size_t character = 0; character <= 20'000; character += 25) {
        const std::size_t bytes = character / 2 * 3 + character % 2;
        EXPECT_EQ(lines.position(6 + bytes), (LinePosition{2, 1 + character, 1 + bytes}));
    }
}

TEST(LineIndex, TheEndOfALongTextHasItsColumn) {
    for (const std::size_t size : {4'095U, 4'096U, 8'192U, 65'536U}) {
        EXPECT_EQ(LineIndex(std::string(size, 'a')).position(size), (LinePosition{1, 1 + size, 1 + size}));
    }
}

TEST(LineIndex, TheLastLineIsTheRestOfTheText) {
    EXPECT_EQ(LineIndex("one\ntwo\r").lineText(2), "two\r");
}

TEST(LineIndex, LinesComeWithoutTheirLineEnds) {
    const LineIndex lines("one\ntwo\r\n\nfour\r\r\n");
    ASSERT_EQ(lines.lineCount(), 5u);
    EXPECT_EQ(lines.lineText(1), "one");
    EXPECT_EQ(lines.lineText(2), "two");
    EXPECT_EQ(lines.lineText(3), "");
    EXPECT_EQ(lines.lineText(4), "four\r");
    EXPECT_EQ(lines.lineText(5), "");
}

TEST(LineIndex, TheEmptyTextHasOneEmptyLine) {
    const LineIndex lines("");
    EXPECT_EQ(lines.lineCount(), 1u);
    EXPECT_EQ(lines.lineText(1), "");
}

TEST(Offset, IsTheOneThatHasThePosition) {
    for (const std::string_view text : {""sv, "a"sv, "ab\r\nc\u00e4\U0001F30Ad\n\nend"sv, "\xEF\xBB\xBFx\u6f22y\n"sv}) {
        const LineIndex index(text);
        for (std::size_t at = 0; at <= text.size(); ++at) {
            const bool isInside = at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
            const bool isEndOfLine = at < text.size() && at > 0 && text[at] == '\n' && text[at - 1] == '\r';
            if (isInside || isEndOfLine || (at == 0 && text.starts_with("\xEF\xBB\xBF"))) continue;
            const LinePosition position = index.position(at);
            EXPECT_EQ(index.offset(position.line, position.column), at) << text;
        }
    }
}

TEST(Offset, BeyondALineIsItsEnd) {
    const LineIndex index("ab\r\ncd");
    EXPECT_EQ(index.offset(1, 99), 2U);
    EXPECT_EQ(index.offset(2, 99), 6U);
    EXPECT_EQ(index.offset(3, 1), 6U);
    EXPECT_EQ(index.offset(0, 0), 0U);
}

}  // namespace
}  // namespace customstyle_test
