// The renderer asks while it draws: no question may allocate.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "tests/queries/QueryStore.h"
#include "tests/support/CaseName.h"
#include "tests/support/CountingNew.h"
#include "tests/support/FaultyMemory.h"

namespace customstyle_test {
namespace {

struct Question {
    const char* name;
    int (*ask)(const CustomConfig& config, unsigned styleId, int level);
    int hits;  // the answer for style id 7 at level 15
};

int style(const CustomConfig& config, unsigned styleId, int level) {
    tagCustomStyle found;
    return config.GetStyleFromConfig(found, styleId, level);
}

int parentStyle(const CustomConfig& config, unsigned styleId, int level) {
    tagCustomStyle found;
    return config.GetParentFeatureTypeCustomStyle(found, level, styleId);
}

int typeStyle(const CustomConfig& config, unsigned styleId, int level) {
    tagCustomStyle found;
    return config.GetParentFeatureTypeCustomStyle(found, level, 45, styleId);
}

int icon(const CustomConfig& config, unsigned styleId, int level) {
    return config.IsCustomizedIconVisible(styleId, level);
}

int parentIcon(const CustomConfig& config, unsigned styleId, int level) {
    return config.IsParentFeatureTypeIconCustomizedVisibility(45, styleId, level);
}

int land(const CustomConfig& config, unsigned, int level) {
    std::uint64_t colour = 0;
    return config.IsCustomBackRegionEnable(colour, level);
}

int grid(const CustomConfig& config, unsigned, int level) {
    std::uint64_t colour = 0;
    return config.IsCustomGridBackRegionEnable(colour, level);
}

int allLevels(const CustomConfig& config, unsigned, int) {
    return config.IsStyleEffectAtAllLevel("45") + config.IsStyleEffectAtAllLevel("72:-2147483648");
}

int givenLevel(const CustomConfig& config, unsigned, int) {
    return config.IsStyleEffectAtGivenLevel("71:21") + config.IsStyleEffectAtGivenLevel("72:-2147483648");
}

class QueryMemory : public testing::TestWithParam<Question> {
protected:
    QueryMemory() {
        m_store.addIcon("45", 7, 1);
        m_store.addIcon("53:15", 8, 1);
        m_store.addIcon("71:21", 9, 1);
        m_store.add("0", 10, 100);
        m_store.add("13", 11).m_custom = 0;
        m_store.SetGridColorStyle(5);
    }

    /// Every kind of style id and level, found and not found.
    void askAll(const CustomConfig& config) const {
        for (const unsigned styleId : {0u, 7u, 8u, 9u, 10u, 11u, 4242u, 0x80000000u, 0xFFFFFFFFu}) {
            for (int level = -1; level <= 22; ++level) GetParam().ask(config, styleId, level);
            GetParam().ask(config, styleId, std::numeric_limits<int>::min());
            GetParam().ask(config, styleId, std::numeric_limits<int>::max());
        }
    }

    QueryStore m_store;
    QueriesEnabled m_enabled;
};

TEST_P(QueryMemory, HasAnAnswerInThisStore) {
    EXPECT_EQ(GetParam().ask(m_store, 7, 15), GetParam().hits);
}

TEST_P(QueryMemory, IsNotTakenFromTheLanguagesHeap) {
    const NewCalls calls;
    askAll(m_store);
    EXPECT_EQ(calls.count(), 0u);
}

TEST_P(QueryMemory, IsNotTakenFromTheEnginesHeap) {
    const MemoryAccounts accounts;
    const FaultyMemory memory(0);
    askAll(m_store);
    EXPECT_FALSE(memory.hasFailed());
    EXPECT_EQ(accounts.blocks(), 0);
}

TEST_P(QueryMemory, IsNotTakenWhileTheSwitchIsOff) {
    g_zrsdk_custom_style_enable = 0;
    const NewCalls calls;
    askAll(m_store);
    EXPECT_EQ(calls.count(), 0u);
}

TEST_P(QueryMemory, IsNotTakenForAnEmptyStore) {
    const CustomConfig empty;
    const NewCalls calls;
    askAll(empty);
    EXPECT_EQ(calls.count(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Queries, QueryMemory,
                         testing::Values(Question{"Style", style, 45}, Question{"ParentStyle", parentStyle, 45},
                                         Question{"TypeStyle", typeStyle, 45}, Question{"Icon", icon, 1},
                                         Question{"ParentIcon", parentIcon, 1}, Question{"Land", land, 1},
                                         Question{"Grid", grid, 1}, Question{"AllLevels", allLevels, 1},
                                         Question{"GivenLevel", givenLevel, 1}),
                         caseName);

TEST(CountedMemory, SeesTheAllocationsOfLoading) {
    const NewCalls calls;
    QueryStore store;
    store.slot("13:15");
    EXPECT_GT(calls.count(), 0u);
}

}  // namespace
}  // namespace customstyle_test
