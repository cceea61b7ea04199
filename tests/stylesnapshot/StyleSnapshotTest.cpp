// What a snapshot promises besides equal answers: independence and size.
#include <gtest/gtest.h>

#include "customstyle/StyleSnapshot.h"
#include "tests/stylesnapshot/SameAnswers.h"
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

// A host may file a slot under any key.
TEST(StyleSnapshot, LeavesOutKeysOfTypesThatDoNotExist) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    for (const char* key : {"-1", "-13", "73", "100000"}) {
        config->m_keyStyleMaps.emplace(key, config->m_keyStyleMaps.at("13"));
        config->m_styleEffectLevels.emplace(key, 1);
    }
    const QueriesEnabled enabled;
    expectSameAnswers(*config, StyleSnapshot(*config));
}

/// A store with `count` style ids spread over the types, and all slots in use.
std::unique_ptr<CustomConfig> storeOf(int count) {
    auto config = std::make_unique<CustomConfig>();
    std::string json = "{";
    for (int type = 0; type <= 71; ++type) {
        json += (type == 0 ? "\"" : ",\"") + config->GetFeatureTypeName(type) + "\":[0";
        for (int id = 1 + type; id <= count; id += 72) json += "," + std::to_string(id * 17);
        json += "]";
    }
    config->ParseMappingConfig(parsed(json + "}").get());
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

INSTANTIATE_TEST_SUITE_P(Sizes, StyleSnapshotOf, testing::Values(100, 500, 600, 5000, 50000));

}  // namespace
}  // namespace customstyle_test
