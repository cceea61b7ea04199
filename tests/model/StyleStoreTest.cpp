// Construction, release and destruction of the store, and its log.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <vector>

#include "tests/model/BaseRecords.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RecordingHeap.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVMapPtrToPtr;
using _orvik_vi::CVString;

const int g_switchAtStart = g_zrsdk_custom_style_enable;

bool areEmpty(const CVMapPtrToPtr* begin, const CVMapPtrToPtr* end) {
    return std::all_of(begin, end, [](const CVMapPtrToPtr& map) { return map.GetCount() == 0; });
}

bool hasNoRecord(const CustomConfig& config) {
    return areEmpty(std::begin(config.m_typeStyleMaps), std::end(config.m_typeStyleMaps)) &&
           areEmpty(std::begin(config.m_levelStyleMaps), std::end(config.m_levelStyleMaps));
}

// ---- Birth ----------------------------------------------------------------------------------------------------------

TEST(GlobalSwitch, IsOffAtTheStart) {
    EXPECT_EQ(g_switchAtStart, 0);
}

TEST(NewStore, HoldsTheTwoFeatureTypeTablesAndNothingElse) {
    const CustomConfig config;
    EXPECT_EQ(config.m_featureTypeIds.size(), 73u);
    EXPECT_EQ(config.m_featureTypeNames.size(), 73u);
    EXPECT_TRUE(hasNoRecord(config));
    EXPECT_TRUE(config.m_styleEffectLevels.empty());
    EXPECT_TRUE(config.m_keyStyleMaps.empty());
}

TEST(NewStore, HasItsNumbersAtZero) {
    // Built over bytes that are not 0, so that a member left alone shows.
    alignas(CustomConfig) static unsigned char memory[sizeof(CustomConfig)];
    std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xAA));
    CustomConfig* config = new (memory) CustomConfig;
    EXPECT_EQ(config->m_usedLevelSlots, 0);
    EXPECT_EQ(config->m_gridColor, 0u);
    EXPECT_EQ(config->m_gridColorSet, 0);
    EXPECT_EQ(config->m_allIconsHidden, 0);
    std::destroy_at(config);
}

TEST(NewStore, AnswersEveryQueryWithNone) {
    const CustomConfig config;
    tagCustomStyle style = fullRecord(1);
    std::uint64_t colour = 5;
    EXPECT_EQ(config.GetStyleFromConfig(style, 1, 15), -1);
    EXPECT_EQ(config.IsCustomizedIconVisible(1, 15), 0);
    EXPECT_EQ(config.IsCustomBackRegionEnable(colour, 15), 0);
    EXPECT_EQ(config.IsCustomGridBackRegionEnable(colour, 15), 0);
    EXPECT_EQ(style, fullRecord(1));
    EXPECT_EQ(colour, 5u);
}

TEST(NewStore, TakesAndFreesNoBlockOfTheEnginesHeap) {
    const RecordingHeap heap;
    { const CustomConfig config; }
    EXPECT_TRUE(heap.requests().empty());
    EXPECT_TRUE(heap.released().empty());
}

// ---- Records --------------------------------------------------------------------------------------------------------

const std::initializer_list<RuleBuilder> kThreeSlots = {rule("highway", "geometry.fill").color("#112233"),
                                                        rule("highway", "geometry.fill").weight("7").level("15"),
                                                        rule("water", "geometry.fill").color("#445566")};

TEST(StoredRecords, AreOneElementArraysFromTheEnginesHeap) {
    const MemoryAccounts accounts;
    const RecordingHeap heap;
    const auto config = loadedWith(kThreeSlots);
    EXPECT_EQ(accounts.blocks(), 144 + 6);
    // 120 bytes, or 112 where 64-bit fields are aligned to 4 bytes.
    constexpr std::ptrdiff_t kCountAndRecord = sizeof(std::uint64_t) + sizeof(tagCustomStyle);
    EXPECT_EQ(accounts.bytes(), (144 + 6) * kCountAndRecord);
    for (const HeapRequest& request : heap.requests()) {
        ASSERT_EQ(request.origin, "../../../engine/dev/inc/vi/vos/VTempl");
        ASSERT_EQ(request.line, 83);
    }
}

TEST(StoredRecords, OfTheMappingAreZeroButForTheirId) {
    const RecordingHeap heap;
    const auto config = loadedWith({});
    void* stored = nullptr;
    ASSERT_TRUE(config->m_typeStyleMaps[13].Lookup(recordKey(1130), stored));
    EXPECT_EQ(*static_cast<const tagCustomStyle*>(stored), baseRecord(1130));
}

TEST(StoredRecords, AreEachFreedOnceByTheDestructor) {
    const RecordingHeap heap;
    { const auto config = loadedWith(kThreeSlots); }
    std::vector<void*> taken;
    for (const HeapRequest& request : heap.requests()) taken.push_back(request.block);
    std::vector<void*> freed = heap.released();
    std::ranges::sort(taken);
    std::ranges::sort(freed);
    EXPECT_EQ(taken.size(), 150u);
    EXPECT_EQ(freed, taken);
}

// ---- Release --------------------------------------------------------------------------------------------------------

class ReleasedStore : public testing::Test {
protected:
    ReleasedStore() {
        m_config->SetGridColorStyle(0xff112233);
        m_config->m_allIconsHidden = 1;
        m_config->ReleaseCustomRes();
    }

    MemoryAccounts m_accounts;
    std::unique_ptr<CustomConfig> m_config = loadedWith(kThreeSlots);
};

TEST_F(ReleasedStore, HasFreedEveryRecord) {
    EXPECT_EQ(m_accounts.blocks(), 0);
    EXPECT_EQ(m_accounts.bytes(), 0);
    EXPECT_TRUE(hasNoRecord(*m_config));
}

TEST_F(ReleasedStore, HasForgottenItsSlots) {
    EXPECT_TRUE(m_config->m_keyStyleMaps.empty());
}

TEST_F(ReleasedStore, KeepsAllElse) {
    EXPECT_EQ(m_config->m_styleEffectLevels.size(), 3u);
    EXPECT_EQ(m_config->m_usedLevelSlots, 3);
    EXPECT_EQ(m_config->m_gridColor, 0xff112233u);
    EXPECT_EQ(m_config->m_gridColorSet, 1);
    EXPECT_EQ(m_config->m_allIconsHidden, 1);
    EXPECT_EQ(m_config->m_featureTypeIds.size(), 73u);
    EXPECT_EQ(m_config->m_featureTypeNames.size(), 73u);
}

TEST_F(ReleasedStore, HasNoStyleToAnswerWith) {
    const QueriesEnabled enabled;
    tagCustomStyle style{};
    EXPECT_EQ(m_config->GetStyleFromConfig(style, 1130, 15), -1);
}

TEST_F(ReleasedStore, CanBeReleasedAgain) {
    m_config->ReleaseCustomRes();
    m_config.reset();
    EXPECT_EQ(m_accounts.blocks(), 0);
}

TEST(Release, ReachesEverySlotAndEveryTypeButAll) {
    const MemoryAccounts accounts;
    CustomConfig config;
    tagCustomStyle ofAll{};
    config.m_typeStyleMaps[72][recordKey(1)] = &ofAll;
    config.m_levelStyleMaps[1240][recordKey(1)] = _orvik_vi::VNewArray<tagCustomStyle>(1);
    addBaseRecord(config, 0, 1);
    addBaseRecord(config, 71, 1);
    config.ReleaseCustomRes();
    EXPECT_EQ(accounts.blocks(), 0);
    EXPECT_EQ(config.m_typeStyleMaps[72].GetCount(), 1);
}

TEST(Release, PassesOverAbsentRecords) {
    CustomConfig config;
    config.m_typeStyleMaps[13][recordKey(1)] = nullptr;
    config.m_levelStyleMaps[0][recordKey(1)] = nullptr;
    config.ReleaseCustomRes();
    EXPECT_TRUE(hasNoRecord(config));
}

// What a store looked like at each release of a block, oldest first.
struct Glimpse {
    void* block;
    bool hasKeys;
    int recordsInSlots;
    int baseRecords;
};

const CustomConfig* g_released = nullptr;
std::vector<Glimpse> g_glimpses;

int countOf(const CVMapPtrToPtr* begin, const CVMapPtrToPtr* end) {
    return std::accumulate(begin, end, 0, [](int sum, const CVMapPtrToPtr& map) { return sum + map.GetCount(); });
}

void releaseAndLook(void* block) {
    g_glimpses.push_back({block, !g_released->m_keyStyleMaps.empty(),
                          countOf(std::begin(g_released->m_levelStyleMaps), std::end(g_released->m_levelStyleMaps)),
                          countOf(std::begin(g_released->m_typeStyleMaps), std::end(g_released->m_typeStyleMaps))});
    std::free(block);
}

void* allocateFor(std::size_t size, const char*, int) {
    return std::malloc(size);
}

class ReleaseOrder : public testing::Test {
protected:
    ReleaseOrder() {
        _orvik_vi::CVMem::SetHostAllocator(allocateFor, releaseAndLook);
        g_released = &m_config;
        g_glimpses.clear();
    }
    ~ReleaseOrder() override {
        m_config.ReleaseCustomRes();
        _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr);
    }

    // The blocks of the records, each in the order in which it is to be given back.
    static void expectReleased(const std::vector<const tagCustomStyle*>& records) {
        ASSERT_EQ(g_glimpses.size(), records.size());
        const auto offsetOf = [&](std::size_t i) {
            return reinterpret_cast<const char*>(records[i]) - static_cast<const char*>(g_glimpses[i].block);
        };
        for (std::size_t i = 1; i < records.size(); ++i) EXPECT_EQ(offsetOf(i), offsetOf(0)) << i;
    }

    CustomConfig m_config;
};

TEST_F(ReleaseOrder, IsSlotsThenTypesEachFromTheFirstAndItsRecordsFromTheOldest) {
    for (const int type : {71, 13, 0}) {
        for (const int styleId : {9, 4}) addBaseRecord(m_config, type, styleId);
    }
    m_config.SetTypeColor(71, "fill", 1, 1, 0);
    m_config.SetTypeColor(0, "fill", 1, 0, 9);
    std::vector<const tagCustomStyle*> expected;
    for (const char* key : {"71", "0:9"}) {
        for (const int styleId : {9, 4}) expected.push_back(recordAt(m_config, key, styleId));
    }
    for (const int type : {0, 13, 71}) {
        for (const int styleId : {9, 4}) {
            void* record = nullptr;
            m_config.m_typeStyleMaps[type].Lookup(recordKey(styleId), record);
            expected.push_back(static_cast<const tagCustomStyle*>(record));
        }
    }
    m_config.ReleaseCustomRes();
    expectReleased(expected);
}

TEST_F(ReleaseOrder, ForgetsTheKeysFirstAndEmptiesEachMapBeforeTheNext) {
    for (const int type : {13, 14}) addBaseRecord(m_config, type, 7);
    for (const int type : {13, 14}) m_config.SetTypeColor(type, "fill", 1, 1, 0);
    m_config.ReleaseCustomRes();
    ASSERT_EQ(g_glimpses.size(), 4U);
    const int recordsInSlots[] = {2, 1, 0, 0};
    const int baseRecords[] = {2, 2, 2, 1};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_FALSE(g_glimpses[i].hasKeys);
        EXPECT_EQ(g_glimpses[i].recordsInSlots, recordsInSlots[i]) << i;
        EXPECT_EQ(g_glimpses[i].baseRecords, baseRecords[i]) << i;
    }
}

// ---- Log ------------------------------------------------------------------------------------------------------------

class StoreLog : public testing::Test {
protected:
    LogCapture m_log;
    CustomConfig m_config;
};

TEST_F(StoreLog, PutsItsPrefixInFrontOfAMessage) {
    m_config.CustomMapPrintLog("x");
    EXPECT_EQ(m_log.take(), std::vector<std::string>{"ZRX Custom Map: x"});
}

TEST_F(StoreLog, LogsAtPriority5) {
    m_config.CustomMapPrintLog("x");
    m_log.take();
    ASSERT_EQ(m_log.priorities().size(), 1u);
    EXPECT_EQ(static_cast<int>(m_log.priorities()[0]), 5);
}

TEST_F(StoreLog, DropsEmptyMessages) {
    m_config.CustomMapPrintLog("");
    m_config.CustomMapPrintLog(CVString());
    EXPECT_EQ(m_log.take(), std::vector<std::string>{});
}

TEST_F(StoreLog, TakesAMessageAsItStands) {
    m_config.CustomMapPrintLog("100% of %s and %d%n");
    m_config.CustomMapPrintLog(" \xC3\xA9 ");
    EXPECT_EQ(m_log.take(),
              (std::vector<std::string>{"ZRX Custom Map: 100% of %s and %d%n", "ZRX Custom Map:  \xC3\xA9 "}));
}

}  // namespace
}  // namespace customstyle_test
