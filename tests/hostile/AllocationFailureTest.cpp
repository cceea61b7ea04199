// One allocation after another fails: in construction, in a load, in the compilation of a snapshot.
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <set>

#include "customstyle/StoredRecords.h"
#include "customstyle/StyleSnapshot.h"
#include "tests/model/BaseRecords.h"
#include "tests/support/FailingHeaps.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;
using _orvik_framework::StyleSnapshot;
using Failures = FailingHeaps::Failures;

// More than any of the actions below takes.
constexpr std::size_t kEndless = 100000;

std::set<int> idsOf(const CVMapPtrToPtr& records) {
    std::set<int> ids;
    for (const StoredRecord& entry : StoredRecords(records)) {
        // A record that could not be made leaves no trace, so there is none without content.
        EXPECT_NE(entry.record, nullptr);
        if (entry.record == nullptr) continue;
        ids.insert(entry.record->m_ID);
        EXPECT_EQ(entry.number(), entry.record->m_ID);
    }
    return ids;
}

// The slots in use are the first ones, each under one key, and hold records of the key's type only.
void expectSlotsInOrder(const CustomConfig& config) {
    std::set<const CVMapPtrToPtr*> slots;
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        slots.insert(slot);
        EXPECT_LT(slot - config.m_levelStyleMaps, config.m_usedLevelSlots) << key;
        const std::set<int> base = idsOf(config.m_typeStyleMaps[std::stoi(key)]);
        for (const int id : idsOf(*slot)) EXPECT_TRUE(base.contains(id)) << id << " under " << key;
    }
    EXPECT_EQ(static_cast<int>(slots.size()), config.m_usedLevelSlots);
    EXPECT_EQ(slots.size(), config.m_keyStyleMaps.size());
}

// A key in effect that had no slot would hide the styles for all levels of its type.
void expectSlotsForEffects(const CustomConfig& config) {
    for (const auto& [key, allLevels] : config.m_styleEffectLevels) {
        EXPECT_TRUE(config.m_keyStyleMaps.contains(key)) << key;
        EXPECT_EQ(allLevels, key.find(':') == std::string::npos ? 1 : 0) << key;
    }
}

void expectAnswers(const CustomConfig& config) {
    const QueriesEnabled enabled;
    std::uint64_t colour = 0;
    for (const int type : {0, 3, 13, 28, 45, 71}) {
        tagCustomStyle style{};
        for (const int level : {9, 15}) {
            const auto id = static_cast<unsigned>(firstStyleId(type));
            const int found = config.GetStyleFromConfig(style, id, level);
            EXPECT_TRUE(found == -1 || found == type) << type;
            if (found != -1) {
                EXPECT_EQ(style.m_ID, firstStyleId(type));
            }
            EXPECT_LE(config.IsCustomizedIconVisible(id, level), 1);
            EXPECT_LE(config.IsCustomBackRegionEnable(colour, level), 1);
        }
    }
}

const std::vector<RuleBuilder> kRules = {
    rule("highway", "all").color("#112233").visibility("off"),
    rule("highway", "labels.text.fill").color("#445566").weight("3").fontsize("12").level("15"),
    rule("land", "geometry").color("#778899"),
    rule("building", "geometry.topsurface").color("#aabbcc").level("9"),
    rule("districtlabel", "labels.icon").visibility("off"),
    rule("a name that is too long to be kept inside of a string", "fill").color("#112233"),
    rule("local", "an element that nobody knows").fontsize("12").weight("x"),
    rule("grid", "all").color("#ddeeff").level("9"),
};

std::string styleFile(auto first, auto last) {
    std::string json;
    for (; first != last; ++first) json += (json.empty() ? "[" : ",") + first->json();
    return json + "]";
}

class FailingAllocation : public testing::TestWithParam<Failures> {
protected:
    FailingAllocation() {
        _orvik_vi::CVLog::SetSink([this](_orvik_vi::ELOGPRIORITY, const std::string& line) {
            if (line.ends_with("format error")) ++m_textsNotJson;
        });
    }
    ~FailingAllocation() override { _orvik_vi::CVLog::SetSink({}); }

    /// Whether the action came to an allocation that failed.
    static bool failsAfter(std::size_t successes, const std::function<void()>& action) {
        const FailingHeaps heaps(successes, GetParam());
        try {
            action();
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(heaps.hasFailed());
        }
        return heaps.hasFailed();
    }

    /// The number of allocations after which `fails(successes)` no longer does.
    static std::size_t firstSufficient(const std::function<bool(std::size_t)>& fails) {
        std::size_t successes = 0;
        while (!HasFailure() && successes < kEndless && fails(successes)) ++successes;
        EXPECT_GT(successes, 0U);
        EXPECT_LT(successes, kEndless);
        RecordProperty("allocations", static_cast<int>(successes));
        return successes;
    }

    TemporaryDirectory m_directory;
    std::ptrdiff_t m_textsNotJson = 0;  // texts that are not JSON stay in memory
};

TEST_P(FailingAllocation, OfAConstructionLeavesNothing) {
    const MemoryAccounts accounts;
    firstSufficient([](std::size_t successes) { return failsAfter(successes, [] { const CustomConfig config; }); });
    EXPECT_EQ(accounts.blocks(), 0);
}

TEST_P(FailingAllocation, OfALoadLeavesAStoreThatAnswersGoesOnAndEnds) {
    m_directory.write("CustomIndex", testMapping());
    const _orvik_vi::CVString mapping(m_directory.prefix().c_str());
    const _orvik_vi::CVString style(m_directory.write("style.json", styleFile(kRules.begin(), kRules.end())).c_str());
    const Tree otherOrder = parsed(styleFile(kRules.rbegin(), kRules.rend()));
    const MemoryAccounts accounts;
    firstSufficient([&](std::size_t successes) {
        CustomConfig config;
        int result = 0;
        const bool failed = failsAfter(successes, [&] { result = config.Init(mapping, style); });
        EXPECT_TRUE(failed || result == 1);
        for (int part = 0; part < 2; ++part) {
            expectSlotsInOrder(config);
            expectSlotsForEffects(config);
            expectAnswers(config);
            config.ParseCustomConfig(otherOrder.get());
        }
        EXPECT_EQ(outstandingJsonBlocks(), 0) << successes;
        return failed;
    });
    EXPECT_EQ(accounts.blocks(), m_textsNotJson);
}

// A host may have put an effect there by hand.
TEST_P(FailingAllocation, OfASlotIsThrownAndLeavesAnEffectThatWasThereBefore) {
    firstSufficient([](std::size_t successes) {
        CustomConfig config;
        config.m_styleEffectLevels["13:15"] = 2;
        char key[16];
        bool isThrown = false;
        const bool failed = failsAfter(successes, [&] {
            isThrown = true;
            config.UpdateCustomStyleMap(key, 13, 0, 15);
            isThrown = false;
        });
        EXPECT_EQ(isThrown, failed);
        EXPECT_EQ(config.m_styleEffectLevels, (decltype(config.m_styleEffectLevels){{"13:15", 2}}));
        EXPECT_EQ(config.m_keyStyleMaps.contains("13:15"), !failed);
        return failed;
    });
}

// 24 records outgrow a map that starts with room for ten, so memory can run out half-way.
TEST_P(FailingAllocation, OfASlotsRecordsLeavesTheSlotAsItWas) {
    const MemoryAccounts accounts;
    firstSufficient([](std::size_t successes) {
        CustomConfig config;
        for (int styleId = 1; styleId <= 24; ++styleId) addBaseRecord(config, 13, styleId);
        const MemoryAccounts ofSlot;
        char key[16];
        bool isRegistered = false;
        const bool failed = failsAfter(successes, [&] {
            config.UpdateCustomStyleMap(key, 13, 1, 0);
            isRegistered = true;
        });
        EXPECT_EQ(config.m_levelStyleMaps[0].GetCount() > 0, isRegistered);
        EXPECT_EQ(ofSlot.blocks() > 0, isRegistered);
        expectSlotsInOrder(config);
        expectSlotsForEffects(config);
        return failed;
    });
    EXPECT_EQ(accounts.blocks(), 0);
}

// A host that sets the counter back hands out a slot that another key still has.
TEST_P(FailingAllocation, OfASlotThatAnotherKeyHasLeavesThatKeyItsRecords) {
    firstSufficient([](std::size_t successes) {
        CustomConfig config;
        for (int styleId = 1; styleId <= 24; ++styleId) addBaseRecord(config, 14, styleId);
        addBaseRecord(config, 13, 99);
        config.SetTypeColor(13, "fill", 5, 1, 0);
        config.m_usedLevelSlots = 0;
        char key[16];
        const bool failed = failsAfter(successes, [&] { config.UpdateCustomStyleMap(key, 14, 1, 0); });
        const tagCustomStyle* const record = recordAt(config, "13", 99);
        EXPECT_TRUE(record != nullptr && record->m_fillColor == 5);
        return failed;
    });
}

TEST_P(FailingAllocation, OfASnapshotLeavesNothing) {
    const auto config = loadedWith({kRules[0], kRules[1], kRules[2], kRules[3], kRules[4], kRules[7]});
    const MemoryAccounts accounts;
    firstSufficient(
        [&](std::size_t successes) { return failsAfter(successes, [&] { const StyleSnapshot snapshot(*config); }); });
    EXPECT_EQ(accounts.blocks(), 0);
    expectAnswers(*config);
}

INSTANTIATE_TEST_SUITE_P(Heaps, FailingAllocation, testing::Values(Failures::One, Failures::AllFurther),
                         [](const auto& each) { return each.param == Failures::One ? "Once" : "FromThenOn"; });

}  // namespace
}  // namespace customstyle_test
