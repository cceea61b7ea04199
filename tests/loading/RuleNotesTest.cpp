// The notes that the rule parser keeps for the visibility styling, with a visibility styling in place of the
// component's that looks at them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace {

using _orvik_framework::stFeatureTypeStyleRecorder;

struct Call {
    const stFeatureTypeStyleRecorder* recorders;
    int ruleIndex;
    int featureType;
    std::string elementType;
};

std::vector<Call> g_calls;
int g_ruleCount = 0;

// Notes that were filled hold what their call was about; the others hold the empty text.
void expectNotes(const stFeatureTypeStyleRecorder* recorders) {
    std::vector<std::string> texts(static_cast<std::size_t>(g_ruleCount));
    for (const Call& call : g_calls) texts[static_cast<std::size_t>(call.ruleIndex)] = call.elementType;
    for (int i = 0; i < g_ruleCount; ++i) {
        EXPECT_EQ(recorders[i].m_elementType.ToUtf8(), texts[static_cast<std::size_t>(i)]) << i;
    }
    for (const Call& call : g_calls) EXPECT_EQ(recorders[call.ruleIndex].m_featureType, call.featureType);
}

}  // namespace

namespace _orvik_framework {

void CustomConfig::SetCustomVisibilityStyle(int featureType, CVString elementType, const cJSON*, int,
                                            stFeatureTypeStyleRecorder* recorders, int ruleIndex, int, int) {
    ASSERT_NE(recorders, nullptr);
    expectNotes(recorders);
    recorders[ruleIndex] = {featureType, elementType, 1};
    g_calls.push_back({recorders, ruleIndex, featureType, elementType.ToUtf8()});
}

void CustomConfig::SetCustomIconInvisible(int, const CVString&, int, int, int) {}

}  // namespace _orvik_framework

namespace customstyle_test {
namespace {

class RuleNotes : public testing::Test {
protected:
    RuleNotes() { g_calls.clear(); }

    std::vector<int> indicesFor(const std::string& json) {
        const Tree style = parsed(json);
        g_ruleCount = cJSON_GetArraySize(style.get());
        EXPECT_EQ(m_config.ParseCustomConfig(style.get()), 1);
        std::vector<int> indices;
        for (const Call& call : g_calls) indices.push_back(call.ruleIndex);
        return indices;
    }

    LogSilence m_silence;
    CustomConfig m_config;
};

// Longer than a string keeps in place, so a note that is not destroyed leaks.
constexpr char kLongElement[] = "an element that nobody knows and that no string can keep inside of itself";

TEST_F(RuleNotes, AreOneForEachRuleForTheLengthOfTheCall) {
    const auto hides = [](const char* type) { return rule(type, kLongElement).visibility("off"); };
    const std::string style = styleOf({hides("land"), rule("water", "fill").color("#1"), rule("lake", "fill"),
                                       hides("highway"), hides("land"), rule("green", "fill"), hides("all")});
    EXPECT_THAT(indicesFor(style), testing::ElementsAre(0, 3, 4, 6));
    for (const Call& call : g_calls) EXPECT_EQ(call.recorders, g_calls[0].recorders);
}

TEST_F(RuleNotes, AreCountedByThePositionInTheFileAlsoAfterRefusedRules) {
    EXPECT_THAT(indicesFor("[null, 5, {}, [], \"x\", " + rule("land", "fill").visibility("on").json() + "]"),
                testing::ElementsAre(5));
}

TEST_F(RuleNotes, OfAnObjectAreThoseOfItsMembers) {
    EXPECT_THAT(indicesFor(R"({"a": 1, "b": )" + rule("land", "fill").visibility("x").json() + "}"),
                testing::ElementsAre(1));
}

TEST_F(RuleNotes, BeginAnewWithEachDocument) {
    const std::string style = styleOf({rule("land", kLongElement).visibility("off")});
    EXPECT_THAT(indicesFor(style), testing::ElementsAre(0));
    g_calls.clear();
    EXPECT_THAT(indicesFor(style), testing::ElementsAre(0));
}

TEST_F(RuleNotes, AreThereForManyRules) {
    std::string json = "[" + rule("land", kLongElement).visibility("off").json();
    for (int i = 1; i < 5000; ++i) json += i % 1000 == 0 ? "," + rule("land", "fill").visibility("off").json() : ",0";
    EXPECT_THAT(indicesFor(json + "]"), testing::ElementsAre(0, 1000, 2000, 3000, 4000));
}

}  // namespace
}  // namespace customstyle_test
