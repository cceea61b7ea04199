// A store is open to hosts and tools. Whatever they changed in it, a snapshot answers like it.
#include <gtest/gtest.h>

#include <string>

#include "customstyle/StyleSnapshot.h"
#include "tests/stylesnapshot/SameAnswers.h"
#include "tests/stylesnapshot/StyleIdMapping.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StyleSnapshot;

constexpr int kFirst = firstStyleId(kHighway);
constexpr int kSecond = secondStyleId(kHighway);

struct ChangeCase {
    const char* name;
    void (*change)(tagCustomStyle& first, tagCustomStyle& second);
};

void PrintTo(const ChangeCase& each, std::ostream* stream) {
    *stream << each.name;
}

const ChangeCase kChanges[] = {
    {"ARecordShowsTheIdThatLooksShared", [](auto& /*first*/, auto& second) { second.m_ID = 0; }},
    {"TheFirstRecordShowsTheIdThatLooksShared", [](auto& first, auto& /*second*/) { first.m_ID = 0; }},
    {"OfTwoRecordsThatAreNotCustomisedOneHidesItsIcon",
     [](auto& first, auto& second) {
         first.m_custom = second.m_custom = 0;
         second.m_iconHidden = 1;
     }},
    {"OneRecordShowsAnotherIdAndTheOtherIsNotCustomised",
     [](auto& first, auto& second) {
         first.m_ID = 4711;
         second.m_custom = 0;
     }},
};

class SnapshotOfAStoreWhere : public testing::TestWithParam<ChangeCase> {};

TEST_P(SnapshotOfAStoreWhere, AnswersLikeIt) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    GetParam().change(*recordAt(*config, "13", kFirst), *recordAt(*config, "13", kSecond));
    const StyleSnapshot snapshot(*config);
    const QueriesEnabled enabled;
    expectSameAnswers(*config, snapshot);
}

INSTANTIATE_TEST_SUITE_P(Changes, SnapshotOfAStoreWhere, testing::ValuesIn(kChanges), caseName);

TEST(SnapshotOfAStore, WithKeysOfTypesThatDoNotExistAnswersLikeIt) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233").level("15")});
    for (const char* key : {"-1", "-13", "72", "73", "100000"}) {
        config->m_keyStyleMaps.emplace(key, config->m_keyStyleMaps.at("13:15"));
        config->m_styleEffectLevels.emplace(key, 1);
    }
    const StyleSnapshot snapshot(*config);
    const QueriesEnabled enabled;
    expectSameAnswers(*config, snapshot);
}

// First one id, then many, then the same in another order.
TEST(SnapshotOfAStore, WhoseKeysOfOneTypeHoldDifferentIdsAnswersLikeIt) {
    IdsOfTypes ids;
    ids[13] = {7};
    ids[14] = idsFrom(100, 700, 37);
    ids[15] = idsFrom(100 + 699 * 37, 700, -37);
    CustomConfig config;
    mapStyleIds(config, ids);
    for (int type = 13; type <= 15; ++type) config.SetTypeColor(type, "fill", std::uint64_t(type), 0, type);
    for (const char* level : {"14", "15"}) {
        const std::string ownKey = std::string(level) + ":" + level;
        config.m_keyStyleMaps.emplace(std::string("13:") + level, config.m_keyStyleMaps.at(ownKey));
        config.m_styleEffectLevels.emplace(std::string("13:") + level, 0);
        config.m_styleEffectLevels.erase(ownKey);
    }
    const StyleSnapshot snapshot(config);
    const QueriesEnabled enabled;
    expectSameAnswers(config, snapshot, styleIdsToAsk(config), {12, 13, 14, 15});
}

}  // namespace
}  // namespace customstyle_test
