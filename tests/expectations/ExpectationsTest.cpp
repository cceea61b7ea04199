// How the lines of a file of expectations are read.
#include <gtest/gtest.h>

#include <string>

#include "tests/study/LoadedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/Repeated.h"
#include "tests/support/TestStore.h"
#include "tools/expectations/Expectations.h"

namespace customstyle_test {
namespace {

using customstyle_tool::Aspect;
using customstyle_tool::Expectation;
using customstyle_tool::ExpectationFile;
using customstyle_tool::SourceFile;

// The test mapping, but for a type without style ids.
std::string mappingWithoutTown() {
    std::string mapping = testMapping();
    const std::size_t begin = mapping.find('[', mapping.find("\"town\"")) + 1;
    return mapping.erase(begin, mapping.find(']', begin) - begin);
}

ExpectationFile parsedFile(const SourceFile& file) {
    const auto style = loadedText(mappingWithoutTown(), "[]");
    return parseExpectations(file, style->mapping());
}

Expectation parsedLine(const std::string& line) {
    const SourceFile file("file", line);
    const ExpectationFile result = parsedFile(file);
    if (result.expectations.size() != 1) throw std::runtime_error("is no expectation: " + line);
    return result.expectations.front();
}

struct ProblemCase {
    const char* name;
    const char* line;
    std::size_t column;  // from 1
    const char* text;
};

class ExpectationProblemOf : public testing::TestWithParam<ProblemCase> {};

TEST_P(ExpectationProblemOf, IsReportedAtItsPlace) {
    const SourceFile file("file", GetParam().line);
    const ExpectationFile result = parsedFile(file);
    EXPECT_TRUE(result.expectations.empty());
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems[0].offset + 1, GetParam().column);
    EXPECT_EQ(result.problems[0].text, GetParam().text);
}

constexpr char kNoLevels[] = ": not a list of levels; write all, other, a level from 4 to 21, or a range like 4-9";

INSTANTIATE_TEST_SUITE_P(
    Lines, ExpectationProblemOf,
    testing::Values(
        ProblemCase{"UnknownType", "highwy all none", 1, "\"highwy\": unknown feature type; did you mean \"highway\"?"},
        ProblemCase{"UnknownTypeLikeNone", "xyz all none", 1,
                    "\"xyz\": unknown feature type; write a name like highway, or id and a number"},
        ProblemCase{"TheWildcardIsNoType", "all all none", 1,
                    "\"all\": unknown feature type; write a name like highway, or id and a number"},
        ProblemCase{"TypeWithoutStyleIds", "town all none", 1,
                    "\"town\": the mapping lists no style id under this feature type, so nothing would be tested"},
        ProblemCase{"NoStyleId", "id", 3, "missing a style id"},
        ProblemCase{"StyleIdIsNoNumber", "id x1 all none", 4,
                    "\"x1\": is not a style id; write a number from 0 to 4294967295"},
        ProblemCase{"StyleIdTooLarge", "id 4294967296 all none", 4,
                    "\"4294967296\": is not a style id; write a number from 0 to 4294967295"},
        ProblemCase{"NoLevels", "highway", 8, "missing levels: all, or a list like 4-9,12"},
        ProblemCase{"NoField", "highway all   // x", 12, "missing a field and its value, or none"},
        ProblemCase{"NoValue", "highway all fill", 17, "missing a value or none"},
        ProblemCase{"TooMuch", "highway all fill none at 5", 23,
                    "\"at\": nothing more is expected here; a comment starts with //"},
        ProblemCase{"UnknownField", "highway all txt-fill none", 13,
                    "\"txt-fill\": unknown field; did you mean \"text fill\"?"},
        ProblemCase{"NoColour", "highway all fill #12345", 18,
                    "\"#12345\": is not a colour; write #rrggbb, #rrggbbaa or none"},
        ProblemCase{"NoHexDigit", "highway all fill #12345g", 18,
                    "\"#12345g\": is not a colour; write #rrggbb, #rrggbbaa or none"},
        ProblemCase{"NoSize", "highway all font-size 12px", 23,
                    "\"12px\": write a whole number from 0 to 255, or none"},
        ProblemCase{"SizeTooLarge", "highway all font-size 256", 23,
                    "\"256\": write a whole number from 0 to 255, or none"},
        ProblemCase{"NoIconWord", "highway all icon off", 18, "\"off\": an icon is hidden or shown"},
        ProblemCase{"BackgroundOfOthers", "water all background none", 11,
                    "\"background\": only land and grid have one"},
        ProblemCase{"BackgroundOfAStyleId", "id 1020 all background none", 13,
                    "\"background\": only land and grid have one"},
        ProblemCase{"UnknownTypeThatAnswers", "id 1020 all type watr", 18,
                    "\"watr\": unknown feature type; did you mean \"water\"?"},
        ProblemCase{"NearlyId", "ids 1020 all none", 1,
                    "\"ids\": unknown feature type; write a name like highway, or id and a number"},
        ProblemCase{"NearlyHidden", "highway all icon hiddenly", 18, "\"hiddenly\": an icon is hidden or shown"},
        ProblemCase{"NearlyNone", "highway all fill nones", 18,
                    "\"nones\": is not a colour; write #rrggbb, #rrggbbaa or none"},
        ProblemCase{"NoIconWordAtAll", "highway all icon", 17, "missing hidden or shown"},
        ProblemCase{"SecondLevel", "highway 4,x none", 11,
                    "\"x\": not a list of levels; write all, other, a level from 4 to 21, or a range like 4-9"},
        ProblemCase{"ThirdLevel", "highway 4,12-14,3 none", 17,
                    "\"3\": not a list of levels; write all, other, a level from 4 to 21, or a range like 4-9"},
        ProblemCase{"ControlCharacters", "\x1b[2J all none", 1,
                    "\"\\u001b[2J\": unknown feature type; write a name like highway, or id and a number"}),
    caseName);

struct LevelsCase {
    const char* name;
    const char* written;
    const char* read;  // empty for a problem
};

class ExpectedLevels : public testing::TestWithParam<LevelsCase> {};

TEST_P(ExpectedLevels, AreRead) {
    const SourceFile file("file", std::string("id 1020 ") + GetParam().written + " none");
    const ExpectationFile result = parsedFile(file);
    const bool isGood = !result.expectations.empty();
    EXPECT_EQ(isGood ? customstyle_tool::levelsText(result.expectations[0].levels) : "", GetParam().read);
    EXPECT_TRUE(isGood || result.problems.at(0).text.ends_with(kNoLevels));
}

INSTANTIATE_TEST_SUITE_P(Words, ExpectedLevels,
                         testing::Values(LevelsCase{"All", "all", "all levels"}, LevelsCase{"One", "4", "4"},
                                         LevelsCase{"Last", "21", "21"}, LevelsCase{"Range", "4-9", "4-9"},
                                         LevelsCase{"Other", "other", "other"},
                                         LevelsCase{"List", "12,4-5,other", "4-5, 12, other"},
                                         LevelsCase{"Overlapping", "4-6,5-7", "4-7"}, LevelsCase{"TooLow", "3", ""},
                                         LevelsCase{"TooHigh", "4-22", ""}, LevelsCase{"Backwards", "9-4", ""},
                                         LevelsCase{"OpenRange", "4-", ""}, LevelsCase{"EmptyPart", "4,,5", ""},
                                         LevelsCase{"EndsWithComma", "4,", ""}, LevelsCase{"Negative", "-4", ""},
                                         LevelsCase{"Word", "alle", ""}, LevelsCase{"Sign", "+4", ""}),
                         caseName);

TEST(ExpectationLine, GivesTypeAndColour) {
    const Expectation expectation = parsedLine("  highway\t12 text-fill #01020304  // comment");
    EXPECT_EQ(expectation.featureType, 13);
    EXPECT_EQ(expectation.aspect, Aspect::Topic);
    EXPECT_EQ(expectation.topic->name, "text fill");
    EXPECT_EQ(expectation.value, 0x04030201U);
    EXPECT_EQ(expectation.text, "highway\t12 text-fill #01020304");
    EXPECT_EQ(expectation.offset, 2U);
}

TEST(ExpectationLine, GivesStyleIdAndSize) {
    const Expectation expectation = parsedLine("id 1020 all font-size 0");
    EXPECT_FALSE(expectation.featureType);
    EXPECT_EQ(expectation.styleId, 1020U);
    EXPECT_EQ(expectation.topic->name, "font size");
    EXPECT_EQ(expectation.value, 0U);
}

TEST(ExpectationLine, GivesAnOpaqueColourWithoutAlpha) {
    EXPECT_EQ(parsedLine("highway all fill #aAbBcC").value, 0xFFCCBBAAU);
}

TEST(ExpectationLine, GivesTheTypeThatAnswers) {
    const Expectation expectation = parsedLine("id 1020 all type education");
    EXPECT_EQ(expectation.aspect, Aspect::FeatureType);
    EXPECT_EQ(expectation.value, 6U);
}

TEST(ExpectationLine, GivesNoCustomStyle) {
    const Expectation expectation = parsedLine("id 1020 all none");
    EXPECT_EQ(expectation.aspect, Aspect::FeatureType);
    EXPECT_FALSE(expectation.value);
}

TEST(ExpectationLine, GivesIconsAndBackgrounds) {
    EXPECT_EQ(parsedLine("highway all icon hidden").value, 1U);
    EXPECT_EQ(parsedLine("highway all icon shown").value, 0U);
    EXPECT_EQ(parsedLine("land all background none").topic->name, "land background");
    EXPECT_EQ(parsedLine("grid all background none").topic->name, "grid background");
}

TEST(ExpectationLines, MayBeCommentsBlankAndOfAnySystem) {
    const SourceFile file("file",
                          "\xEF\xBB\xBF# comment\r\n\r\n   \n// comment\nid 1020 all none\r\n  #x\nid 1030 all none");
    const ExpectationFile result = parsedFile(file);
    EXPECT_TRUE(result.problems.empty());
    EXPECT_EQ(result.expectations.size(), 2U);
}

TEST(ExpectationLines, EndAtACarriageReturnByItself) {
    const SourceFile file("file", "id 1020 all none  // a remark\rid 1030 all none\r");
    EXPECT_EQ(parsedFile(file).expectations.size(), 2U);
}

TEST(ExpectationLines, AboutAStyleIdThatIsNotListedAreProblems) {
    for (const char* const line : {"id 5 all none", "id 4294967291 all fill #112233", "id 5 all type water"}) {
        const SourceFile file("file", line);
        const ExpectationFile result = parsedFile(file);
        ASSERT_EQ(result.problems.size(), 1U) << line;
        EXPECT_EQ(result.problems[0].offset, 3U);
    }
    const SourceFile icon("file", "id 5 all icon shown");
    EXPECT_EQ(parsedFile(icon).expectations.size(), 1U) << "one rule can hide every icon";
}

TEST(ExpectationLines, AreReadOnBehindAProblem) {
    const SourceFile file("file", "id 1\nid 1020 all none\nid x all none\n");
    const ExpectationFile result = parsedFile(file);
    EXPECT_EQ(result.expectations.size(), 1U);
    ASSERT_EQ(result.problems.size(), 2U);
    EXPECT_EQ(file.place(result.problems[1].offset), "file:3:4");
}

TEST(FileOfProblems, IsNotReadToItsEnd) {
    const SourceFile file("file", repeated("lorem ipsum\n", 1000) + "water all none\n");
    const ExpectationFile result = parsedFile(file);
    EXPECT_EQ(result.problems.size(), customstyle_tool::kMostProblems);
    EXPECT_TRUE(result.expectations.empty());
}

}  // namespace
}  // namespace customstyle_test
