// Records that are replaced in a store for a while.
#include <gtest/gtest.h>

#include <functional>

#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "tools/study/PatchedStore.h"
#include "tools/study/StoreImage.h"

namespace customstyle_test {
namespace {

using customstyle_tool::PatchedStore;
using customstyle_tool::StoreImage;

using Rules = std::vector<RuleBuilder>;

std::unique_ptr<CustomConfig> storeWith(const Rules& rules) {
    std::unique_ptr<CustomConfig> config = loadedWith({});
    for (const RuleBuilder& each : rules) config->ParseCustomConfig(parsed("[" + each.json() + "]").get());
    return config;
}

tagCustomStyle filledWith(std::uint64_t color) {
    tagCustomStyle style{};
    style.m_custom = 1;
    style.m_fillColor = color;
    style.m_fillColorSet = 1;
    return style;
}

const RuleBuilder kWater = rule("water", "fill").color("#112233");
const RuleBuilder kWaterAtLevel9 = rule("water", "fill").color("#112233").level("9");
constexpr std::uint64_t kColor = 0xFF332211;  // of these rules, packed

struct PatchCase {
    const char* name;
    Rules before;
    std::function<void(PatchedStore&)> patch;
    Rules likeAfter;  // a store that looks the same
};

const PatchCase kPatches[] = {
    {"ARecord",
     {rule("water", "fill").color("#445566")},
     [](auto& store) { store.set("2", filledWith(kColor)); },
     {kWater}},
    {"AKeyWithoutSlot", {}, [](auto& store) { store.set("2", filledWith(kColor)); }, {kWater}},
    {"AKeyWithoutSlotTwice",
     {},
     [](auto& store) {
         store.set("2", filledWith(0));
         store.set("2", filledWith(kColor));
     },
     {kWater}},
    {"AKeyOfALevelWithoutSlot", {}, [](auto& store) { store.set("2:9", filledWith(kColor)); }, {kWaterAtLevel9}},
    {"AKeyThatGoes", {kWater, kWaterAtLevel9}, [](auto& store) { store.set("2:9", {}); }, {kWater}},
    {"AKeyThatIsNotThere", {kWater}, [](auto& store) { store.set("2:9", {}); }, {kWater}},
    {"AKeyThatGoesAndComesBack",
     {kWater},
     [](auto& store) {
         store.set("2", {});
         store.set("2", filledWith(kColor));
     },
     {kWater}},
    {"ARecordTwice",
     {rule("water", "fill").color("#445566")},
     [](auto& store) {
         store.set("2", filledWith(0));
         store.set("2", filledWith(kColor));
     },
     {kWater}},
    {"TheGridColour",
     {},
     [](auto& store) { store.setGridColor(true, kColor); },
     {rule("grid", "fill").color("#112233")}},
    {"AGridColourTwice",
     {rule("grid", "fill").color("#112233")},
     [](auto& store) {
         store.setGridColor(true, 1);
         store.setGridColor(false, 0);
     },
     {}},
    {"EveryIcon", {}, [](auto& store) { store.hideEveryIcon(true); }, {rule("all", "icon").visibility("off")}},
    {"EveryIconTwice",
     {rule("all", "icon").visibility("off")},
     [](auto& store) {
         store.hideEveryIcon(true);
         store.hideEveryIcon(false);
     },
     {}},
};

class Patch : public testing::TestWithParam<PatchCase> {};

TEST_P(Patch, LooksLikeAnotherStyle) {
    PatchedStore store(storeWith(GetParam().before));
    GetParam().patch(store);
    EXPECT_EQ(StoreImage(store.config()), StoreImage(*storeWith(GetParam().likeAfter)));
}

TEST_P(Patch, CanBeTakenBackAndMadeAgain) {
    PatchedStore store(storeWith(GetParam().before));
    for (int times = 0; times < 2; ++times) {
        GetParam().patch(store);
        store.takeBack();
        EXPECT_EQ(StoreImage(store.config()), StoreImage(*storeWith(GetParam().before)));
    }
}

INSTANTIATE_TEST_SUITE_P(PatchedStore, Patch, testing::ValuesIn(kPatches), caseName);

TEST(PatchedStore, KeepsTheIdsOfRecords) {
    PatchedStore store(storeWith({kWater}));
    store.set("2", filledWith(kColor));
    store.set("2:9", filledWith(kColor));
    for (const char* key : {"2", "2:9"}) {
        for (const int styleId : {firstStyleId(2), secondStyleId(2)}) {
            EXPECT_EQ(recordAt(store.config(), key, styleId)->m_ID, styleId);
        }
    }
}

}  // namespace
}  // namespace customstyle_test
