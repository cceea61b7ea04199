// Whatever the files hold, the store keeps its order and the answers agree with it.
#include <gtest/gtest.h>

#include "customstyle/StoredRecords.h"
#include "tests/component/StoreInvariants.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RandomFiles.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;

// ---- Random files ---------------------------------------------------------------------------------------------------

class RandomRules : public testing::TestWithParam<unsigned> {
protected:
    RandomRules() { m_config.ParseMappingConfig(parsed(m_files.mapping()).get()); }

    void apply(int count) {
        std::string json = m_files.rule();
        for (int i = 1; i < count; ++i) json += "," + m_files.rule();
        EXPECT_EQ(m_config.ParseCustomConfig(parsed("[" + json + "]").get()), 1);
        m_log.take();
    }

    RandomFiles m_files{GetParam()};
    LogCapture m_log;
    CustomConfig m_config;
};

TEST_P(RandomRules, LeaveASoundStore) {
    for (int part = 0; part < 10; ++part) {
        const Slots before = slotsOf(m_config);
        apply(20);
        expectGrown(m_config, before);
        expectSound(m_config);
        expectEffectsAgree(m_config);
        expectBaseUntouched(m_config);
    }
}

TEST_P(RandomRules, AreAnsweredFromTheStore) {
    apply(150);
    const QueriesEnabled enabled;
    for (int i = 0; i < 300; ++i) expectAnswersAgree(m_config, m_files.below(65) - 5, m_files.below(24) + 1);
}

TEST_P(RandomRules, AreNotAnsweredWhileTheSwitchIsOff) {
    apply(150);
    m_config.SetGridColorStyle(5);
    tagCustomStyle style{};
    std::uint64_t colour = 77;
    for (unsigned styleId = 0; styleId < 60; ++styleId) {
        EXPECT_EQ(m_config.GetStyleFromConfig(style, styleId, 12), -1);
        EXPECT_EQ(m_config.IsCustomizedIconVisible(styleId, 12), 0);
    }
    EXPECT_EQ(m_config.IsCustomBackRegionEnable(colour, 12), 0);
    EXPECT_EQ(m_config.IsCustomGridBackRegionEnable(colour, 12), 0);
    EXPECT_EQ(colour, 77U);
}

TEST_P(RandomRules, GiveTheSameStoreAtOnceAndOneByOne) {
    CustomConfig other;
    RandomFiles same(GetParam());
    other.ParseMappingConfig(parsed(same.mapping()).get());
    apply(100);
    for (int i = 0; i < 100; ++i) other.ParseCustomConfig(parsed("[" + same.rule() + "]").get());
    m_log.take();
    ASSERT_EQ(other.m_usedLevelSlots, m_config.m_usedLevelSlots);
    for (const auto& slot : m_config.m_keyStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(*slot.second)) {
            EXPECT_EQ(*recordAt(other, slot.first, entry.id()), *entry.record) << slot.first;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Property, RandomRules, testing::Range(1U, 26U));

TEST(Property, TheMemoryOfRandomRulesIsGivenBack) {
    LogCapture log;
    RandomFiles files(7);
    const MemoryAccounts accounts;
    {
        CustomConfig config;
        config.ParseMappingConfig(parsed(testMapping()).get());
        for (int i = 0; i < 500; ++i) config.ParseCustomConfig(parsed("[" + files.rule() + "]").get());
    }
    log.take();
    EXPECT_EQ(accounts.blocks(), 0);
}

// ---- More keys than slots -------------------------------------------------------------------------------------------

/// A faultless style that uses every key there is: 19 for each of the 73 types.
std::string everyKeyOnce() {
    const CustomConfig catalogue;
    std::string json;
    for (int type = 0; type <= 72; ++type) {
        const RuleBuilder forType = rule(catalogue.GetFeatureTypeName(type), "geometry").color("#112233");
        json += (json.empty() ? "" : ",") + forType.json();
        for (int level = 4; level <= 21; ++level)
            json += "," + RuleBuilder(forType).level(std::to_string(level)).json();
    }
    return "[" + json + "]";
}

TEST(FullStore, RefusesFurtherKeysInSilence) {
    const LogCapture silent;
    const auto config = loadedWith({});
    EXPECT_EQ(config->ParseCustomConfig(parsed(everyKeyOnce()).get()), 1);
    EXPECT_EQ(config->m_usedLevelSlots, 1241);
    expectSound(*config);
    expectEffectsAgree(*config);
    // The types 0 to 64 take 1,235 slots, and the next type gets six.
    EXPECT_TRUE(config->m_keyStyleMaps.contains("64:21"));
    EXPECT_TRUE(config->m_keyStyleMaps.contains("65:8"));
    EXPECT_FALSE(config->m_keyStyleMaps.contains("65:9"));
    EXPECT_FALSE(config->m_keyStyleMaps.contains("66"));
}

TEST(FullStore, StillChangesTheKeysThatItHas) {
    const auto config = loadedWith({});
    config->ParseCustomConfig(parsed(everyKeyOnce()).get());
    config->ParseCustomConfig(parsed(styleOf({rule("highway", "geometry").color("#445566").level("9")})).get());
    EXPECT_EQ(firstRecordAt(*config, "13:9").m_fillColor, 0xff665544U);
}

TEST(FullStore, IsLeftSoundByRandomRules) {
    LogCapture log;
    RandomFiles files(3);
    CustomConfig config;
    config.ParseMappingConfig(parsed(files.mapping()).get());
    config.ParseCustomConfig(parsed(everyKeyOnce()).get());
    for (int i = 0; i < 1000; ++i) config.ParseCustomConfig(parsed("[" + files.rule() + "]").get());
    log.take();
    expectSound(config);
    expectEffectsAgree(config);
    expectBaseUntouched(config);
    const QueriesEnabled enabled;
    for (int i = 0; i < 300; ++i) expectAnswersAgree(config, files.below(60), files.below(24) + 1);
}

}  // namespace
}  // namespace customstyle_test
