// Keys that are given to a store and taken back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/model/BaseRecords.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StoreKeys.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::ElementsAre;

struct KeyCase {
    const char* name;
    const char* key;
    const char* level;  // of a rule that addresses it; empty for all levels
};

const KeyCase kKeys[] = {
    {"AtAllLevels", "2", ""},
    {"AtALevel", "2:9", "9"},
};

class AddedKey : public testing::TestWithParam<KeyCase> {};

// An element that draws nothing leaves the records as they were, but registers the key.
TEST_P(AddedKey, IsThatOfARuleThatAddressesIt) {
    const auto config = loadedWith({});
    addKey(*config, GetParam().key);
    RuleBuilder drawsNothing = rule("water", "labels.text.topsurface").color("#112233");
    if (*GetParam().level != '\0') drawsNothing.level(GetParam().level);
    EXPECT_EQ(StoreImage(*config), StoreImage(*loadedWith({drawsNothing})));
}

TEST_P(AddedKey, IsGoneOnceItIsTakenBack) {
    const auto config = loadedWith({rule("green", "all").color("#112233")});
    const StoreImage before(*config);
    const int usedSlots = config->m_usedLevelSlots;
    addKey(*config, GetParam().key);
    EXPECT_TRUE(hasSlot(*config, GetParam().key));
    forgetKeys(*config, {GetParam().key}, usedSlots);
    EXPECT_EQ(before, StoreImage(*config));
    EXPECT_EQ(config->m_usedLevelSlots, usedSlots);
}

INSTANTIATE_TEST_SUITE_P(StoreKeys, AddedKey, testing::ValuesIn(kKeys), caseName);

TEST(StoreKeys, AreInTheOrderInWhichTheyWereFirstSeen) {
    const auto config =
        loadedWith({rule("water", "fill").color("#111111").level("9"), rule("green", "fill").color("#222222"),
                    rule("water", "fill").color("#333333"), rule("water", "fill").color("#444444").level("9")});
    EXPECT_THAT(keysInOrder(*config), ElementsAre("2:9", "1", "2"));
}

TEST(StoreKeys, AreAllGoneWithTheSettingsOnceStylesAreForgotten) {
    const auto config = loadedWith({rule("water", "fill").color("#111111").level("9"),
                                    rule("grid", "fill").color("#222222"), rule("all", "icon").visibility("off")});
    forgetStyles(*config);
    EXPECT_EQ(StoreImage(*config), StoreImage(*loadedWith({})));
    EXPECT_EQ(config->m_usedLevelSlots, 0);
}

}  // namespace
}  // namespace customstyle_test
