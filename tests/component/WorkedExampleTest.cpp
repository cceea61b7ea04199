// One rule all the way, from two files to the renderer's answer.
#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

constexpr int kHighwayLabel = 28;

class WorkedExample : public testing::Test {
protected:
    WorkedExample() {
        const TemporaryDirectory directory;
        directory.write("CustomIndex", testMapping());
        const std::string style =
            directory.write("style.json", styleOf({rule("highway", "labels.text.fill").color("#ff0000").level("15")}));
        EXPECT_EQ(m_config.Init(directory.prefix().c_str(), style.c_str()), 1);
    }

    LogCapture m_log;
    QueriesEnabled m_enabled;
    CustomConfig m_config;
};

TEST_F(WorkedExample, AStyleIdOfTheLabelTypeAnswersWithTheLabelTypeAndItsTextColour) {
    tagCustomStyle style{};
    ASSERT_EQ(m_config.GetStyleFromConfig(style, firstStyleId(kHighwayLabel), 15), kHighwayLabel);

    tagCustomStyle expected = baseRecord(firstStyleId(kHighwayLabel));
    expected.m_textFillColor = 0xff0000ff;
    expected.m_textFillColorSet = 1;
    expected.m_custom = 1;
    EXPECT_EQ(style, expected);
}

TEST_F(WorkedExample, AStyleIdOfTheTypeItselfAnswersWithThatType) {
    tagCustomStyle style{};
    EXPECT_EQ(m_config.GetStyleFromConfig(style, secondStyleId(kHighway), 15), kHighway);
}

TEST_F(WorkedExample, OtherLevelsHaveNoCustomStyle) {
    tagCustomStyle style{};
    EXPECT_EQ(m_config.GetStyleFromConfig(style, firstStyleId(kHighwayLabel), 14), -1);
    EXPECT_EQ(style, tagCustomStyle{});
}

TEST_F(WorkedExample, TheRuleRegistersTheLevelKeysOfBothTypes) {
    EXPECT_EQ(m_config.m_usedLevelSlots, 2);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("13:15"), &m_config.m_levelStyleMaps[0]);
    EXPECT_EQ(m_config.m_keyStyleMaps.at("28:15"), &m_config.m_levelStyleMaps[1]);
}

}  // namespace
}  // namespace customstyle_test
