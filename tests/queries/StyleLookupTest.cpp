// The customised style of a style id at a level: which feature type answers, and with which record.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/queries/QueryStore.h"
#include "tests/support/IntLimits.h"
#include "tests/support/LogCapture.h"

namespace customstyle_test {
namespace {

class StyleLookup : public testing::Test {
protected:
    /// The answer for style id 7; expects the output to be left alone when it is -1.
    int lookup(int level, unsigned styleId = 7) {
        m_style = fullRecord(9999);
        const int answer = m_store.GetStyleFromConfig(m_style, styleId, level);
        if (answer == -1) expectUntouched();
        return answer;
    }
    void expectUntouched() const { EXPECT_EQ(m_style, fullRecord(9999)); }

    /// The fill colour of the record in effect at a level.
    std::uint64_t colour(int level) {
        lookup(level);
        return m_style.m_fillColor;
    }

    LogCapture m_log;  // objects to any line: questions log nothing
    QueriesEnabled m_enabled;
    QueryStore m_store;
    tagCustomStyle m_style{};
};

// ---- The switch -----------------------------------------------------------------------------------------------------

TEST_F(StyleLookup, WithTheSwitchOffNothingIsFound) {
    m_store.add("13", 7);
    m_store.add("4", 8);
    g_zrsdk_custom_style_enable = 0;
    EXPECT_EQ(lookup(15), -1);
    EXPECT_EQ(lookup(15, 8), -1);
}

TEST_F(StyleLookup, AnySwitchValueButZeroIsOn) {
    m_store.add("13", 7);
    for (const int value : {1, 2, -1}) {
        g_zrsdk_custom_style_enable = value;
        EXPECT_EQ(lookup(15), 13) << value;
    }
}

// ---- Levels ---------------------------------------------------------------------------------------------------------

TEST_F(StyleLookup, AnEmptyStoreHasNoStyle) {
    for (int level = 4; level <= 21; ++level) EXPECT_EQ(lookup(level), -1);
}

TEST_F(StyleLookup, TheRecordIsHandedOutWhole) {
    m_store.add("13", 7) = fullRecord(7);
    EXPECT_EQ(lookup(15), 13);
    EXPECT_EQ(m_style, fullRecord(7));
}

TEST_F(StyleLookup, AStyleForAllLevelsAnswersAtAnyLevel) {
    m_store.add("13", 7);
    for (int level = -2; level <= 30; ++level) EXPECT_EQ(lookup(level), 13) << level;
    for (const int level : {1315, kIntMin, kIntMax}) EXPECT_EQ(lookup(level), 13) << level;
}

TEST_F(StyleLookup, AStyleForOneLevelAnswersAtThatLevelOnly) {
    m_store.add("13:15", 7);
    EXPECT_EQ(lookup(15), 13);
    for (const int level : {14, 16, 0, 1, 5, 150, 1315, -15, kIntMin, kIntMax}) EXPECT_EQ(lookup(level), -1) << level;
}

TEST_F(StyleLookup, AtItsLevelAStyleForOneLevelComesBeforeThatForAllLevels) {
    m_store.add("13", 7, 100);
    m_store.add("13:15", 7, 115);
    EXPECT_EQ(colour(15), 115u);
    EXPECT_EQ(colour(14), 100u);
    EXPECT_EQ(colour(16), 100u);
}

TEST_F(StyleLookup, EachLevelHasItsOwnStyle) {
    for (int level = 4; level <= 21; ++level)
        m_store.add("13:" + std::to_string(level), 7, static_cast<std::uint64_t>(level));
    for (int level = 4; level <= 21; ++level) EXPECT_EQ(colour(level), static_cast<std::uint64_t>(level));
}

// ---- A level shuts out the styles for all levels --------------------------------------------------------------------

TEST_F(StyleLookup, ALevelWithoutARecordOfTheStyleIdShutsOutAllLevels) {
    m_store.add("13", 7);
    m_store.add("13:15", 8);
    EXPECT_EQ(lookup(15), -1);
    EXPECT_EQ(lookup(14), 13);
}

TEST_F(StyleLookup, ALevelWithAnUnmarkedRecordShutsOutAllLevels) {
    m_store.add("13", 7);
    m_store.add("13:15", 7).m_custom = 0;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, ALevelWithANullRecordShutsOutAllLevels) {
    m_store.add("13", 7);
    m_store.slot("13:15")[recordKey(7)] = nullptr;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, ALevelWithANullSlotShutsOutAllLevels) {
    m_store.add("13", 7);
    m_store.m_styleEffectLevels["13:15"] = 0;
    m_store.m_keyStyleMaps["13:15"] = nullptr;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, ALevelWithoutASlotShutsOutAllLevels) {
    m_store.add("13", 7);
    m_store.m_styleEffectLevels["13:15"] = 0;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, ATypeShutOutGivesWayToTheNext) {
    m_store.add("13", 7);
    m_store.add("13:15", 7).m_custom = 0;
    m_store.add("20", 7);
    EXPECT_EQ(lookup(15), 20);
}

// ---- Keys that are not in effect ------------------------------------------------------------------------------------

TEST_F(StyleLookup, ASlotWhoseKeyIsNotRegisteredIsNotSeen) {
    m_store.add("13", 7);
    m_store.m_styleEffectLevels.erase("13");
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, ATypeKeyMarkedOtherThan1IsNotInEffect) {
    m_store.add("13", 7);
    for (const int mark : {0, 2, -1}) {
        m_store.m_styleEffectLevels["13"] = mark;
        EXPECT_EQ(lookup(15), -1) << mark;
    }
}

TEST_F(StyleLookup, ALevelKeyMarkedOtherThan0IsNotInEffectAndShutsOutNothing) {
    m_store.add("13", 7, 100);
    m_store.add("13:15", 7, 115);
    for (const int mark : {1, 2, -1}) {
        m_store.m_styleEffectLevels["13:15"] = mark;
        EXPECT_EQ(colour(15), 100u) << mark;
    }
}

// ---- Records --------------------------------------------------------------------------------------------------------

TEST_F(StyleLookup, AnUnmarkedRecordIsNotHandedOut) {
    m_store.add("13", 7).m_custom = 0;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, AnyMarkButZeroCounts) {
    m_store.add("13", 7).m_custom = -3;
    EXPECT_EQ(lookup(15), 13);
}

TEST_F(StyleLookup, ANullRecordIsNone) {
    m_store.slot("13")[recordKey(7)] = nullptr;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, BaseRecordsAreNotConsulted) {
    addBaseRecord(m_store, 13, 7).m_custom = 1;
    EXPECT_EQ(lookup(15), -1);
}

TEST_F(StyleLookup, TheFirstAndTheLastPositiveStyleIdAreFound) {
    m_store.add("13", 0);
    m_store.add("14", kIntMax);
    EXPECT_EQ(lookup(15, 0), 13);
    EXPECT_EQ(lookup(15, 0x7FFFFFFFu), 14);
}

TEST_F(StyleLookup, StyleIdsFrom2To31OnAreNotFoundWherePointersHave64Bits) {
    m_store.add("13", -1);
    m_store.add("14", kIntMin);
    const bool wide = sizeof(void*) == 8;
    EXPECT_EQ(lookup(15, 0xFFFFFFFFu), wide ? -1 : 13);
    EXPECT_EQ(lookup(15, 0x80000000u), wide ? -1 : 14);
}

// ---- The lookup changes nothing -------------------------------------------------------------------------------------

TEST_F(StyleLookup, TheStoreStaysAsItWas) {
    const tagCustomStyle before = m_store.add("13", 7) = fullRecord(7);
    lookup(15);
    lookup(15, 8);
    EXPECT_EQ(*recordAt(m_store, "13", 7), before);
    EXPECT_EQ(m_store.m_styleEffectLevels.size(), 1u);
    EXPECT_EQ(m_store.m_keyStyleMaps.size(), 1u);
    EXPECT_EQ(m_store.m_usedLevelSlots, 1);
}

// ---- Stores filled by rules -----------------------------------------------------------------------------------------

class StyleLookupAfterRules : public testing::Test {
protected:
    tagCustomStyle found(const CustomConfig& config, int level) const {
        tagCustomStyle style{};
        EXPECT_EQ(config.GetStyleFromConfig(style, 1130, level), 13);
        return style;
    }

    LogCapture m_log;
    QueriesEnabled m_enabled;
};

TEST_F(StyleLookupAfterRules, ALevelRuleShowsTheStyleForAllLevelsWithItsOwnAddition) {
    const auto config = loadedWith(
        {rule("highway", "geometry.fill").color("#112233"), rule("highway", "geometry.fill").weight("9").level("15")});
    tagCustomStyle expected = baseRecord(1130);
    expected.m_fillColor = 0xff332211;
    expected.m_fillColorSet = 1;
    expected.m_custom = 1;
    EXPECT_EQ(found(*config, 14), expected);
    expected.m_fillWeight = 9;
    expected.m_fillWeightSet = 1;
    EXPECT_EQ(found(*config, 15), expected);
}

TEST_F(StyleLookupAfterRules, ALevelLeftUnmarkedByAWriterShutsOutItsType) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    config->SetTypeColor(13, "nonsense", 0xff000000, 0, 15);
    tagCustomStyle style{};
    EXPECT_EQ(config->GetStyleFromConfig(style, 1130, 15), -1);
    EXPECT_EQ(config->GetStyleFromConfig(style, 1130, 14), 13);
}

}  // namespace
}  // namespace customstyle_test
