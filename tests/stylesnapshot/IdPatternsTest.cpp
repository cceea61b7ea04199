// However a map numbers its styles, a snapshot answers like its store.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "customstyle/StoredRecords.h"
#include "customstyle/StyleSnapshot.h"
#include "tests/stylesnapshot/SameAnswers.h"
#include "tests/stylesnapshot/StyleIdMapping.h"
#include "tests/support/CaseName.h"
#include "tests/support/IntLimits.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;
using _orvik_framework::StyleSnapshot;
using Ids = std::vector<int>;

constexpr int kTypes = 72;
constexpr std::size_t kMostIdsAsked = 200;

Ids randomIds(int count) {
    std::mt19937 random(static_cast<unsigned>(count));
    Ids ids;
    for (int i = 0; i < count; ++i) ids.push_back(static_cast<int>(random()));
    return ids;
}

/// A store whose types share the ids out in blocks; each tenth id belongs to the next type, too.
std::unique_ptr<CustomConfig> storeOf(const Ids& ids) {
    IdsOfTypes idsOfTypes;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const std::size_t type = i * kTypes / ids.size();
        idsOfTypes[type].push_back(ids[i]);
        if (i % 10 == 0) idsOfTypes[(type + 1) % kTypes].push_back(ids[i]);
    }
    auto config = std::make_unique<CustomConfig>();
    mapStyleIds(*config, idsOfTypes);
    return config;
}

void styleAllTypes(CustomConfig& config) {
    for (int type = 0; type < kTypes; ++type) {
        if (type % 5 != 1) config.SetTypeColor(type, "fill", 0xff000000u + unsigned(type), 1, 0);
        if (type % 3 == 0) config.SetTypeWeight(type, "stroke", type, 0, 4 + type % 18);
        if (type % 4 == 0) config.SetCustomIconInvisible(type, "icon", 1, 0, 12);
    }
}

/// Gives each customised record another fill, by its style id.
void paintEachRecord(CustomConfig& config) {
    for (int slot = 0; slot < config.m_usedLevelSlots; ++slot) {
        for (const StoredRecord& entry : StoredRecords(config.m_levelStyleMaps[slot])) {
            entry.record->m_fillColor = std::uint64_t{static_cast<unsigned>(entry.record->m_ID)} << 20;
        }
    }
}

std::set<unsigned> someIdsOf(const CustomConfig& config) {
    const std::set<unsigned> all = styleIdsToAsk(config);
    const std::size_t step = all.size() / kMostIdsAsked + 1;
    std::set<unsigned> some;
    std::size_t i = 0;
    for (const unsigned id : all) {
        if (i++ % step == 0) some.insert({id - 1, id, id + 1});
    }
    return some;
}

void expectSameAnswersAboutSome(const CustomConfig& config) {
    const StyleSnapshot snapshot(config);
    const QueriesEnabled enabled;
    expectSameAnswers(config, snapshot, someIdsOf(config), {7, 12, 21, 100, kIntMin, kIntMax});
}

struct PatternCase {
    const char* name;
    Ids ids;
};

void PrintTo(const PatternCase& each, std::ostream* stream) {
    *stream << each.name;
}

Ids clustersWithOutliers() {
    Ids ids = idsFrom(1000, 300);
    for (const int id : {-1, 0, kIntMin, kIntMax, 70000}) ids.push_back(id);
    for (const int id : idsFrom(41001, 90)) ids.push_back(id);
    return ids;
}

class SnapshotWithIds : public testing::TestWithParam<PatternCase> {};

TEST_P(SnapshotWithIds, AnswersLikeTheStore) {
    const auto config = storeOf(GetParam().ids);
    styleAllTypes(*config);
    expectSameAnswersAboutSome(*config);
}

TEST_P(SnapshotWithIds, ThatAllLookDifferentAnswersLikeTheStore) {
    const auto config = storeOf(GetParam().ids);
    styleAllTypes(*config);
    paintEachRecord(*config);
    expectSameAnswersAboutSome(*config);
}

TEST_P(SnapshotWithIds, AnswersLikeAStoreWithoutRules) {
    expectSameAnswersAboutSome(*storeOf(GetParam().ids));
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, SnapshotWithIds,
    testing::Values(PatternCase{"NoId", {}}, PatternCase{"OneId", {4711}}, PatternCase{"Zero", {0}},
                    PatternCase{"Extremes", {kIntMin, kIntMin + 1, -1, 0, 1, kIntMax - 1, kIntMax}},
                    PatternCase{"Negative", idsFrom(-400, 400)}, PatternCase{"AroundZero", idsFrom(-150, 300)},
                    PatternCase{"Dense", idsFrom(1, 2000)}, PatternCase{"Descending", idsFrom(2000, 1000, -1)},
                    PatternCase{"EverySeventeenth", idsFrom(0, 600, 17)},
                    PatternCase{"EachFarFromTheNext", idsFrom(3, 1000, 65536)},
                    PatternCase{"ClustersWithOutliers", clustersWithOutliers()}, PatternCase{"Random", randomIds(1500)},
                    PatternCase{"70000Dense", idsFrom(1, 70000)}, PatternCase{"70000Random", randomIds(70000)}),
    caseName);

}  // namespace
}  // namespace customstyle_test
