// The table from style ids to numbers.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "customstyle/PerfectIdIndex.h"

namespace customstyle_test {
namespace {

using _orvik_framework::PerfectIdIndex;
using Entries = std::vector<PerfectIdIndex::Entry>;

Entries numbered(const std::set<std::uint32_t>& ids) {
    Entries entries;
    for (const std::uint32_t id : ids) entries.push_back({id, static_cast<std::uint32_t>(entries.size() + 1)});
    return entries;
}

void expectEachIdHasItsNumber(const Entries& entries) {
    const PerfectIdIndex index(entries);
    for (const auto& [id, number] : entries) ASSERT_EQ(index.find(id), number) << id;
}

TEST(PerfectIdIndex, WithoutIdsFindsNothing) {
    const PerfectIdIndex index;
    for (const std::uint32_t id : {0u, 1u, 0xffffffffu}) EXPECT_EQ(index.find(id), 0u);
}

TEST(PerfectIdIndex, GivesAnIdThatIsAbsentTheNumber0) {
    const PerfectIdIndex index(numbered({5, 7, 0xffffffff}));
    for (const std::uint32_t id : {0u, 6u, 8u, 0xfffffffeu}) EXPECT_EQ(index.find(id), 0u);
}

TEST(PerfectIdIndex, FindsTheLowestAndTheHighestId) {
    expectEachIdHasItsNumber(numbered({0, 0xffffffff}));
}

TEST(PerfectIdIndex, TakesTenBytesWithOneIdAndWithoutIds) {
    EXPECT_EQ(PerfectIdIndex().bytes(), 10u);
    EXPECT_EQ(PerfectIdIndex(numbered({4711})).bytes(), 10u);
    for (const std::size_t count : {0u, 1u}) EXPECT_EQ(PerfectIdIndex::bytesFor(count), 10u) << count;
}

TEST(PerfectIdIndex, IsMeantToTakeAtMost21BytesAnId) {
    for (std::size_t count = 1; count < 10000; ++count) {
        ASSERT_LE(PerfectIdIndex::bytesFor(count), 21 * count) << count;
        ASSERT_GT(PerfectIdIndex::bytesFor(count), 8 * count) << count;
    }
}

TEST(PerfectIdIndex, OfAnyTwoIdsTakesNoMoreThanIsMeant) {
    for (std::uint32_t id = 1; id <= 1000; ++id) {
        ASSERT_EQ(PerfectIdIndex(numbered({0, id})).bytes(), PerfectIdIndex::bytesFor(2)) << id;
    }
}

// Their first hashes agree in the bits that choose a cell of up to a million.
TEST(PerfectIdIndex, OfIdsThatAreChosenToCollideTakesNoMoreThanIsMeant) {
    for (const std::set<std::uint32_t>& ids : {std::set{150605u, 1522813u}, {386469u, 423690u}, {626526u, 734468u}}) {
        EXPECT_EQ(PerfectIdIndex(numbered(ids)).bytes(), PerfectIdIndex::bytesFor(2)) << *ids.begin();
    }
}

/// The hash that the index tries first.
std::uint64_t firstHash(std::uint32_t id) {
    const std::uint64_t spread = (id + std::uint64_t{1}) * 0x9E3779B97F4A7C15;
    return (spread ^ spread >> 32) * 0xC2B2AE3D27D4EB4F;
}

TEST(PerfectIdIndex, OfManyIdsThatAreChosenToShareABucketTakesNoMoreThanIsMeant) {
    constexpr std::size_t kCount = 300;
    std::set<std::uint32_t> ids;
    for (std::uint32_t id = 0; ids.size() < kCount; ++id) {
        if ((firstHash(id) >> 44) % 128 == 0) ids.insert(id);
    }
    EXPECT_EQ(PerfectIdIndex(numbered(ids)).bytes(), PerfectIdIndex::bytesFor(kCount));
}

// Eight cells are few for seven ids, so that tables sometimes need twice as many.
TEST(PerfectIdIndex, OfSevenIdsTakesAtMost95BytesOnAverage) {
    std::mt19937 random(7);
    std::size_t bytes = 0;
    for (int i = 0; i < 300; ++i) {
        std::set<std::uint32_t> ids;
        while (ids.size() < 7) ids.insert(static_cast<std::uint32_t>(random()));
        bytes += PerfectIdIndex(numbered(ids)).bytes();
    }
    EXPECT_LE(bytes, 300u * 95);
}

class PerfectIdIndexOf : public testing::TestWithParam<std::size_t> {};

TEST_P(PerfectIdIndexOf, NeighbouringIdsFindsEach) {
    Entries entries;
    for (std::uint32_t id = 0; id < GetParam(); ++id) entries.push_back({id, id + 1});
    expectEachIdHasItsNumber(entries);
}

TEST_P(PerfectIdIndexOf, IdsInStrideFindsEach) {
    Entries entries;
    for (std::uint32_t i = 0; i < GetParam(); ++i) entries.push_back({i * 65536, i + 1});
    expectEachIdHasItsNumber(entries);
}

TEST_P(PerfectIdIndexOf, RandomIdsFindsEachAndNoOther) {
    std::mt19937 random(static_cast<unsigned>(GetParam()));
    std::set<std::uint32_t> ids;
    while (ids.size() < GetParam()) ids.insert(static_cast<std::uint32_t>(random()));
    const Entries entries = numbered(ids);
    expectEachIdHasItsNumber(entries);
    const PerfectIdIndex index(entries);
    for (int i = 0; i < 1000; ++i) {
        const auto id = static_cast<std::uint32_t>(random());
        ASSERT_EQ(index.find(id) != 0, ids.contains(id)) << id;
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PerfectIdIndexOf, testing::Values(1, 2, 3, 5, 100, 1023, 20000, 60000));

}  // namespace
}  // namespace customstyle_test
