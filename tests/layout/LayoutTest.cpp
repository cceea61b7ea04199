#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "tests/support/CaseName.h"
#include "tools/layout/Columns.h"
#include "tools/layout/Layout.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::caseName;

std::string laidOutText(std::string_view text) {
    return laidOut(std::get<JsonDocument>(parseJson(text)));
}

struct Case {
    const char* name;
    std::string text;
    std::string laidOut;
};

class LayoutOf : public testing::TestWithParam<Case> {};

TEST_P(LayoutOf, IsAsAPersonWouldWriteIt) {
    EXPECT_EQ(laidOutText(GetParam().text), GetParam().laidOut);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LayoutOf,
    testing::Values(
        Case{"AnEmptyListStaysOnItsLine", " [ ] ", "[]\n"}, Case{"AnEmptyObjectToo", "{\n}", "{}\n"},
        Case{"AValueThatIsNoListStandsAlone", "  12.50 ", "12.50\n"},
        Case{"ARuleTakesALine", R"([{"a":1,"b":{"c":"d"}}])", "[\n  {\"a\": 1, \"b\": {\"c\": \"d\"}}\n]\n"},
        Case{"MembersStandInColumns", R"([{"a":1,"b":2},{"a":100,"b":3}])",
             "[\n  {\"a\": 1,   \"b\": 2},\n  {\"a\": 100, \"b\": 3}\n]\n"},
        Case{"OtherMembersHaveColumnsOfTheirOwn", R"([{"a":1,"b":2},{"ab":100,"c":3}])",
             "[\n  {\"a\": 1, \"b\": 2},\n  {\"ab\": 100, \"c\": 3}\n]\n"},
        Case{"CharactersCountNotBytes", "[{\"a\":\"é\",\"b\":2},{\"a\":\"ee\",\"b\":3}]",
             "[\n  {\"a\": \"é\",  \"b\": 2},\n  {\"a\": \"ee\", \"b\": 3}\n]\n"},
        Case{"DoubledMembersStayInTheirOrder", R"([{"b":1,"a":2,"b":3}])", "[\n  {\"b\": 1, \"a\": 2, \"b\": 3}\n]\n"},
        Case{"NumbersAndTextsStayAsWritten", R"([{"a":007.10e+1,"b":"\u0041\/"}])",
             "[\n  {\"a\": 007.10e+1, \"b\": \"\\u0041\\/\"}\n]\n"},
        Case{"ValuesThatAreNoRulesTakeALine", R"([null,true,"x",[1,[]],{}])",
             "[\n  null,\n  true,\n  \"x\",\n  [1, []],\n  {}\n]\n"},
        Case{"AnObjectOfRulesKeepsItsNames", R"({"one":{"a":1},"two":{"a":2}})",
             "{\n  \"one\": {\"a\": 1},\n  \"two\": {\"a\": 2}\n}\n"},
        Case{"ABlankLineBetweenRulesStays", "[1,\n\n2]", "[\n  1,\n\n  2\n]\n"},
        Case{"SeveralBlankLinesBecomeOne", "[1,\n\n\n\n2]", "[\n  1,\n\n  2\n]\n"},
        Case{"ABlankLineBeforeTheCommaCountsToo", "[1\n\n,2]", "[\n  1,\n\n  2\n]\n"},
        Case{"ACommaOnALineOfItsOwnIsNoBlankLine", "[1\n,\n2]", "[\n  1,\n  2\n]\n"},
        Case{"BlankLinesInsideARuleGo", "[{\"a\":\n\n1}]", "[\n  {\"a\": 1}\n]\n"},
        Case{"LineEndsStayWhatTheyWere", "[\r\n1,\r\n\r\n2]", "[\r\n  1,\r\n\r\n  2\r\n]\r\n"}),
    caseName);

std::string ofLength(std::size_t length) {
    return '"' + std::string(length - 2, 'x') + '"';
}

TEST(Layout, BreaksARuleThatDoesNotFitOnALine) {
    const std::string fits = "{\"a\": " + ofLength(kRuleWidth - 10) + "}";
    const std::string breaks = "{\"a\": " + ofLength(kRuleWidth - 9) + "}";
    EXPECT_EQ(laidOutText("[" + fits + "]"), "[\n  " + fits + "\n]\n");
    EXPECT_EQ(laidOutText("[" + breaks + "]"), "[\n  {\n    \"a\": " + ofLength(kRuleWidth - 9) + "\n  }\n]\n");
}

TEST(Layout, BreaksInnerObjectsOnlyWhereTheyDoNotFit) {
    const std::string text = ofLength(kLineWidth - 20);
    EXPECT_EQ(laidOutText("[{\"a\":{\"b\":1},\"c\":{\"d\":" + text + ",\"e\":[1,2]}}]"),
              "[\n  {\n    \"a\": {\"b\": 1},\n    \"c\": {\n      \"d\": " + text +
                  ",\n      \"e\": [1, 2]\n    }\n  }\n]\n");
}

TEST(Layout, LeavesARuleThatIsTooWideOutOfTheColumns) {
    const std::string wide = "{\"a\": " + ofLength(kRuleWidth - 20) + ", \"b\": 1}";
    EXPECT_EQ(
        laidOutText("[{\"a\":1,\"b\":\"" + std::string(20, 'x') + "\"}," + wide + ",{\"a\":22,\"b\":3}]"),
        "[\n  {\"a\": 1,  \"b\": \"" + std::string(20, 'x') + "\"},\n  " + wide + ",\n  {\"a\": 22, \"b\": 3}\n]\n");
}

TEST(Width, IsThatOfTheCharacters) {
    EXPECT_EQ(widthOf("aé漢"), 3U);
    EXPECT_EQ(widthOf(""), 0U);
}

}  // namespace
