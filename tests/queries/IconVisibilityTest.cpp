// Whether the icon of a style id is hidden at a level.
#include <gtest/gtest.h>

#include <string>

#include "tests/queries/QueryStore.h"
#include "tests/support/IntLimits.h"
#include "tests/support/LogCapture.h"

namespace customstyle_test {
namespace {

class IconVisibility : public testing::Test {
protected:
    int hidden(int level, unsigned styleId = 7) const { return m_store.IsCustomizedIconVisible(styleId, level); }

    LogCapture m_log;  // objects to any line: questions log nothing
    QueriesEnabled m_enabled;
    QueryStore m_store;
};

// ---- Before anything is looked up -----------------------------------------------------------------------------------

TEST_F(IconVisibility, WithTheSwitchOffEveryIconIsShown) {
    m_store.addIcon("13", 7, 1);
    m_store.addIcon("4", 8, 1);
    m_store.m_allIconsHidden = 1;
    g_zrsdk_custom_style_enable = 0;
    EXPECT_EQ(hidden(15), 0);
    EXPECT_EQ(hidden(15, 8), 0);
}

TEST_F(IconVisibility, AnySwitchValueButZeroIsOn) {
    m_store.addIcon("13", 7, 1);
    g_zrsdk_custom_style_enable = -2;
    EXPECT_EQ(hidden(15), 1);
}

TEST_F(IconVisibility, HidingAllIconsHidesEveryIconAtEveryLevel) {
    m_store.addIcon("13", 7, 0);
    m_store.m_allIconsHidden = 1;
    for (const unsigned styleId : {0u, 7u, 8u, 0xFFFFFFFFu}) EXPECT_EQ(hidden(15, styleId), 1) << styleId;
    for (const int level : {4, 21, 0, kIntMin, kIntMax}) EXPECT_EQ(hidden(level), 1) << level;
}

TEST_F(IconVisibility, HidingAllIconsAnswers1ForAnyMarkButZero) {
    m_store.m_allIconsHidden = -3;
    EXPECT_EQ(hidden(15), 1);
}

// ---- The record of a feature type -----------------------------------------------------------------------------------

TEST_F(IconVisibility, AnUnknownStyleIdIsShown) {
    EXPECT_EQ(hidden(15), 0);
    m_store.addIcon("13", 8, 1);
    EXPECT_EQ(hidden(15), 0);
}

TEST_F(IconVisibility, TheValueOfTheRecordIsTheAnswer) {
    for (const int value : {0, 1, 2, -1}) {
        QueryStore store;
        store.addIcon("13", 7, value);
        EXPECT_EQ(store.IsCustomizedIconVisible(7, 15), value);
    }
}

TEST_F(IconVisibility, AnUnmarkedRecordCountsToo) {
    m_store.addIcon("13", 7, 1);
    recordAt(m_store, "13", 7)->m_custom = 0;
    EXPECT_EQ(hidden(15), 1);
}

TEST_F(IconVisibility, TheLowestTypeDecidesAlsoWhenItShowsTheIcon) {
    m_store.addIcon("13", 7, 1);
    m_store.addIcon("9", 7, 0);
    EXPECT_EQ(hidden(15), 0);
}

TEST_F(IconVisibility, TheLowestTypeDecidesWhenItHidesTheIcon) {
    m_store.addIcon("13", 7, 0);
    m_store.addIcon("9", 7, 1);
    EXPECT_EQ(hidden(15), 1);
}

TEST_F(IconVisibility, AnUnmarkedRecordOfTheLowestTypeDecides) {
    m_store.addIcon("9", 7, 0);
    recordAt(m_store, "9", 7)->m_custom = 0;
    m_store.addIcon("13", 7, 1);
    EXPECT_EQ(hidden(15), 0);
}

TEST_F(IconVisibility, ATypeWithoutARecordGivesWayToTheNext) {
    m_store.slot("9")[recordKey(7)] = nullptr;
    m_store.addIcon("10", 8, 0);
    m_store.addIcon("13", 7, 1);
    EXPECT_EQ(hidden(15), 1);
}

TEST_F(IconVisibility, EveryTypeFrom0To71CanHideAnIcon) {
    for (int featureType = 0; featureType <= 71; ++featureType) {
        QueryStore store;
        store.addIcon(std::to_string(featureType), 7, 1);
        EXPECT_EQ(store.IsCustomizedIconVisible(7, 15), 1) << featureType;
    }
}

TEST_F(IconVisibility, AllIsNeverVisited) {
    m_store.addIcon("72", 7, 1);
    m_store.addIcon("72:15", 7, 1);
    EXPECT_EQ(hidden(15), 0);
}

TEST_F(IconVisibility, BaseRecordsAreNotConsulted) {
    addBaseRecord(m_store, 13, 7).m_iconHidden = 1;
    EXPECT_EQ(hidden(15), 0);
}

TEST_F(IconVisibility, StyleIdsFrom2To31OnAreNotFoundWherePointersHave64Bits) {
    m_store.addIcon("13", -1, 1);
    m_store.addIcon("4", kIntMin, 1);
    const int found = sizeof(void*) == 8 ? 0 : 1;
    EXPECT_EQ(hidden(15, 0xFFFFFFFFu), found);
    EXPECT_EQ(hidden(15, 0x80000000u), found);
}

TEST_F(IconVisibility, TheLastPositiveStyleIdIsFound) {
    m_store.addIcon("13", kIntMax, 1);
    EXPECT_EQ(hidden(15, 0x7FFFFFFFu), 1);
}

// ---- Levels ---------------------------------------------------------------------------------------------------------

TEST_F(IconVisibility, AtItsLevelOnlyTheLevelsOwnRecordsCount) {
    m_store.addIcon("13", 7, 1);
    m_store.addIcon("13:10", 7, 0);
    EXPECT_EQ(hidden(10), 0);
    for (const int level : {4, 9, 11, 21, 0, -10, kIntMin, kIntMax}) EXPECT_EQ(hidden(level), 1) << level;
}

TEST_F(IconVisibility, ALevelWithoutTheStyleIdShutsOutAllLevels) {
    m_store.addIcon("13", 7, 1);
    m_store.slot("13:10");
    EXPECT_EQ(hidden(10), 0);
    EXPECT_EQ(hidden(11), 1);
}

TEST_F(IconVisibility, ALevelWithANullSlotShutsOutAllLevels) {
    m_store.addIcon("13", 7, 1);
    m_store.m_styleEffectLevels["13:10"] = 0;
    m_store.m_keyStyleMaps["13:10"] = nullptr;
    EXPECT_EQ(hidden(10), 0);
}

TEST_F(IconVisibility, ATypeShutOutGivesWayToTheNext) {
    m_store.slot("13:10");
    m_store.addIcon("20", 7, 1);
    EXPECT_EQ(hidden(10), 1);
}

TEST_F(IconVisibility, AKeyWithTheWrongMarkIsNotInEffect) {
    m_store.addIcon("13", 7, 1);
    for (const int mark : {0, 2, -1}) {
        m_store.m_styleEffectLevels["13"] = mark;
        EXPECT_EQ(hidden(15), 0) << mark;
    }
}

// ---- Parents --------------------------------------------------------------------------------------------------------

TEST_F(IconVisibility, AParentDecidesOnlyWhenNoOtherTypeHoldsTheStyleId) {
    m_store.addIcon("4", 7, 1);
    EXPECT_EQ(hidden(15), 1);
    m_store.addIcon("71", 7, 0);
    EXPECT_EQ(hidden(15), 0);
}

TEST_F(IconVisibility, EachParentIsAskedUntilOneHidesTheIcon) {
    m_store.addIcon("4", 7, 0);
    m_store.addIcon("45", 7, 0);
    EXPECT_EQ(hidden(15), 0);
    m_store.addIcon("53", 7, 1);
    EXPECT_EQ(hidden(15), 1);
}

TEST_F(IconVisibility, AParentAnswers1ForAnyValueButZero) {
    for (const char* parent : {"4", "45", "53"}) {
        QueryStore store;
        store.addIcon(parent, 7, -8);
        EXPECT_EQ(store.IsCustomizedIconVisible(7, 15), 1) << parent;
    }
}

class ParentIcon : public testing::TestWithParam<int> {
protected:
    int hidden(int level, unsigned styleId = 7) const {
        return m_store.IsParentFeatureTypeIconCustomizedVisibility(GetParam(), styleId, level);
    }
    std::string key() const { return std::to_string(GetParam()); }

    QueryStore m_store;  // the switch is off in these tests
};

TEST_P(ParentIcon, IsHiddenByARecordOfTheParentWhateverSwitchAndMark) {
    m_store.addIcon(key(), 7, 5);
    recordAt(m_store, key(), 7)->m_custom = 0;
    EXPECT_EQ(hidden(15), 1);
}

TEST_P(ParentIcon, IsShownByARecordThatShowsIt) {
    m_store.addIcon(key(), 7, 0);
    EXPECT_EQ(hidden(15), 0);
}

TEST_P(ParentIcon, IsShownWithoutARecord) {
    EXPECT_EQ(hidden(15), 0);
    m_store.slot(key())[recordKey(7)] = nullptr;
    EXPECT_EQ(hidden(15), 0);
    EXPECT_EQ(hidden(15, 8), 0);
}

TEST_P(ParentIcon, FollowsTheLevelBeforeAllLevels) {
    m_store.addIcon(key(), 7, 1);
    m_store.addIcon(key() + ":10", 7, 0);
    EXPECT_EQ(hidden(10), 0);
    EXPECT_EQ(hidden(11), 1);
}

TEST_P(ParentIcon, IgnoresTheMarkThatHidesAllIcons) {
    m_store.m_allIconsHidden = 1;
    EXPECT_EQ(hidden(15), 0);
}

INSTANTIATE_TEST_SUITE_P(IconVisibility, ParentIcon, testing::Values(4, 45, 53));

TEST(ParentIconOfOtherTypes, IsAlwaysShown) {
    QueryStore store;
    for (int featureType = 0; featureType <= 72; ++featureType) store.addIcon(std::to_string(featureType), 7, 1);
    for (const int featureType : {0, 3, 5, 13, 44, 46, 52, 54, 71, 72, 73, -1, -4, kIntMin, kIntMax})
        EXPECT_EQ(store.IsParentFeatureTypeIconCustomizedVisibility(featureType, 7, 15), 0) << featureType;
}

// ---- Stores filled by rules -----------------------------------------------------------------------------------------

TEST_F(IconVisibility, ARuleOnTheIconsOfAllHidesThemAlsoWithOn) {
    const auto config = loadedWith({rule("all", "labels.icon").visibility("on")});
    EXPECT_EQ(config->IsCustomizedIconVisible(1130, 15), 1);
    EXPECT_EQ(config->IsCustomizedIconVisible(4242, 4), 1);
}

TEST_F(IconVisibility, ARuleOnOneTypeHidesTheIconsOfThatType) {
    const auto config = loadedWith({rule("hotellabel", "labels.icon").visibility("off")});
    EXPECT_EQ(config->IsCustomizedIconVisible(1640, 15), 1);
    EXPECT_EQ(config->IsCustomizedIconVisible(1630, 15), 0);
}

}  // namespace
}  // namespace customstyle_test
