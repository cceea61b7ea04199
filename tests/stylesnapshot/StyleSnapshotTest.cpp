// What a snapshot promises besides equal answers: independence and size.
#include <gtest/gtest.h>

#include <set>

#include "customstyle/StyleSnapshot.h"
#include "tests/stylesnapshot/StyleIdMapping.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StyleSnapshot;

TEST(StyleSnapshot, OutlivesItsStore) {
    auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    const StyleSnapshot snapshot(*config);
    config.reset();
    const QueriesEnabled enabled;
    tagCustomStyle style{};
    EXPECT_EQ(snapshot.GetStyleFromConfig(style, firstStyleId(kHighway), 10), kHighway);
    EXPECT_EQ(style.m_fillColor, 0xff332211u);
}

TEST(StyleSnapshot, DoesNotShowLaterRules) {
    const auto config = loadedWith({});
    const StyleSnapshot snapshot(*config);
    config->SetTypeColor(kHighway, "fill", 1, 1, 0);
    const QueriesEnabled enabled;
    tagCustomStyle style{};
    EXPECT_EQ(snapshot.GetStyleFromConfig(style, firstStyleId(kHighway), 10), -1);
}

TEST(StyleSnapshot, LendsOneRecordToStyleIdsThatLookAlike) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    const StyleSnapshot snapshot(*config);
    const QueriesEnabled enabled;
    EXPECT_EQ(snapshot.FindStyle(firstStyleId(kHighway), 10).style,
              snapshot.FindStyle(secondStyleId(kHighway), 10).style);
    EXPECT_EQ(snapshot.FindStyle(firstStyleId(kHighway), 10).style->m_ID, 0);
}

/// Gives the highway the style ids from 1 to `count`, and the other types none.
void mapHighwayIds(CustomConfig& config, int count) {
    IdsOfTypes ids;
    ids[kHighway] = idsFrom(1, count);
    mapStyleIds(config, ids);
}

// More looks than its tables have room for at first.
TEST(StyleSnapshot, LendsOneRecordForEachOfManyLooks) {
    constexpr int kLooks = 700;
    CustomConfig config;
    mapHighwayIds(config, 2 * kLooks);
    config.SetTypeColor(kHighway, "fill", 1, 1, 0);
    for (int id = 1; id <= 2 * kLooks; ++id) {
        recordAt(config, "13", id)->m_fillColor = static_cast<std::uint64_t>(id % kLooks);
    }
    const StyleSnapshot snapshot(config);
    const QueriesEnabled enabled;
    std::set<const tagCustomStyle*> records;
    for (unsigned id = 1; id <= kLooks; ++id) {
        records.insert(snapshot.FindStyle(id, 10).style);
        EXPECT_EQ(snapshot.FindStyle(id, 10).style, snapshot.FindStyle(id + kLooks, 10).style) << id;
    }
    EXPECT_EQ(records.size(), std::size_t{kLooks});
}

TEST(StyleSnapshot, TakesNoMemoryForStyleIdsWithoutAnswers) {
    CustomConfig config;
    mapHighwayIds(config, 500);
    const std::size_t bytesWithoutRules = StyleSnapshot(config).bytes();
    config.SetTypeColor(kHighway, "fill", 1, 1, 0);
    for (int id = 1; id <= 500; ++id) recordAt(config, "13", id)->m_custom = 0;
    EXPECT_EQ(StyleSnapshot(config).bytes(), bytesWithoutRules);
}

/// A store with `count` style ids spread over the types, and all slots in use.
std::unique_ptr<CustomConfig> storeOf(int count) {
    IdsOfTypes ids;
    for (int type = 0; type <= 71; ++type) {
        ids[std::size_t(type)].push_back(0);
        for (int id = 1 + type; id <= count; id += 72) ids[std::size_t(type)].push_back(id * 17);
    }
    auto config = std::make_unique<CustomConfig>();
    mapStyleIds(*config, ids);
    for (int slot = 0; slot < 1241; ++slot) {
        config->SetTypeColor(slot / 18, "fill", static_cast<std::uint64_t>(slot), 0, 4 + slot % 18);
    }
    return config;
}

class StyleSnapshotOf : public testing::TestWithParam<int> {};

TEST_P(StyleSnapshotOf, ManyStyleIdsAndEverySlotTakesAtMost64BytesAnIdAnd160Kilobytes) {
    const StyleSnapshot snapshot(*storeOf(GetParam()));
    const auto styleIds = static_cast<std::size_t>(GetParam());
    EXPECT_LE(snapshot.bytes(), 64 * styleIds + std::size_t{160} * 1024);
    EXPECT_GT(snapshot.bytes(), sizeof(StyleSnapshot) + 8 * styleIds);
}

TEST_P(StyleSnapshotOf, ManyStyleIdsAndEverySlotHasNoMemoryToSpare) {
    const StyleSnapshot snapshot(*storeOf(GetParam()));
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): a copy is as large as it has to be
    const StyleSnapshot copy(snapshot);
    EXPECT_EQ(snapshot.bytes(), copy.bytes());
}

INSTANTIATE_TEST_SUITE_P(Sizes, StyleSnapshotOf, testing::Values(100, 500, 600, 5000, 50000));

}  // namespace
}  // namespace customstyle_test
