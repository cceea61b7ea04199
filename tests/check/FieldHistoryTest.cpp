#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/check/CheckedText.h"
#include "tools/study/FieldHistory.h"
#include "tools/study/Mapping.h"
#include "tools/study/StyleSource.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using _orvik_framework::EMAPCUSTOMSTYLE_HIGHWAY;
using _orvik_framework::EMAPCUSTOMSTYLE_HIGHWAYLABEL;
using testing::ElementsAre;
using testing::IsEmpty;

// The losses of a style: "victim < culprit: field, how", by index of the steps.
std::vector<std::string> lossesOf(std::initializer_list<std::string> rules) {
    const SourceFile file("style.json", fmt::format("[{}]", fmt::join(rules, ",")));
    const StyleSource style(file, std::get<JsonDocument>(parseJson(file.text())));
    const TracedReplay replay(Mapping::standard().tracedTree(), singleRules(style));
    std::vector<std::string> losses;
    const FieldHistory history(replay.steps());
    for (const LostWork& loss : history.losses()) {
        losses.push_back(fmt::format("{} < {}: {}, {}", loss.victim, loss.culprit, styleFields()[loss.field].name,
                                     loss.kind == LossKind::Reset ? "reset" : "overwritten"));
    }
    return losses;
}

std::string fill(const char* color) {
    return ruleText("water", "geometry.fill", fmt::format(R"({{"color": "{}"}})", color));
}

std::string atLevel(const char* element, const char* styler) {
    return ruleText("water", element, fmt::format(R"({{{}, "level": "9"}})", styler));
}

TEST(FieldHistory, HasNoLossesWhereStepsWriteDifferentFields) {
    EXPECT_THAT(lossesOf({fill("#111111"), ruleText("water", "geometry.stroke", R"({"color": "#222222"})")}),
                IsEmpty());
}

TEST(FieldHistory, TellsAnOverwrittenField) {
    EXPECT_THAT(lossesOf({fill("#111111"), fill("#222222")}), ElementsAre("0 < 1: fill, overwritten"));
}

TEST(FieldHistory, TellsAFieldThatALevelRuleResets) {
    EXPECT_THAT(lossesOf({fill("#111111"), atLevel("geometry.stroke", R"("color": "#222222")"),
                          atLevel("geometry.fill", R"("weight": "3")")}),
                ElementsAre("1 < 2: stroke, reset"));
}

TEST(FieldHistory, CountsWhatALevelInheritsAsTheWorkForAllLevels) {
    EXPECT_THAT(lossesOf({fill("#111111"), atLevel("geometry.fill", R"("weight": "3")"),
                          atLevel("geometry.fill", R"("weight": "4")")}),
                ElementsAre("1 < 2: fill weight, overwritten"));
}

TEST(FieldHistory, AddsUpForALevelWithoutAStyleForAllLevels) {
    EXPECT_THAT(
        lossesOf({atLevel("geometry.stroke", R"("color": "#222222")"), atLevel("geometry.fill", R"("weight": "3")")}),
        IsEmpty());
}

// Hiding for a level starts over from the style for all levels with the geometry, and again with the icon, for both
// types.
TEST(FieldHistory, KnowsWhatAStepUndoesItselfInEachOfItsRecords) {
    const SourceFile file("style.json",
                          fmt::format("[{},{}]", ruleText("highway", "all", R"({"color": "#112233"})"),
                                      ruleText("highway", "all", R"({"visibility": "off", "level": "9"})")));
    const StyleSource style(file, std::get<JsonDocument>(parseJson(file.text())));
    const TracedReplay replay(Mapping::standard().tracedTree(), singleRules(style));
    const FieldHistory recorded(replay.steps());
    for (const int type : {EMAPCUSTOMSTYLE_HIGHWAY, EMAPCUSTOMSTYLE_HIGHWAYLABEL}) {
        const History history = recorded.historyOf({type, 9}, fieldIndex("text fill"));
        ASSERT_TRUE(history.winner);
        EXPECT_EQ(history.winner->step, 0U);
        ASSERT_EQ(history.losses.size(), 1U);
        const Loss& loss = history.losses.front();
        EXPECT_EQ(loss.kind, LossKind::Reset);
        EXPECT_EQ(loss.byStep, 1U);
        EXPECT_EQ(loss.write.step, 1U);
        EXPECT_EQ(loss.write.featureType, type);
        EXPECT_EQ(loss.write.level, 9);
        EXPECT_EQ(loss.write.value, 0U);
    }
}

TEST(FieldHistory, KnowsTheOwnersInTheEnd) {
    const SourceFile file("style.json",
                          fmt::format("[{},{}]", fill("#111111"), atLevel("geometry.stroke", R"("weight": "3")")));
    const StyleSource style(file, std::get<JsonDocument>(parseJson(file.text())));
    const TracedReplay replay(Mapping::standard().tracedTree(), singleRules(style));
    const FieldHistory history(replay.steps());
    const RecordOwners& owners = history.records().at({2, 9}).owners;
    EXPECT_EQ(owners[fieldIndex("fill")], (Owner{0, false}));
    EXPECT_EQ(owners[fieldIndex("stroke weight")], (Owner{1, true}));
    EXPECT_EQ(owners[fieldIndex("text fill")], Owner{});
}

}  // namespace
}  // namespace customstyle_test
