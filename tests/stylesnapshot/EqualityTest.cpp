// A snapshot answers exactly as the store that it was built from: every question, every style id, every level, over
// random stores that files alone could not produce.
#include <gtest/gtest.h>

#include <random>

#include "customstyle/StoredRecords.h"
#include "customstyle/StyleSnapshot.h"
#include "tests/stylesnapshot/SameAnswers.h"
#include "tests/support/IntLimits.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecords;
using _orvik_framework::StyleSnapshot;

/// Writes into a store at random, partly past the loader: odd levels and types, ids shared between types and from 2^31
/// on, keys without a record, slots taken away, records changed by hand.
class RandomStore {
public:
    explicit RandomStore(unsigned seed) : m_random(seed) {
        mapStyleIds();
        for (int i = 0; i < 150; ++i) write();
        mapStyleIds();
        for (int i = 0; i < 50; ++i) write();
        for (int i = 0; i < 10; ++i) changeByHand();
        if (chance(4)) m_config.SetGridColorStyle(0x11223344u + seed);
        if (chance(20)) m_config.m_allIconsHidden = 1;
    }

    CustomConfig& config() { return m_config; }

private:
    int pick(int first, int last) { return std::uniform_int_distribution(first, last)(m_random); }
    bool chance(int oneIn) { return pick(1, oneIn) == 1; }

    int pickType() {
        return chance(10) ? pick(-2, 75) : std::vector{0, 1, 4, 9, 13, 28, 45, 53, 71, 72}[std::size_t(pick(0, 9))];
    }
    int pickLevel() {
        return chance(8) ? std::vector{kIntMin, -1, 0, 3, 22, 31, 32, 100, kIntMax}[std::size_t(pick(0, 8))]
                         : pick(4, 21);
    }
    int pickStyleId() { return chance(8) ? pick(kIntMin, kIntMax) : pick(-3, 40); }
    std::string pickElement() {
        static const std::vector<std::string> kElements = {"all",    "labels",     "geometry", "fill",
                                                           "stroke", "topsurface", "icon",     "none"};
        return kElements[std::size_t(pick(0, 7))];
    }

    void mapStyleIds() {
        std::string json = "{";
        for (int type = 0; type <= 71; ++type) {
            json += (type == 0 ? "\"" : ",\"") + m_config.GetFeatureTypeName(type) + "\":[";
            for (int i = 0, count = pick(0, 6); i < count; ++i)
                json += (i == 0 ? "" : ",") + std::to_string(pickStyleId());
            json += "]";
        }
        m_config.ParseMappingConfig(parsed(json + "}").get());
    }

    void write() {
        const int type = pickType();
        const std::string element = pickElement();
        const int allLevels = chance(3) ? 1 : chance(20) ? 2 : 0;
        const int level = pickLevel();
        const int value = pick(0, 255);
        switch (pick(0, 5)) {
            case 0:
                return m_config.SetTypeColor(type, element.c_str(), 0xff000000u + unsigned(value), allLevels, level);
            case 1:
                return m_config.SetFontColorStyle(type, element.c_str(), unsigned(value), allLevels, level);
            case 2:
                return m_config.SetCustomIconInvisible(type, element.c_str(), pick(0, 2), allLevels, level);
            case 3:
                return m_config.SetTypeWeight(type, element.c_str(), value, allLevels, level);
            case 4:
                return m_config.SetFontWeightStyle(type, element.c_str(), value, allLevels, level);
            default:
                return m_config.setFontSizeStyle(type, element.c_str(), static_cast<unsigned char>(value), allLevels,
                                                 level);
        }
    }

    void changeByHand() {
        if (m_config.m_usedLevelSlots == 0) return;
        CVMapPtrToPtr& slot = m_config.m_levelStyleMaps[pick(0, m_config.m_usedLevelSlots - 1)];
        if (slot.GetCount() == 0) return;
        tagCustomStyle* const record = StoredRecords(slot).first().record;
        if (record != nullptr) record->m_ID = pickStyleId();
        slot[reinterpret_cast<void*>(std::uintptr_t(pick(0, 40)))];  // a key without a record, where it is new
        if (chance(3)) m_config.m_styleEffectLevels["13:15"] = pick(0, 2);
        if (chance(3)) m_config.m_keyStyleMaps["9"] = nullptr;
        static const std::vector<std::string> kKeysOfNoLevel = {"13:", "13:x", "13:15x", "13:99999999999", ":", ""};
        if (chance(3)) m_config.m_styleEffectLevels[kKeysOfNoLevel[std::size_t(pick(0, 5))]] = pick(0, 2);
    }

    std::mt19937 m_random;
    LogSilence m_quiet;
    CustomConfig m_config;
};

class SnapshotOfARandomStore : public testing::TestWithParam<unsigned> {};

TEST_P(SnapshotOfARandomStore, AnswersLikeTheStore) {
    RandomStore store(GetParam());
    const StyleSnapshot snapshot(store.config());
    const QueriesEnabled enabled;
    expectSameAnswers(store.config(), snapshot);
}

TEST_P(SnapshotOfARandomStore, AnswersNoneLikeTheStoreWhileTheSwitchIsOff) {
    RandomStore store(GetParam());
    const StyleSnapshot snapshot(store.config());
    expectSameAnswers(store.config(), snapshot);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SnapshotOfARandomStore, testing::Range(0u, 25u));

TEST(SnapshotOfAStore, WithoutAnyKeyAnswersLikeIt) {
    const CustomConfig config;
    const StyleSnapshot snapshot(config);
    const QueriesEnabled enabled;
    expectSameAnswers(config, snapshot);
}

TEST(SnapshotOfAStore, WithEverySlotTakenAnswersLikeIt) {
    const auto config = loadedWith({});
    for (int type = 0; type <= 71; ++type) {
        for (int level = 4; level <= 21; ++level) {
            config->SetTypeColor(type, "fill", 1000 * std::uint64_t(type) + std::uint64_t(level), 0, level);
        }
    }
    const StyleSnapshot snapshot(*config);
    const QueriesEnabled enabled;
    EXPECT_EQ(config->m_usedLevelSlots, 1241);
    expectSameAnswers(*config, snapshot);
}

}  // namespace
}  // namespace customstyle_test
