// The walk over the records that a map of the store holds.
#include <gtest/gtest.h>

#include <vector>

#include "customstyle/StoredRecords.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::findRecord;
using _orvik_framework::queriedKey;
using _orvik_framework::storedKey;
using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;

class Walk : public testing::Test {
protected:
    std::vector<int> ids() const {
        std::vector<int> ids;
        for (const StoredRecord& entry : StoredRecords(m_map)) ids.push_back(entry.id());
        return ids;
    }

    CVMapPtrToPtr m_map;
    tagCustomStyle m_record{};
};

TEST_F(Walk, OfAnEmptyMapMeetsNothing) {
    EXPECT_EQ(ids(), std::vector<int>());
    EXPECT_EQ(StoredRecords(m_map).first().key, nullptr);
    EXPECT_EQ(StoredRecords(m_map).first().record, nullptr);
}

TEST_F(Walk, MeetsTheOldestEntryFirst) {
    for (const int id : {30, 10, 20}) m_map[storedKey(id)] = &m_record;
    EXPECT_EQ(ids(), (std::vector{30, 10, 20}));
    EXPECT_EQ(StoredRecords(m_map).first().id(), 30);
}

TEST_F(Walk, CanBeSteppedByHand) {
    for (const int id : {30, 10}) m_map[storedKey(id)] = &m_record;
    const StoredRecords records(m_map);
    auto entry = records.begin();
    EXPECT_EQ(entry->id(), 30);
    // cppcheck-suppress postfixOperator; every iterator has it
    entry++;
    EXPECT_EQ(entry->id(), 10);
}

TEST_F(Walk, HandsOutTheRecordThatTheStoreHolds) {
    m_map[storedKey(7)] = &m_record;
    for (const auto& [key, record] : StoredRecords(m_map)) {
        EXPECT_EQ(key, storedKey(7));
        record->m_fillColor = 5;
    }
    EXPECT_EQ(m_record.m_fillColor, 5u);
}

TEST_F(Walk, MeetsAKeyWithoutARecord) {
    m_map[storedKey(7)];
    EXPECT_EQ(ids(), std::vector{7});
    EXPECT_EQ(StoredRecords(m_map).first().record, nullptr);
}

// The mapping's -2 is the renderer's 4294967294.
TEST_F(Walk, ReadsAKeyWithItsSign) {
    m_map[storedKey(-2)] = &m_record;
    const StoredRecord entry = StoredRecords(m_map).first();
    EXPECT_EQ(entry.number(), -2);
    EXPECT_EQ(entry.id(), -2);
    EXPECT_EQ(entry.styleId(), 4294967294u);
}

TEST_F(Walk, MeetsWhatALookupFinds) {
    for (const int id : {1, 2147483647}) m_map[storedKey(id)] = &m_record;
    for (const StoredRecord& entry : StoredRecords(m_map)) {
        EXPECT_EQ(findRecord(m_map, entry.key), entry.record);
        EXPECT_EQ(findRecord(m_map, queriedKey(entry.styleId())), entry.record);
    }
    EXPECT_EQ(findRecord(m_map, queriedKey(3)), nullptr);
}

}  // namespace
}  // namespace customstyle_test
