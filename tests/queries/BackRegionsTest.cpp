// The custom colours of the land and grid backgrounds.
#include <gtest/gtest.h>

#include <limits>

#include "tests/queries/QueryStore.h"
#include "tests/support/LogCapture.h"

namespace customstyle_test {
namespace {

constexpr std::uint64_t kUntouched = 0x1234567890ABCDEF;

class BackRegion : public testing::Test {
protected:
    /// The colour of the land background, or kUntouched where there is none.
    std::uint64_t land(int level) const {
        std::uint64_t colour = kUntouched;
        const int answer = m_store.IsCustomBackRegionEnable(colour, level);
        EXPECT_EQ(answer, colour == kUntouched ? 0 : 1);
        return colour;
    }

    /// The colour of the grid, or kUntouched where there is none.
    std::uint64_t grid(int level) const {
        std::uint64_t colour = kUntouched;
        const int answer = m_store.IsCustomGridBackRegionEnable(colour, level);
        EXPECT_EQ(answer, colour == kUntouched ? 0 : 1);
        return colour;
    }

    LogCapture m_log;  // objects to any line: questions log nothing
    QueriesEnabled m_enabled;
    QueryStore m_store;
};

// ---- Land -----------------------------------------------------------------------------------------------------------

TEST_F(BackRegion, TheLandHasNoColourAtFirst) {
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, TheLandHasNoColourWhileTheSwitchIsOff) {
    m_store.add("0", 7, 100);
    g_zrsdk_custom_style_enable = 0;
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, TheLandHasTheFillColourOfItsRecord) {
    m_store.add("0", 7) = fullRecord(7);
    EXPECT_EQ(land(15), fullRecord(7).m_fillColor);
}

TEST_F(BackRegion, AllBitsOfTheColourAreHandedOut) {
    m_store.add("0", 7, 0xFEDCBA9876543210);
    EXPECT_EQ(land(15), 0xFEDCBA9876543210);
}

TEST_F(BackRegion, TheFlagOfTheFillColourDoesNotMatter) {
    m_store.add("0", 7, 100).m_fillColorSet = 0;
    EXPECT_EQ(land(15), 100u);
}

TEST_F(BackRegion, AnyMarkButZeroCounts) {
    m_store.add("0", 7, 100).m_custom = -1;
    EXPECT_EQ(land(15), 100u);
}

TEST_F(BackRegion, TheFirstRecordSpeaksForTheLand) {
    m_store.add("0", 30, 130);
    m_store.add("0", 10, 110);
    EXPECT_EQ(land(15), 130u);
}

TEST_F(BackRegion, AnUnmarkedFirstRecordMeansNoColour) {
    m_store.add("0", 30, 130).m_custom = 0;
    m_store.add("0", 10, 110);
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, AnAbsentFirstRecordMeansNoColour) {
    m_store.slot("0")[recordKey(30)] = nullptr;
    m_store.add("0", 10, 110);
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, ALandWithoutRecordsHasNoColour) {
    m_store.slot("0");
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, AKeyOfTheLandWithoutASlotMeansNoColour) {
    m_store.m_styleEffectLevels["0"] = 1;
    EXPECT_EQ(land(15), kUntouched);
    m_store.m_keyStyleMaps["0"] = nullptr;
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, AColourOfTheLandForAllLevelsHoldsAtAnyLevel) {
    m_store.add("0", 7, 100);
    for (const int level : {4, 15, 21, 0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(land(level), 100u) << level;
}

TEST_F(BackRegion, AColourOfTheLandForOneLevelComesFirstThereAndOnlyThere) {
    m_store.add("0", 7, 100);
    m_store.add("0:10", 7, 110);
    EXPECT_EQ(land(10), 110u);
    EXPECT_EQ(land(9), 100u);
    EXPECT_EQ(land(11), 100u);
    EXPECT_EQ(land(1), 100u);
}

TEST_F(BackRegion, ALevelWithoutACustomisedRecordShutsOutAllLevels) {
    m_store.add("0", 7, 100);
    m_store.slot("0:10");
    m_store.add("0:11", 7, 111).m_custom = 0;
    EXPECT_EQ(land(10), kUntouched);
    EXPECT_EQ(land(11), kUntouched);
}

TEST_F(BackRegion, OtherTypesDoNotColourTheLand) {
    for (const char* key : {"1", "4", "45", "53", "71", "72", "10:15"}) m_store.add(key, 7, 100);
    EXPECT_EQ(land(15), kUntouched);
}

TEST_F(BackRegion, AKeyOfTheLandWithTheWrongMarkIsNotInEffect) {
    m_store.add("0", 7, 100);
    m_store.add("0:10", 7, 110);
    m_store.m_styleEffectLevels["0:10"] = 1;
    EXPECT_EQ(land(10), 100u);
    m_store.m_styleEffectLevels["0"] = 2;
    EXPECT_EQ(land(10), kUntouched);
}

// ---- Grid -----------------------------------------------------------------------------------------------------------

TEST_F(BackRegion, TheGridHasNoColourAtFirst) {
    EXPECT_EQ(grid(15), kUntouched);
}

TEST_F(BackRegion, TheGridHasNoColourUnlessItIsMarkedAsSet) {
    m_store.m_gridColor = 100;
    EXPECT_EQ(grid(15), kUntouched);
}

TEST_F(BackRegion, TheGridHasItsColourAtAnyLevel) {
    m_store.SetGridColorStyle(0xFEDCBA9876543210);
    for (const int level : {4, 15, 21, 0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(grid(level), 0xFEDCBA9876543210) << level;
}

TEST_F(BackRegion, TheLastColourOfTheGridHolds) {
    m_store.SetGridColorStyle(100);
    m_store.SetGridColorStyle(0);
    EXPECT_EQ(grid(15), 0u);
}

TEST_F(BackRegion, AnyMarkOfTheGridButZeroCounts) {
    m_store.m_gridColor = 100;
    m_store.m_gridColorSet = -1;
    EXPECT_EQ(grid(15), 100u);
}

TEST_F(BackRegion, TheGridHasNoColourWhileTheSwitchIsOff) {
    m_store.SetGridColorStyle(100);
    g_zrsdk_custom_style_enable = 0;
    EXPECT_EQ(grid(15), kUntouched);
}

TEST_F(BackRegion, RecordsOfTheGridTypeDoNotColourTheGrid) {
    m_store.add("71", 7, 100);
    EXPECT_EQ(grid(15), kUntouched);
}

TEST_F(BackRegion, LandAndGridAreTwoThings) {
    m_store.add("0", 7, 100);
    m_store.SetGridColorStyle(200);
    EXPECT_EQ(land(15), 100u);
    EXPECT_EQ(grid(15), 200u);
}

// ---- Stores filled by rules -----------------------------------------------------------------------------------------

TEST_F(BackRegion, ARuleOnTheFillOfTheLandColoursIt) {
    const auto config = loadedWith({rule("land", "geometry.fill").color("#11223344")});
    std::uint64_t colour = kUntouched;
    EXPECT_EQ(config->IsCustomBackRegionEnable(colour, 15), 1);
    EXPECT_EQ(colour, 0x44332211u);
}

TEST_F(BackRegion, ARuleOnTheStrokeOfTheLandDoesNot) {
    const auto config = loadedWith({rule("land", "geometry.stroke").color("#112233")});
    std::uint64_t colour = kUntouched;
    EXPECT_EQ(config->IsCustomBackRegionEnable(colour, 15), 0);
    EXPECT_EQ(colour, kUntouched);
}

TEST_F(BackRegion, ARuleOnTheGridColoursTheGrid) {
    const auto config = loadedWith({rule("grid", "geometry.fill").color("#112233")});
    std::uint64_t colour = kUntouched;
    EXPECT_EQ(config->IsCustomGridBackRegionEnable(colour, 15), 1);
    EXPECT_EQ(colour, 0xff332211u);
}

}  // namespace
}  // namespace customstyle_test
