#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "tools/schema/NumberPattern.h"

namespace {

using customstyle_tool::patternOfNumbersTo;

TEST(NumberPattern, MatchesTheNumbersUpToTheHighest) {
    for (const int highest : {0, 7, 9, 10, 19, 21, 99, 100, 255, 900, 999, 1000}) {
        const std::regex pattern(patternOfNumbersTo(highest));
        for (int number = 0; number <= 2 * highest + 20; ++number) {
            EXPECT_EQ(std::regex_match(std::to_string(number), pattern), number <= highest) << number << ' ' << highest;
        }
    }
}

TEST(NumberPattern, AllowsLeadingZeros) {
    const std::regex pattern(patternOfNumbersTo(255));
    EXPECT_TRUE(std::regex_match("000255", pattern));
    EXPECT_TRUE(std::regex_match("000", pattern));
    EXPECT_FALSE(std::regex_match("0256", pattern));
}

TEST(NumberPattern, RefusesWhatIsNoNumber) {
    const std::regex pattern(patternOfNumbersTo(255));
    for (const char* text : {"", " 1", "1 ", "-1", "1.5", "x"}) EXPECT_FALSE(std::regex_match(text, pattern)) << text;
}

}  // namespace
