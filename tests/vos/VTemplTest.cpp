// Arrays on the engine's heap.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>

#include "tests/support/FaultyMemory.h"
#include "tests/support/RecordingHeap.h"
#include "vi/vos/VTempl.h"

namespace customstyle_test {
namespace {

using _orvik_vi::VDeleteArray;
using _orvik_vi::VNewArray;

struct Record {
    int id;
    std::uint64_t colour;
    unsigned char weight;
};

/// The 64-bit number in front of an array.
template <typename T>
std::uint64_t countBefore(const T* first) {
    std::uint64_t count = 0;
    std::memcpy(&count, reinterpret_cast<const char*>(first) - 8, 8);
    return count;
}

bool allZero(const void* memory, std::size_t size) {
    const std::span bytes(static_cast<const unsigned char*>(memory), size);
    return std::ranges::all_of(bytes, [](unsigned char byte) { return byte == 0; });
}

class VTempl : public testing::Test {
protected:
    MemoryAccounts m_accounts;
    RecordingHeap m_heap;
};

TEST_F(VTempl, OneElementStandsBehindTheCountOneAndIsZero) {
    Record* record = VNewArray<Record>(1);
    EXPECT_EQ(countBefore(record), 1u);
    EXPECT_TRUE(allZero(record, sizeof(Record)));
    VDeleteArray(record);
}

TEST_F(VTempl, SeveralElementsStandBehindTheirCountAndAreZero) {
    Record* records = VNewArray<Record>(300);
    EXPECT_EQ(countBefore(records), 300u);
    EXPECT_TRUE(allZero(records, 300 * sizeof(Record)));
    VDeleteArray(records);
}

TEST_F(VTempl, TheBlockHoldsTheCountAndTheElementsAndNoMore) {
    std::uint32_t* numbers = VNewArray<std::uint32_t>(5);
    EXPECT_EQ(m_accounts.blocks(), 1);
    EXPECT_EQ(m_accounts.bytes(), 28);
    VDeleteArray(numbers);
}

TEST_F(VTempl, AnEmptyArrayIsABlockWithTheCountZero) {
    Record* none = VNewArray<Record>(0);
    ASSERT_NE(none, nullptr);
    EXPECT_EQ(countBefore(none), 0u);
    EXPECT_EQ(m_accounts.bytes(), 8);
    VDeleteArray(none);
}

TEST_F(VTempl, TheHostSeesTheOriginOfTheEnginesArrays) {
    VDeleteArray(VNewArray<Record>(1));
    ASSERT_EQ(m_heap.requests().size(), 1u);
    EXPECT_EQ(m_heap.requests()[0].origin, "../../../engine/dev/inc/vi/vos/VTempl");
    EXPECT_EQ(m_heap.requests()[0].line, 83);
}

TEST_F(VTempl, DeletingGivesTheWholeBlockBack) {
    VDeleteArray(VNewArray<Record>(3));
    ASSERT_EQ(m_heap.requests().size(), 1u);
    EXPECT_EQ(m_heap.released(), std::vector<void*>{m_heap.requests()[0].block});
    EXPECT_EQ(m_accounts.blocks(), 0);
    EXPECT_EQ(m_accounts.bytes(), 0);
}

TEST_F(VTempl, WithoutMemoryTheAnswerIsNull) {
    m_heap.refuse();
    EXPECT_EQ(VNewArray<Record>(1), nullptr);
    EXPECT_EQ(m_heap.requests().size(), 1u);
    EXPECT_EQ(m_accounts.blocks(), 0);
}

TEST_F(VTempl, AnArrayTooLargeToCountItsBytesIsRefused) {
    EXPECT_EQ(VNewArray<Record>(std::uint64_t{1} << 60), nullptr);
    EXPECT_EQ(VNewArray<char>(~std::uint64_t{0}), nullptr);
}

TEST_F(VTempl, DeletingNullIsIgnored) {
    VDeleteArray<Record>(nullptr);
    EXPECT_TRUE(m_heap.released().empty());
    EXPECT_EQ(m_accounts.blocks(), 0);
}

}  // namespace
}  // namespace customstyle_test
