#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/CaseName.h"
#include "tools/support/Spelling.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

const std::vector<std::string> kNames{"highway", "highwaylabel", "water", "green", "poilabel", "building", "buildings"};

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
                                         SpellingCase{"BlanksDoNotCount", " w a t e r ", "water"},
                                         SpellingCase{"DashesDoNotCount", "p-o-i-l-a-b-e-l", "poilabel"},
                                         SpellingCase{"UnderscoresDoNotCount", "p_o_i_l_a_b_e_l", "poilabel"},
                                         SpellingCase{"ALetterMissing", "gren", "green"},
                                         SpellingCase{"ALetterTooMany", "waater", "water"},
                                         SpellingCase{"TwoLettersSwapped", "wtaer", "water"},
                                         SpellingCase{"ALetterInThreeWrong", "hxghwax", "highway"},
                                         SpellingCase{"MoreThanALetterInThree", "hxgxwax", std::nullopt},
                                         SpellingCase{"TheNearerOfTwo", "highwaylabl", "highwaylabel"},
                                         SpellingCase{"TheNearerThatComesFirst", "bulding", "building"},
                                         SpellingCase{"TheFirstOfTwoAsNear", "buildingz", "building"},
                                         SpellingCase{"TooFarFromAll", "lake", std::nullopt},
                                         SpellingCase{"NothingToCompare", "", std::nullopt},
                                         SpellingCase{"BlanksOnly", "  ", std::nullopt}),
                         caseName);

TEST(LikelyNameOfALongWord, IsNone) {
    const std::vector<std::string> longNames{std::string(65, 'a')};
    EXPECT_EQ(likelyName(std::string(64, 'a'), longNames), longNames.front());
    EXPECT_EQ(likelyName(std::string(65, 'a'), longNames), std::nullopt);
    EXPECT_EQ(likelyName(std::string(100'000, 'a'), kNames), std::nullopt);
}

TEST(LikelyNameOfNoWord, IsNotEvenTheShortest) {
    EXPECT_EQ(likelyName("", std::vector<std::string>{"a"}), std::nullopt);
}

TEST(SpellingDistance, CountsChangesFromEitherSide) {
    EXPECT_EQ(spellingDistance("", "abc"), 3U);
    EXPECT_EQ(spellingDistance("abc", "abc"), 0U);
    EXPECT_EQ(spellingDistance("ab", "ba"), 1U);
    EXPECT_EQ(spellingDistance("kitten", "sitting"), 3U);
}

TEST(SpellingDistance, CountsASwapOnlyWhereBothLettersAreSwapped) {
    EXPECT_EQ(spellingDistance("ab", "xa"), 2U);
    EXPECT_EQ(spellingDistance("ab", "bx"), 2U);
}

TEST(SpellingDistance, IgnoresWhatStandsBeforeTheWords) {
    const std::string_view text = "ba";
    EXPECT_EQ(spellingDistance("axab", text.substr(1)), 3U);
    std::string pairs;
    for (int i = 0; i < 10'000; ++i) pairs += "ab";
    EXPECT_EQ(spellingDistance(text.substr(1), pairs), pairs.size() - 1);
}

TEST(EitherOf, ListsAllNames) {
    EXPECT_EQ(eitherOf({}), "");
    EXPECT_EQ(eitherOf({"fill"}), "fill");
    EXPECT_EQ(eitherOf({"fill", "stroke"}), "fill or stroke");
    EXPECT_EQ(eitherOf({"fill", "stroke", "icon"}), "fill, stroke or icon");
}

TEST(UnknownWord, NamesTheNearestOrAllOfAFew) {
    std::vector<std::string> names{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "green"};
    EXPECT_EQ(unknownWord("color", "blue", names),
              "unknown color \"blue\"; write a, b, c, d, e, f, g, h, i, j, k or green");
    names.emplace_back("water");
    EXPECT_EQ(unknownWord("color", "blue", names), "unknown color \"blue\"");
    EXPECT_EQ(unknownWord("color", "gren", names), "unknown color \"gren\"; did you mean \"green\"?");
}

}  // namespace
}  // namespace customstyle_test
