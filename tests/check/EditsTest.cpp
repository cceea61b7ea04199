// Applying remedies: what is rewritten or removed, and that nothing else changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "tests/check/CheckedText.h"
#include "tests/study/Sources.h"
#include "tests/support/CaseName.h"
#include "tests/support/RandomFiles.h"
#include "tools/check/Edits.h"
#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

std::string remedied(const std::string& text) {
    const CheckedFile checked = checkedStyle(text);
    return edited(text, jointEdits(checked.findings, *checked.study));
}

struct Remedy {
    const char* name;
    const char* before;
    const char* after;
};

class JointEdits : public testing::TestWithParam<Remedy> {};

TEST_P(JointEdits, CarryOutWhatIsKnown) {
    EXPECT_EQ(remedied(GetParam().before), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Remedies, JointEdits,
    testing::Values(
        Remedy{"ShortColour", R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#abc"}}])",
               R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}}])"},
        Remedy{"MisspeltType", R"([{"featureType":"watr","elementType":"fill","stylers":{"color":"#aabbcc"}}])",
               R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}}])"},
        Remedy{"NumberForText", R"([{"featureType":"highway","elementType":"fill","stylers":{"weight":3}}])",
               R"([{"featureType":"highway","elementType":"fill","stylers":{"weight":"3"}}])"},
        Remedy{"SameRuleTwice",
               R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}},
 {"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}}])",
               R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}}])"},
        Remedy{"RuleOfWhichOnlyARemarkWouldBeLeft",
               R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}},
 {"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc","note":"x"}}])",
               R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#aabbcc"}}])"},
        Remedy{"UnknownWord", R"([{"featureType":"zzz","elementType":"fill","stylers":{"color":"#aabbcc"}}])",
               R"([{"featureType":"zzz","elementType":"fill","stylers":{"color":"#aabbcc"}}])"},
        Remedy{"NothingToDo", "[]", "[]"}),
    caseName);

// Every answer of a style for the standard mapping, which removals must not change.
std::vector<std::string> answersOf(const std::string& style) {
    const ComponentGuard guard;
    const auto config = storeOf(defaultMapping(), style);
    std::vector<std::string> answers;
    for (unsigned int id = defaultStyleId(0); id <= defaultStyleId(72); ++id) {
        for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
            const Answer answer = ask(*config, id, levelOfClass(levelClass));
            std::string text = std::to_string(answer.featureType) + (answer.iconHidden ? " hidden" : " shown");
            for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
                const auto value = fieldIn(answer, field);
                text += value ? " " + std::to_string(*value) : " -";
            }
            answers.push_back(text);
        }
    }
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const int level = levelOfClass(levelClass);
        answers.push_back(std::to_string(landColor(*config, level).value_or(0)) + " " +
                          std::to_string(gridColor(*config, level).value_or(0)));
    }
    return answers;
}

bool onlyTakesOut(std::span<const Edit> edits) {
    return std::ranges::all_of(edits, [](const Edit& edit) { return edit.text.empty(); });
}

TEST(JointEdits, LeaveEveryAnswerWhereTheyTakeOut) {
    int shortened = 0;
    for (unsigned int seed = 1; seed <= 60; ++seed) {
        RandomFiles files(seed);
        const std::string text = randomStyle(files, 6);
        const CheckedFile checked = checkedStyle(text);
        if (checked.study == nullptr || !checked.study->source().isWhole()) continue;
        const std::vector<Edit> edits = jointEdits(checked.findings, *checked.study);
        if (edits.empty() || !onlyTakesOut(edits)) continue;
        ++shortened;
        const std::string after = edited(text, edits);
        EXPECT_EQ(answersOf(after), answersOf(text)) << text << "\nbecame\n" << after;
    }
    EXPECT_GT(shortened, 3);
}

TEST(EditsOfAFinding, AreThoseOfItAlone) {
    const std::string text = R"([{"featureType":"water","elementType":"fill","stylers":{"color":"#abc"}}])";
    const CheckedFile checked = checkedStyle(text);
    ASSERT_EQ(checked.findings.size(), 1U);
    const std::vector<Edit> edits = editsOf(checked.findings[0], *checked.study);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(text.substr(edits[0].range.begin, edits[0].range.size()), "\"#abc\"");
    EXPECT_EQ(edits[0].text, "\"#aabbcc\"");
}

}  // namespace
}  // namespace customstyle_test
