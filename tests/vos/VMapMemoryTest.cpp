// CVMapPtrToPtr: when it takes memory, and what it does without.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <new>

#include "tests/support/CountingNew.h"
#include "vi/vos/VMap.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVMapPtrToPtr;

void* pointer(std::uintptr_t number) {
    return reinterpret_cast<void*>(number);
}

/// Inserts the keys 1 to count, each with itself as its value.
void fill(CVMapPtrToPtr& map, std::uintptr_t count) {
    for (std::uintptr_t key = 1; key <= count; ++key) map[pointer(key)] = pointer(key);
}

TEST(VMapMemory, CallsAreCountedAtAll) {
    const NewCalls calls;
    // Called by name, because a compiler may leave out what new and delete expressions do for nothing.
    ::operator delete(::operator new(1));
    ::operator delete[](::operator new[](100));
    EXPECT_EQ(calls.count(), 2u);
}

TEST(VMapMemory, ConstructingAndDestroyingAllocatesNothing) {
    const NewCalls calls;
    { const CVMapPtrToPtr maps[100]; }
    { const CVMapPtrToPtr large(100'000); }
    EXPECT_EQ(calls.count(), 0u);
}

TEST(VMapMemory, AskingAnEmptyMapAllocatesNothing) {
    CVMapPtrToPtr map;
    void* value = nullptr;
    const NewCalls calls;
    EXPECT_FALSE(map.Lookup(pointer(1), value));
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    EXPECT_EQ(map.GetCount(), 0);
    map.RemoveAll();
    EXPECT_EQ(calls.count(), 0u);
}

TEST(VMapMemory, LookingUpAndWalkingAllocatesNothing) {
    CVMapPtrToPtr map;
    fill(map, 100);
    void* key = nullptr;
    void* value = nullptr;
    const NewCalls calls;
    EXPECT_TRUE(map.Lookup(pointer(100), value));
    EXPECT_FALSE(map.Lookup(pointer(101), value));
    for (void* position = map.GetStartPosition(); position != nullptr;) map.GetNextAssoc(position, key, value);
    map[pointer(50)] = pointer(1);
    EXPECT_EQ(calls.count(), 0u);
}

TEST(VMapMemory, TheFirstInsertionMakesRoomForTheBlockSize) {
    CVMapPtrToPtr map(200);
    fill(map, 1);
    const NewCalls calls;
    fill(map, 200);
    EXPECT_EQ(calls.count(), 0u);
    map[pointer(201)] = nullptr;
    EXPECT_GT(calls.count(), 0u);
}

TEST(VMapMemory, RemoveAllGivesItBackAndTheNextInsertionStartsAnew) {
    CVMapPtrToPtr map(200);
    fill(map, 1000);
    map.RemoveAll();
    const NewCalls first;
    fill(map, 1);
    EXPECT_GT(first.count(), 0u);
    const NewCalls others;
    fill(map, 200);
    EXPECT_EQ(others.count(), 0u);
}

TEST(VMapMemory, GrowthDoublesSoThatItIsRare) {
    CVMapPtrToPtr map(1);
    const NewCalls calls;
    fill(map, 100'000);
    EXPECT_LT(calls.count(), 60u);
}

TEST(VMapMemory, AnInsertionWithoutMemoryThrowsAndLeavesTheMapEmpty) {
    CVMapPtrToPtr map;
    {
        const NoMemory noMemory;
        EXPECT_THROW(map[pointer(1)], std::bad_alloc);
    }
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
}

TEST(VMapMemory, AnyBlockSizeEndsInBadAllocWhereThereIsNoMemory) {
    for (const int blockSize : {1 << 30, (1 << 30) + 1, std::numeric_limits<int>::max()}) {
        CVMapPtrToPtr map(blockSize);
        const NoMemory noMemory;
        EXPECT_THROW(map[pointer(1)], std::bad_alloc);
    }
}

TEST(VMapMemory, AnInsertionWithoutMemoryLeavesTheOtherEntries) {
    CVMapPtrToPtr map(4);
    fill(map, 4);
    {
        const NoMemory noMemory;
        EXPECT_THROW(map[pointer(5)], std::bad_alloc);
    }
    void* value = nullptr;
    EXPECT_EQ(map.GetCount(), 4);
    EXPECT_FALSE(map.Lookup(pointer(5), value));
    EXPECT_TRUE(map.Lookup(pointer(4), value));
    EXPECT_EQ(value, pointer(4));
}

TEST(VMapMemory, InsertionGoesOnOnceThereIsMemoryAgain) {
    CVMapPtrToPtr map(4);
    fill(map, 4);
    {
        const NoMemory noMemory;
        EXPECT_THROW(map[pointer(5)], std::bad_alloc);
    }
    map[pointer(5)] = pointer(50);
    void* value = nullptr;
    EXPECT_TRUE(map.Lookup(pointer(5), value));
    EXPECT_EQ(value, pointer(50));
}

}  // namespace
}  // namespace customstyle_test
