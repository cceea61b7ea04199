// What leaving out a rule or a styler changes.
#include <gtest/gtest.h>

#include "tests/replay/Sources.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/replay/ProvenEffects.h"

namespace customstyle_test {
namespace {

using customstyle_tool::levelsText;
using customstyle_tool::proveEffects;
using customstyle_tool::ProvenEffect;

std::vector<ProvenEffect> effectsOf(std::initializer_list<RuleBuilder> rules) {
    return proveEffects(testMapping(), StyleText(styleOf(rules)).source());
}

TEST(ProvenEffects, OfARuleThatIsOverwrittenAreNone) {
    const auto effects = effectsOf({rule("water", "fill").color("#111111"), rule("water", "fill").color("#222222")});
    ASSERT_EQ(effects.size(), 2u);
    EXPECT_FALSE(effects[0].effect.any());
    EXPECT_TRUE(effects[1].effect.any());
}

TEST(ProvenEffects, OfTwoRulesThatSayTheSameAreNoneEach) {
    const auto effects = effectsOf({rule("water", "fill").color("#111111"), rule("water", "fill").color("#111111")});
    EXPECT_FALSE(effects[0].effect.any());
    EXPECT_FALSE(effects[1].effect.any());
}

TEST(ProvenEffects, OfARefusedRuleAreNone) {
    const auto effects = effectsOf({rule("lake", "fill").color("#111111")});
    ASSERT_EQ(effects.size(), 1u);
    EXPECT_FALSE(effects[0].effect.any());
}

TEST(ProvenEffects, OfARuleThatALevelShutsOutLackThatLevel) {
    const auto effects =
        effectsOf({rule("water", "fill").color("#222222").level("9"), rule("water", "fill").color("#111111")});
    EXPECT_EQ(levelsText(effects[0].effect.styles), "9");
    EXPECT_EQ(levelsText(effects[1].effect.styles), "4-8, 10-21, other");
}

TEST(ProvenEffects, AreGivenForEachStylerOfARuleWithSeveral) {
    const auto effects = effectsOf({rule("water", "geometry").color("#111111").weight("3").visibility("off")});
    ASSERT_EQ(effects.size(), 4u);
    EXPECT_EQ(effects[0].styler, "");
    EXPECT_EQ(effects[1].styler, "color");
    EXPECT_FALSE(effects[1].effect.any()) << "hiding overwrites the colour";
    EXPECT_EQ(effects[2].styler, "visibility");
    EXPECT_TRUE(effects[2].effect.any());
    EXPECT_EQ(effects[3].styler, "weight");
    EXPECT_TRUE(effects[3].effect.any());
}

TEST(ProvenEffects, LeaveTheGlobalSwitchAndTheLogAsTheyWere) {
    g_zrsdk_custom_style_enable = 0;
    effectsOf({rule("lake", "fill").color("#111111")});
    EXPECT_EQ(g_zrsdk_custom_style_enable, 0);
}

TEST(ProvenEffects, TellHowFarTheyAre) {
    std::size_t last = 0;
    const StyleText style(styleOf({rule("water", "fill").color("#111111"), rule("land", "fill").color("#111111")}));
    proveEffects(testMapping(), style.source(), [&](std::size_t done, std::size_t all) {
        EXPECT_EQ(all, 2u);
        EXPECT_LE(done, all);
        last = done;
    });
    EXPECT_EQ(last, 2u);
}

}  // namespace
}  // namespace customstyle_test
