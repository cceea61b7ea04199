#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools/support/Spelling.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

const std::vector<std::string> kNames{"highway", "highwaylabel", "water", "green", "poilabel"};

struct SpellingCase {
    const char* name;
    const char* word;
    std::optional<std::string> meant;
};

void PrintTo(const SpellingCase& spelling, std::ostream* out) {
    *out << spelling.word;
}

class LikelyName : public testing::TestWithParam<SpellingCase> {};

TEST_P(LikelyName, IsTheNearest) {
    EXPECT_EQ(likelyName(GetParam().word, kNames), GetParam().meant);
}

INSTANTIATE_TEST_SUITE_P(Words, LikelyName,
                         testing::Values(SpellingCase{"LetterCaseDoesNotCount", "HighWay", "highway"},
                                         SpellingCase{"BlanksDoNotCount", " water ", "water"},
                                         SpellingCase{"DashesDoNotCount", "poi-label", "poilabel"},
                                         SpellingCase{"ALetterMissing", "gren", "green"},
                                         SpellingCase{"ALetterTooMany", "waater", "water"},
                                         SpellingCase{"TwoLettersSwapped", "wtaer", "water"},
                                         SpellingCase{"TheNearerOfTwo", "highwaylabl", "highwaylabel"},
                                         SpellingCase{"TooFarFromAll", "lake", std::nullopt},
                                         SpellingCase{"NothingToCompare", "", std::nullopt},
                                         SpellingCase{"BlanksOnly", "  ", std::nullopt}),
                         [](const testing::TestParamInfo<SpellingCase>& each) { return each.param.name; });

TEST(SpellingDistance, CountsChangesFromEitherSide) {
    EXPECT_EQ(spellingDistance("", "abc"), 3U);
    EXPECT_EQ(spellingDistance("abc", "abc"), 0U);
    EXPECT_EQ(spellingDistance("ab", "ba"), 1U);
    EXPECT_EQ(spellingDistance("kitten", "sitting"), 3U);
}

TEST(LikelyNameOfALongWord, IsNone) {
    EXPECT_EQ(likelyName(std::string(100'000, 'a'), kNames), std::nullopt);
}

}  // namespace
}  // namespace customstyle_test
