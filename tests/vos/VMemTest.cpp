// CVMem: blocks, accounts and the host's own allocator.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

#include "tests/support/FaultyMemory.h"
#include "tests/support/RecordingHeap.h"
#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVMem;

void* allocated(std::size_t size) {
    return CVMem::Allocate(size, "VMemTest", 1);
}

// Before main, and so before any test.
const std::size_t kBlocksAtFirst = CVMem::GetOutstandingBlocks();
const std::size_t kBytesAtFirst = CVMem::GetOutstandingBytes();

TEST(VMem, NothingIsOutstandingAtFirst) {
    EXPECT_EQ(kBlocksAtFirst, 0U);
    EXPECT_EQ(kBytesAtFirst, 0U);
}

TEST(VMem, AllocatingIsCountedUntilTheBlockIsGivenBack) {
    const MemoryAccounts accounts;
    void* small = allocated(10);
    void* large = allocated(3000);
    EXPECT_EQ(accounts.blocks(), 2);
    EXPECT_EQ(accounts.bytes(), 3010);
    CVMem::Deallocate(small);
    EXPECT_EQ(accounts.blocks(), 1);
    EXPECT_EQ(accounts.bytes(), 3000);
    CVMem::Deallocate(large);
    EXPECT_EQ(accounts.blocks(), 0);
    EXPECT_EQ(accounts.bytes(), 0);
}

TEST(VMem, AZeroByteRequestGivesABlockOfItsOwn) {
    const MemoryAccounts accounts;
    void* first = allocated(0);
    void* second = allocated(0);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(accounts.blocks(), 2);
    EXPECT_EQ(accounts.bytes(), 0);
    CVMem::Deallocate(first);
    CVMem::Deallocate(second);
    EXPECT_EQ(accounts.blocks(), 0);
}

TEST(VMem, GivingBackNullIsIgnored) {
    const MemoryAccounts accounts;
    const RecordingHeap heap;
    CVMem::Deallocate(nullptr);
    EXPECT_EQ(accounts.blocks(), 0);
    EXPECT_EQ(accounts.bytes(), 0);
    EXPECT_TRUE(heap.released().empty());
}

TEST(VMem, EveryByteOfABlockCanBeWritten) {
    unsigned char* block = static_cast<unsigned char*>(allocated(1000));
    std::memset(block, 0x5A, 1000);
    EXPECT_EQ(block[0], 0x5A);
    EXPECT_EQ(block[999], 0x5A);
    CVMem::Deallocate(block);
}

TEST(VMem, BlocksAreAlignedForAnyFundamentalType) {
    for (std::size_t size = 0; size < 70; ++size) {
        void* block = allocated(size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0u) << size;
        CVMem::Deallocate(block);
    }
}

TEST(VMem, TheHostAllocatorReceivesOriginAndLine) {
    const RecordingHeap heap;
    void* block = CVMem::Allocate(100, "somewhere/Source.cpp", 4711);
    ASSERT_EQ(heap.requests().size(), 1u);
    EXPECT_GE(heap.requests()[0].size, 100u);
    EXPECT_EQ(heap.requests()[0].origin, "somewhere/Source.cpp");
    EXPECT_EQ(heap.requests()[0].line, 4711);
    CVMem::Deallocate(block);
}

TEST(VMem, TheHostIsAskedForAFewBytesMoreThanTheCaller) {
    const RecordingHeap heap;
    void* block = allocated(100);
    ASSERT_EQ(heap.requests().size(), 1u);
    EXPECT_GT(heap.requests()[0].size, 100u);
    EXPECT_LE(heap.requests()[0].size, 164u);
    CVMem::Deallocate(block);
}

TEST(VMem, TheHostGetsBackTheBlockThatItGave) {
    const RecordingHeap heap;
    CVMem::Deallocate(allocated(100));
    ASSERT_EQ(heap.requests().size(), 1u);
    EXPECT_EQ(heap.released(), std::vector<void*>{heap.requests()[0].block});
}

TEST(VMem, BlocksOfAHostAreAlignedToo) {
    const RecordingHeap heap;
    void* block = allocated(1);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0u);
    CVMem::Deallocate(block);
}

TEST(VMem, AHostWithoutMemoryGivesNullAndCountsNothing) {
    const MemoryAccounts accounts;
    RecordingHeap heap;
    heap.refuse();
    EXPECT_EQ(allocated(100), nullptr);
    EXPECT_EQ(allocated(0), nullptr);
    EXPECT_EQ(heap.requests().size(), 2u);
    EXPECT_EQ(accounts.blocks(), 0);
    EXPECT_EQ(accounts.bytes(), 0);
}

TEST(VMem, TwoNullsBringBackTheBuiltInAllocator) {
    const RecordingHeap heap;
    CVMem::SetHostAllocator(nullptr, nullptr);
    void* block = allocated(100);
    EXPECT_NE(block, nullptr);
    CVMem::Deallocate(block);
    EXPECT_TRUE(heap.requests().empty());
    EXPECT_TRUE(heap.released().empty());
}

TEST(VMem, ANullStandsForTheBuiltInFunctionOfThatKind) {
    static int released = 0;
    CVMem::SetHostAllocator(nullptr, [](void* block) {
        ++released;
        std::free(block);
    });
    CVMem::Deallocate(allocated(100));
    EXPECT_EQ(released, 1);
    static int asked = 0;
    CVMem::SetHostAllocator(
        [](std::size_t size, const char*, int) {
            ++asked;
            return std::malloc(size);
        },
        nullptr);
    CVMem::Deallocate(allocated(100));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(released, 1);
    CVMem::SetHostAllocator(nullptr, nullptr);
}

TEST(VMem, ASizeWithoutRoomForTheAccountsIsRefused) {
    const MemoryAccounts accounts;
    RecordingHeap heap;
    heap.refuse();
    constexpr std::size_t kLargest = std::numeric_limits<std::size_t>::max();
    for (std::size_t below = 0; below < 100; ++below) {
        EXPECT_EQ(allocated(kLargest - below), nullptr) << below;
        // A sum that wrapped around would ask the host for a few bytes only.
        EXPECT_TRUE(heap.requests().empty() || heap.requests().back().size > kLargest - below) << below;
    }
    EXPECT_EQ(accounts.blocks(), 0);
}

TEST(VMem, OneAllocationCanBeMadeToFail) {
    const FaultyMemory memory(1);
    void* first = allocated(1);
    EXPECT_NE(first, nullptr);
    EXPECT_FALSE(memory.hasFailed());
    EXPECT_EQ(allocated(1), nullptr);
    EXPECT_TRUE(memory.hasFailed());
    void* third = allocated(1);
    EXPECT_NE(third, nullptr);
    CVMem::Deallocate(first);
    CVMem::Deallocate(third);
}

}  // namespace
}  // namespace customstyle_test
