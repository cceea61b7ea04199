// What a replay notes of each styler of each rule.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/study/Sources.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/study/StoreImage.h"
#include "tools/study/TracedReplay.h"

namespace customstyle_test {
namespace {

using customstyle_tool::Origin;
using customstyle_tool::RecordTouch;
using customstyle_tool::ReplayStep;
using customstyle_tool::StoreImage;
using customstyle_tool::TracedReplay;
using testing::ElementsAre;
using testing::IsEmpty;

std::unique_ptr<CustomConfig> loaded(const std::string& mapping, const std::string& style) {
    const LogSilence quiet;
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(parsed(mapping).get());
    config->ParseCustomConfig(parsed(style).get());
    return config;
}

std::string contentOf(const std::string& path) {
    std::ifstream stream(path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// ---- The outcome ----------------------------------------------------------------------------------------------------

class ReplayOfARandomStyle : public testing::TestWithParam<unsigned> {};

TEST_P(ReplayOfARandomStyle, LeavesTheStoreThatLoadingTheFileLeaves) {
    RandomFiles files(GetParam());
    const std::string mapping = files.mapping();
    const std::string style = randomStyle(files, 60);
    const TracedReplay replay(parsed(mapping).get(), StyleText(style).singles());
    EXPECT_TRUE(StoreImage(replay.config()) == StoreImage(*loaded(mapping, style)));
}

TEST_P(ReplayOfARandomStyle, NotesTheLogThatLoadingTheFileWrites) {
    RandomFiles files(GetParam());
    const std::string style = randomStyle(files, 60);
    const TracedReplay replay(parsed(testMapping()).get(), StyleText(style).singles());
    std::vector<std::string> noted;
    for (const ReplayStep& step : replay.steps()) noted.insert(noted.end(), step.log.begin(), step.log.end());
    LogCapture log;
    CustomConfig config;
    config.ParseCustomConfig(parsed(style).get());
    EXPECT_EQ(noted, log.take());
}

INSTANTIATE_TEST_SUITE_P(Seeds, ReplayOfARandomStyle, testing::Range(0u, 20u));

class ReplayOfAnExample : public testing::TestWithParam<const char*> {};

TEST_P(ReplayOfAnExample, LeavesTheStoreThatLoadingTheFileLeaves) {
    const std::string mapping = contentOf(CUSTOMSTYLE_EXAMPLES "/map/CustomIndex");
    const std::string style = contentOf(std::string(CUSTOMSTYLE_EXAMPLES "/styles/") + GetParam());
    const TracedReplay replay(parsed(mapping).get(), StyleText(style).singles());
    EXPECT_TRUE(StoreImage(replay.config()) == StoreImage(*loaded(mapping, style)));
}

INSTANTIATE_TEST_SUITE_P(Styles, ReplayOfAnExample,
                         testing::Values("night.json", "pale.json", "transit.json", "no-labels.json", "main-roads.json",
                                         "mistakes.json"));

// ---- The steps ------------------------------------------------------------------------------------------------------

/// The steps of some rules over the test mapping.
std::vector<ReplayStep> stepsOf(std::initializer_list<RuleBuilder> rules) {
    return TracedReplay(parsed(testMapping()).get(), StyleText(styleOf(rules)).singles()).steps();
}

std::vector<std::string> touchedKeys(const ReplayStep& step) {
    std::vector<std::string> keys;
    for (const RecordTouch& touch : step.touches) {
        if (keys.empty() || keys.back() != touch.key) keys.push_back(touch.key);
    }
    return keys;
}

Origin originOf(const RecordTouch& touch, const char* field) {
    return touch.origins[customstyle_tool::fieldIndex(field)];
}

TEST(ReplaySteps, SplitARuleIntoItsStylersInTheComponentsOrder) {
    const auto steps =
        stepsOf({rule("highway", "labels").fontsize("9").weight("2").visibility("off").color("#112233")});
    ASSERT_EQ(steps.size(), 4u);
    EXPECT_EQ(steps[0].styler, "color");
    EXPECT_EQ(steps[1].styler, "visibility");
    EXPECT_EQ(steps[2].styler, "weight");
    EXPECT_EQ(steps[3].styler, "fontsize");
    EXPECT_EQ(steps[3].rule, 0u);
}

TEST(ReplaySteps, OfARefusedRuleAreOneStepWithTheLog) {
    const auto steps = stepsOf({rule("lake", "geometry").color("#112233"), rule("water", "geometry")});
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_THAT(steps[0].log, ElementsAre(logLine(R"(warning, "featureType:lake" is illegal)")));
    EXPECT_THAT(steps[1].log, ElementsAre(logLine(R"(warning, "stylers" is undefined)")));
    EXPECT_EQ(steps[1].styler, "");
    EXPECT_EQ(steps[1].rule, 1u);
}

TEST(ReplaySteps, TouchEachRecordOfTheTypeAndItsCompanion) {
    const auto steps = stepsOf({rule("highway", "labels.text.fill").color("#ff0000").level("15")});
    EXPECT_THAT(steps[0].keys, ElementsAre("13:15", "28:15"));
    EXPECT_THAT(steps[0].newKeys, ElementsAre("13:15", "28:15"));
    ASSERT_EQ(steps[0].touches.size(), 4u);
    EXPECT_EQ(steps[0].touches[3].styleId, secondStyleId(28));
    EXPECT_EQ(steps[0].touches[3].featureType, 28);
    EXPECT_EQ(steps[0].touches[3].level, 15);
    EXPECT_EQ(steps[0].touches[3].before, baseRecord(secondStyleId(28)));
    EXPECT_EQ(steps[0].touches[3].after.m_textFillColor, 0xff0000ffu);
}

TEST(ReplaySteps, KnowAKeyThatIsNoLongerNew) {
    const auto steps = stepsOf({rule("water", "geometry").color("#112233"), rule("water", "geometry").weight("2")});
    EXPECT_THAT(steps[1].keys, ElementsAre("2"));
    EXPECT_THAT(steps[1].newKeys, IsEmpty());
}

TEST(ReplaySteps, TellWrittenFromKeptFields) {
    const auto steps = stepsOf({rule("water", "geometry.fill").color("#112233")});
    const RecordTouch& touch = steps[0].touches.front();
    EXPECT_EQ(originOf(touch, "fill"), Origin::Written);
    EXPECT_EQ(originOf(touch, "customised"), Origin::Written);
    EXPECT_EQ(originOf(touch, "stroke"), Origin::Kept);
    EXPECT_EQ(originOf(touch, "font size"), Origin::Kept);
    EXPECT_EQ(originOf(touch, "icon"), Origin::Kept);
}

TEST(ReplaySteps, SeeThatTheSameValueIsWrittenAgain) {
    const auto steps =
        stepsOf({rule("water", "geometry.fill").color("#112233"), rule("water", "geometry.fill").color("#112233")});
    EXPECT_EQ(originOf(steps[1].touches.front(), "fill"), Origin::Written);
    EXPECT_EQ(steps[1].touches.front().before, steps[1].touches.front().after);
}

TEST(ReplaySteps, SeeALevelRecordStartOverFromTheOneForAllLevels) {
    const auto steps = stepsOf({rule("water", "geometry.fill").color("#112233"),
                                rule("water", "geometry.stroke").color("#445566").level("10"),
                                rule("water", "geometry").weight("3").level("10")});
    const RecordTouch& touch = steps[2].touches.front();
    EXPECT_EQ(touch.key, "2:10");
    EXPECT_EQ(originOf(touch, "fill weight"), Origin::Written);
    EXPECT_EQ(originOf(touch, "fill"), Origin::Inherited);
    EXPECT_EQ(originOf(touch, "stroke"), Origin::Inherited);
    EXPECT_EQ(touch.before.m_borderColorSet, 1);
    EXPECT_EQ(touch.after.m_borderColorSet, 0);
}

TEST(ReplaySteps, SeeARecordTakenOut) {
    const auto steps = stepsOf({rule("water", "labels.text.topsurface").visibility("off")});
    EXPECT_EQ(steps[0].touches.front().after.m_custom, 0);
    EXPECT_EQ(originOf(steps[0].touches.front(), "customised"), Origin::Written);
}

TEST(ReplaySteps, TouchOnlyTheCompanionOfALabelIcon) {
    const auto steps = stepsOf({rule("highway", "labels.icon").visibility("off")});
    EXPECT_THAT(touchedKeys(steps[0]), ElementsAre("28"));
    EXPECT_EQ(originOf(steps[0].touches.front(), "icon"), Origin::Written);
}

TEST(ReplaySteps, NoteTheGridColourEvenWhenItIsTheSameAgain) {
    const auto steps = stepsOf({rule("grid", "all").color("#112233"), rule("grid", "fill").color("#112233"),
                                rule("water", "geometry").color("#112233")});
    EXPECT_EQ(steps[0].gridColor, 0xff332211u);
    EXPECT_EQ(steps[1].gridColor, 0xff332211u);
    EXPECT_FALSE(steps[2].gridColor.has_value());
}

TEST(ReplaySteps, NoteThatEveryIconIsHiddenEachTime) {
    const auto steps = stepsOf({rule("all", "icon").visibility("on"), rule("all", "icon").visibility("off"),
                                rule("water", "labels").visibility("off")});
    EXPECT_TRUE(steps[0].hidesEveryIcon);
    EXPECT_TRUE(steps[1].hidesEveryIcon);
    EXPECT_FALSE(steps[2].hidesEveryIcon);
}

TEST(ReplaySteps, NameTheKeysThatFoundNoSlot) {
    std::string style = "[";
    for (int type = 0; type <= 71; ++type) {
        for (int level = 4; level <= 21; ++level) {
            style += rule(CustomConfig().GetFeatureTypeName(type), "geometry")
                         .color("#1")
                         .level(std::to_string(level))
                         .json();
            style += ",";
        }
    }
    style += rule("water", "geometry").color("#1").json() + "]";
    const TracedReplay replay(parsed("{}").get(), StyleText(style).singles());
    EXPECT_THAT(replay.steps()[1240].refused, IsEmpty());
    EXPECT_THAT(replay.steps()[1241].refused, ElementsAre("68:21"));
    EXPECT_THAT(replay.steps().back().refused, ElementsAre("2"));
    EXPECT_THAT(replay.steps().back().newKeys, IsEmpty());
}

}  // namespace
}  // namespace customstyle_test
