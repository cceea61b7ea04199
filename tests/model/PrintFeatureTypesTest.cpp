// The walk over the base styles that formats them, and prints nothing.
#include <gtest/gtest.h>

#include "tests/model/BaseRecords.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

TEST(PrintFeatureTypes, ChangesNothing) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    const MemoryAccounts accounts;
    const tagCustomStyle before = firstRecordAt(*config, "13");
    config->PrintAllFeartureType();
    EXPECT_EQ(firstRecordAt(*config, "13"), before);
    EXPECT_EQ(config->m_typeStyleMaps[13].GetCount(), 2);
    EXPECT_EQ(config->m_usedLevelSlots, 1);
    EXPECT_EQ(accounts.blocks(), 0);
}

TEST(PrintFeatureTypes, PassesOverAbsentRecords) {
    CustomConfig config;
    _orvik_vi::CVMapPtrToPtr& records = config.m_typeStyleMaps[13];
    records[recordKey(1)] = nullptr;
    records[recordKey(-2)] = nullptr;
    config.PrintAllFeartureType();
    EXPECT_EQ(records.GetCount(), 2);
}

TEST(PrintFeatureTypes, DoesNotVisitAll) {
    CustomConfig config;
    config.m_typeStyleMaps[72][recordKey(1)] = reinterpret_cast<void*>(8);  // reading this record would crash
    config.PrintAllFeartureType();
    EXPECT_EQ(config.m_typeStyleMaps[72].GetCount(), 1);
}

}  // namespace
}  // namespace customstyle_test
