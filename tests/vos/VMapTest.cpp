// CVMapPtrToPtr: insertion, lookup, order and growth.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/CaseName.h"
#include "vi/vos/VMap.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVMapPtrToPtr;

void* pointer(std::uintptr_t number) {
    return reinterpret_cast<void*>(number);
}

std::uintptr_t number(void* value) {
    return reinterpret_cast<std::uintptr_t>(value);
}

using Pairs = std::vector<std::pair<std::uintptr_t, std::uintptr_t>>;

Pairs contentOf(const CVMapPtrToPtr& map) {
    Pairs pairs;
    for (void* position = map.GetStartPosition(); position != nullptr;) {
        void* key = nullptr;
        void* value = nullptr;
        map.GetNextAssoc(position, key, value);
        pairs.emplace_back(number(key), number(value));
    }
    return pairs;
}

/// The value of a key, or 999 when it is absent.
std::uintptr_t valueAt(const CVMapPtrToPtr& map, std::uintptr_t key) {
    void* value = pointer(999);
    map.Lookup(pointer(key), value);
    return number(value);
}

TEST(VMap, IsEmptyAtFirst) {
    const CVMapPtrToPtr map;
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
}

TEST(VMap, LookupInAnEmptyMapLeavesTheValueUntouched) {
    const CVMapPtrToPtr map;
    void* value = pointer(77);
    EXPECT_FALSE(map.Lookup(pointer(1), value));
    EXPECT_EQ(value, pointer(77));
}

TEST(VMap, LookupOfAnAbsentKeyLeavesTheValueUntouched) {
    CVMapPtrToPtr map;
    map[pointer(1)] = pointer(10);
    void* value = pointer(77);
    EXPECT_FALSE(map.Lookup(pointer(2), value));
    EXPECT_EQ(value, pointer(77));
}

TEST(VMap, LookupGivesTheStoredValue) {
    CVMapPtrToPtr map;
    map[pointer(1)] = pointer(10);
    void* value = nullptr;
    EXPECT_TRUE(map.Lookup(pointer(1), value));
    EXPECT_EQ(value, pointer(10));
}

TEST(VMap, AnAbsentKeyIsInsertedWithANullValue) {
    CVMapPtrToPtr map;
    EXPECT_EQ(map[pointer(5)], nullptr);
    EXPECT_EQ(map.GetCount(), 1);
    EXPECT_EQ(valueAt(map, 5), 0u);
}

TEST(VMap, ReadingAKnownKeyThroughTheIndexAddsNothing) {
    CVMapPtrToPtr map;
    map[pointer(5)] = pointer(50);
    EXPECT_EQ(map[pointer(5)], pointer(50));
    EXPECT_EQ(map.GetCount(), 1);
}

TEST(VMap, NullIsAKeyLikeAnyOther) {
    CVMapPtrToPtr map;
    EXPECT_EQ(valueAt(map, 0), 999u);
    map[nullptr] = pointer(3);
    map[pointer(1)] = pointer(4);
    EXPECT_EQ(contentOf(map), (Pairs{{0, 3}, {1, 4}}));
    EXPECT_EQ(valueAt(map, 0), 3u);
}

TEST(VMap, ANullValueIsFoundAndWalked) {
    CVMapPtrToPtr map;
    map[pointer(1)] = nullptr;
    void* value = pointer(77);
    EXPECT_TRUE(map.Lookup(pointer(1), value));
    EXPECT_EQ(value, nullptr);
    EXPECT_EQ(contentOf(map), (Pairs{{1, 0}}));
}

TEST(VMap, IteratesInInsertionOrder) {
    CVMapPtrToPtr map;
    for (const std::uintptr_t key : {30u, 10u, 20u, 5u, 40u}) map[pointer(key)] = pointer(key + 1);
    EXPECT_EQ(contentOf(map), (Pairs{{30, 31}, {10, 11}, {20, 21}, {5, 6}, {40, 41}}));
}

TEST(VMap, AReplacedKeyKeepsItsPlace) {
    CVMapPtrToPtr map;
    for (const std::uintptr_t key : {3u, 1u, 2u}) map[pointer(key)] = pointer(key);
    map[pointer(1)] = pointer(100);
    EXPECT_EQ(map.GetCount(), 3);
    EXPECT_EQ(contentOf(map), (Pairs{{3, 3}, {1, 100}, {2, 2}}));
}

TEST(VMap, KeysDifferInTheirUpperHalfToo) {
    CVMapPtrToPtr map;
    const std::uintptr_t extended = static_cast<std::uintptr_t>(std::intptr_t{-5});
    map[pointer(extended)] = pointer(1);
    EXPECT_EQ(valueAt(map, extended), 1u);
    EXPECT_EQ(valueAt(map, 0xFFFFFFFBu), sizeof(void*) == 4 ? 1u : 999u);
}

// ---- Growth ---------------------------------------------------------------------------------------------------------

struct KeyPattern {
    const char* name;
    std::uintptr_t first;
    std::uintptr_t step;
};

class VMapKeys : public testing::TestWithParam<KeyPattern> {
protected:
    static constexpr std::uintptr_t kCount = 5000;

    VMapKeys() {
        for (std::uintptr_t i = 0; i < kCount; ++i) m_map[pointer(key(i))] = pointer(i + 1);
    }

    static std::uintptr_t key(std::uintptr_t i) { return GetParam().first + i * GetParam().step; }

    CVMapPtrToPtr m_map;
};

TEST_P(VMapKeys, AreAllFoundAgain) {
    EXPECT_EQ(m_map.GetCount(), 5000);
    for (std::uintptr_t i = 0; i < kCount; ++i) ASSERT_EQ(valueAt(m_map, key(i)), i + 1);
}

TEST_P(VMapKeys, StayInInsertionOrder) {
    std::uintptr_t i = 0;
    for (const auto& [foundKey, value] : contentOf(m_map)) {
        ASSERT_EQ(foundKey, key(i));
        ASSERT_EQ(value, ++i);
    }
    EXPECT_EQ(i, kCount);
}

TEST_P(VMapKeys, DoNotHideAbsentOnes) {
    EXPECT_EQ(valueAt(m_map, key(kCount)), 999u);
    EXPECT_EQ(valueAt(m_map, key(2 * kCount)), 999u);
}

// Steps of large powers of two put many keys into the same cells of a table that looks at some of the bits only.
INSTANTIATE_TEST_SUITE_P(VMap, VMapKeys,
                         testing::Values(KeyPattern{"Neighbours", 1, 1}, KeyPattern{"Pointers", 0x10000, 112},
                                         KeyPattern{"EqualInTheLower16Bits", 7, 0x10000},
                                         KeyPattern{"Descending", 0x100000, ~std::uintptr_t{0}},
                                         KeyPattern{"FromTheTop", ~std::uintptr_t{0} - 12000, 1}),
                         caseName);

TEST(VMap, KeysThatDifferInTheUpperBitsOnlyAreKeptApart) {
    constexpr unsigned kShift = 8 * sizeof(void*) - 12;
    CVMapPtrToPtr map;
    for (std::uintptr_t i = 0; i < 1000; ++i) map[pointer(i << kShift)] = pointer(i + 1);
    for (std::uintptr_t i = 0; i < 1000; ++i) ASSERT_EQ(valueAt(map, i << kShift), i + 1);
    EXPECT_EQ(map.GetCount(), 1000);
}

// ---- Block sizes ----------------------------------------------------------------------------------------------------

class VMapBlockSize : public testing::TestWithParam<int> {};

TEST_P(VMapBlockSize, HoldsAnyNumberOfKeys) {
    CVMapPtrToPtr map(GetParam());
    for (std::uintptr_t key = 1; key <= 100; ++key) map[pointer(key)] = pointer(2 * key);
    EXPECT_EQ(map.GetCount(), 100);
    for (std::uintptr_t key = 1; key <= 100; ++key) ASSERT_EQ(valueAt(map, key), 2 * key);
}

INSTANTIATE_TEST_SUITE_P(VMap, VMapBlockSize,
                         testing::Values(1, 2, 3, 7, 10, 33, 100, 1000, 0, -1, std::numeric_limits<int>::min()));

// ---- RemoveAll ------------------------------------------------------------------------------------------------------

TEST(VMap, RemoveAllForgetsEveryEntry) {
    CVMapPtrToPtr map;
    for (std::uintptr_t key = 1; key <= 50; ++key) map[pointer(key)] = pointer(key);
    map.RemoveAll();
    EXPECT_EQ(map.GetCount(), 0);
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    EXPECT_EQ(valueAt(map, 1), 999u);
}

TEST(VMap, RemoveAllOfAnEmptyMapDoesNothing) {
    CVMapPtrToPtr map;
    map.RemoveAll();
    map.RemoveAll();
    EXPECT_EQ(map.GetCount(), 0);
}

TEST(VMap, CanBeFilledAgainAfterRemoveAll) {
    CVMapPtrToPtr map(2);
    for (std::uintptr_t key = 1; key <= 50; ++key) map[pointer(key)] = pointer(key);
    map.RemoveAll();
    map[pointer(9)] = pointer(90);
    map[pointer(8)] = pointer(80);
    EXPECT_EQ(contentOf(map), (Pairs{{9, 90}, {8, 80}}));
}

}  // namespace
}  // namespace customstyle_test
