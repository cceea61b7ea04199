// The table from style ids to numbers that keeps dense ids in pages: it agrees with a plain map, and takes no more
// memory than a hash table.
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <unordered_map>

#include "customstyle/StyleIdIndex.h"
#include "tests/support/CaseName.h"

namespace customstyle_test {
namespace {

using _orvik_framework::PerfectIdIndex;
using _orvik_framework::StyleIdIndex;
using Entries = std::vector<StyleIdIndex::Entry>;
using IdNumbers = std::vector<std::uint32_t>;

constexpr std::uint32_t kHighestId = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t kBytesOfAPage = 12;

IdNumbers idNumbersFrom(std::uint32_t first, std::size_t count, std::uint32_t stride = 1) {
    IdNumbers ids;
    for (std::size_t i = 0; i < count; ++i) ids.push_back(first + static_cast<std::uint32_t>(i) * stride);
    return ids;
}

IdNumbers joined(std::initializer_list<IdNumbers> parts) {
    IdNumbers all;
    for (const IdNumbers& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

IdNumbers randomIds(std::size_t count, std::uint32_t below) {
    std::mt19937 random(static_cast<unsigned>(count));
    std::map<std::uint32_t, int> ids;
    while (ids.size() < count) ids[std::uniform_int_distribution<std::uint32_t>(0, below - 1)(random)] = 1;
    IdNumbers all;
    for (const auto& [id, unused] : ids) all.push_back(id);
    std::ranges::shuffle(all, random);
    return all;
}

// Clusters of a few ids each, anywhere.
IdNumbers randomClusters(std::size_t clusters, unsigned seed) {
    std::mt19937 random(seed);
    const auto next = [&random] { return static_cast<std::uint32_t>(random()); };
    std::map<std::uint32_t, int> ids;
    for (std::size_t i = 0; i < clusters; ++i) {
        const std::uint32_t first = next() >> next() % 32;
        for (std::uint32_t id = 0, count = next() % 90; id < count; ++id) ids[first + id * (1 + next() % 2)] = 1;
    }
    IdNumbers all;
    for (const auto& [id, unused] : ids) all.push_back(id);
    return all;
}

// A number for each id, none above `highest` and none 0.
Entries numbered(const IdNumbers& ids, std::uint32_t highest) {
    Entries entries;
    for (const std::uint32_t id : ids) {
        entries.push_back({id, 1 + static_cast<std::uint32_t>(entries.size() * 31 % highest)});
    }
    return entries;
}

struct IdsCase {
    const char* name;
    IdNumbers ids;
};

void PrintTo(const IdsCase& each, std::ostream* stream) {
    *stream << each.name;
}

const IdsCase kCases[] = {
    {"NoId", {}},
    {"Zero", {0}},
    {"OneId", {4711}},
    {"TheHighestId", {kHighestId}},
    {"BothEnds", {0, kHighestId}},
    {"BothSidesOf2To31", {0x7ffffffe, 0x7fffffff, 0x80000000, 0x80000001}},
    {"NegativeIds", idNumbersFrom(0u - 500, 500)},
    {"NegativeAndPositiveIds", idNumbersFrom(0u - 200, 400)},
    {"NeighboursOfTheHighest", idNumbersFrom(kHighestId - 99, 100)},
    {"DenseIds", idNumbersFrom(1, 1000)},
    {"DenseIdsFarAway", idNumbersFrom(3000000000, 1000)},
    {"DenseIdsDescending", idNumbersFrom(5000, 1000, kHighestId)},
    {"TwoClustersOnOnePage", joined({idNumbersFrom(1000, 40), idNumbersFrom(1000 + (1u << 20), 60)})},
    {"ClustersOnEveryMillion",
     joined({idNumbersFrom(1000000, 50), idNumbersFrom(2000000, 50), idNumbersFrom(3000000, 50)})},
    {"ClustersWithOutliers", joined({idNumbersFrom(1000, 300), {17, 0x7fffffff, 0x80000000, kHighestId}})},
    {"EverySeventeenth", idNumbersFrom(0, 600, 17)},
    {"EveryThousandth", idNumbersFrom(5, 600, 1000)},
    {"OnePerPage", idNumbersFrom(9, 3000, 65536)},
    {"SameLowerBits", idNumbersFrom(0, 4096, 1u << 20)},
    {"RandomIds", randomIds(2000, kHighestId)},
    {"RandomIdsBelow10000", randomIds(2000, 10000)},
    {"RandomClusters", randomClusters(40, 1)},
    {"ManyRandomClusters", randomClusters(900, 2)},
    {"70000DenseIds", idNumbersFrom(0, 70000)},
    {"70000RandomIdsBelow200000", randomIds(70000, 200000)},
};

class StyleIdIndexOf : public testing::TestWithParam<IdsCase> {
protected:
    static void expectNumbers(const Entries& entries) {
        const StyleIdIndex index(entries);
        std::unordered_map<std::uint32_t, std::uint32_t> expected;
        for (const auto& [id, number] : entries) expected[id] = number;
        const auto expectNumber = [&](std::uint32_t id) {
            const auto found = expected.find(id);
            ASSERT_EQ(index.find(id), found == expected.end() ? 0 : found->second) << id;
        };
        for (const auto& [id, number] : entries) {
            for (const std::uint32_t asked : {id, id - 1, id + 1, id ^ 0x80000000, id + (1u << 20)})
                expectNumber(asked);
        }
        for (const std::uint32_t id : {0u, 1u, 0x7fffffffu, 0x80000000u, kHighestId}) expectNumber(id);
    }
};

TEST_P(StyleIdIndexOf, FindsEachAndNoOther) {
    expectNumbers(numbered(GetParam().ids, 255));
}

TEST_P(StyleIdIndexOf, WithNumbersAbove255FindsEachAndNoOther) {
    for (const std::uint32_t highest : {256u, kHighestId}) expectNumbers(numbered(GetParam().ids, highest));
}

TEST_P(StyleIdIndexOf, TakesNoMoreMemoryThanAHashTable) {
    for (const std::uint32_t highest : {255u, 100000u}) {
        const Entries entries = numbered(GetParam().ids, highest);
        EXPECT_LE(StyleIdIndex(entries).bytes(),
                  sizeof(PerfectIdIndex) + PerfectIdIndex(entries).bytes() + kBytesOfAPage);
    }
}

TEST_P(StyleIdIndexOf, HasNoMemoryToSpare) {
    const StyleIdIndex index(numbered(GetParam().ids, 255));
    const StyleIdIndex copy(index);  // as large as it has to be
    EXPECT_EQ(index.bytes(), copy.bytes());
}

INSTANTIATE_TEST_SUITE_P(IdNumbers, StyleIdIndexOf, testing::ValuesIn(kCases), caseName);

TEST(StyleIdIndex, KeepsDenseIdsInAByteEach) {
    EXPECT_LE(StyleIdIndex(numbered(idNumbersFrom(1000, 50000), 255)).bytes(), 52000u);
}

TEST(StyleIdIndex, WithoutIdsFindsNothing) {
    const StyleIdIndex none;
    const StyleIdIndex empty(Entries{});
    for (const std::uint32_t id : {0u, 1u, 2u, 0x7fffffffu, 0x80000000u, kHighestId}) {
        EXPECT_EQ(none.find(id), 0u) << id;
        EXPECT_EQ(empty.find(id), 0u) << id;
    }
}

TEST(StyleIdIndex, WithoutIdsTakesOnePage) {
    EXPECT_EQ(StyleIdIndex().bytes(), kBytesOfAPage);
    EXPECT_EQ(StyleIdIndex(Entries()).bytes(), kBytesOfAPage);
}

TEST(StyleIdIndex, KeepsIdsInPagesWhileTheyTakeNoMoreThanInAHashTable) {
    const std::size_t bytes = StyleIdIndex(numbered(idNumbersFrom(0, 20, 13), 255)).bytes();
    EXPECT_GT(bytes, 250u);
    EXPECT_LE(bytes, PerfectIdIndex::bytesFor(20));
}

// No number of pages that fits into the memory would separate the clusters.
TEST(StyleIdIndex, GivesAPageToTheFullerOfTwoClustersInAnyOrder) {
    constexpr std::uint32_t kFarAway = 1u << 20;
    for (const auto& [first, second] : {std::pair<std::size_t, std::size_t>{40, 60}, {60, 40}}) {
        const IdNumbers ids = joined({idNumbersFrom(1024, first), idNumbersFrom(1024 + kFarAway, second)});
        EXPECT_LE(StyleIdIndex(numbered(ids, 255)).bytes(),
                  kBytesOfAPage + 60 + sizeof(PerfectIdIndex) + PerfectIdIndex::bytesFor(40));
    }
}

// The second cluster has numbers that do not fit into a page and starts where the page of the first ends.
TEST(StyleIdIndex, FindsTheIdNextToAPage) {
    Entries entries = numbered(idNumbersFrom(1000, 24), 255);
    for (std::uint32_t id = 1024; id < 1048; ++id) entries.push_back({id, id});
    const StyleIdIndex index(entries);
    for (const auto& [id, number] : entries) EXPECT_EQ(index.find(id), number) << id;
    for (const std::uint32_t id : {999u, 1048u}) EXPECT_EQ(index.find(id), 0u) << id;
}

TEST(StyleIdIndex, OfRandomClustersFindsEachAndNoOther) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        const Entries entries = numbered(randomClusters(1 + seed % 30, seed), 1 + seed * 3);
        const StyleIdIndex index(entries);
        std::unordered_map<std::uint32_t, std::uint32_t> expected;
        for (const auto& [id, number] : entries) expected[id] = number;
        std::mt19937 random(seed);
        for (int i = 0; i < 500; ++i) {
            const auto id = static_cast<std::uint32_t>(random()) >> random() % 32;
            const auto found = expected.find(id);
            ASSERT_EQ(index.find(id), found == expected.end() ? 0 : found->second) << "seed " << seed << " id " << id;
        }
        for (const auto& [id, number] : entries) ASSERT_EQ(index.find(id), number) << "seed " << seed << " id " << id;
    }
}

}  // namespace
}  // namespace customstyle_test
