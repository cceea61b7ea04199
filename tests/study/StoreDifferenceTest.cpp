// Where the answers of two stores differ.
#include <gtest/gtest.h>

#include <cstddef>

#include "customstyle/model/RecordStorage.h"
#include "tests/study/Sources.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/study/StoreDifference.h"

namespace customstyle_test {
namespace {

using customstyle_tool::differenceBetween;
using customstyle_tool::Effect;
using customstyle_tool::fullDifferenceBetween;
using customstyle_tool::levelsText;

Effect differenceOf(std::initializer_list<RuleBuilder> left, std::initializer_list<RuleBuilder> right) {
    const QueriesEnabled enabled;
    return differenceBetween(*loadedWith(left), *loadedWith(right));
}

TEST(StoreDifference, OfEqualStoresIsNone) {
    EXPECT_FALSE(
        differenceOf({rule("water", "geometry").color("#112233")}, {rule("water", "geometry").color("#112233")}).any());
}

TEST(StoreDifference, OfAColourIsAtEveryLevel) {
    const Effect effect = differenceOf({}, {rule("water", "geometry").color("#112233")});
    EXPECT_EQ(levelsText(effect.styles), "all levels");
    EXPECT_EQ(effect.styleIds, 2u);
    EXPECT_TRUE(effect.icons.none() && effect.land.none() && effect.grid.none());
}

TEST(StoreDifference, OfALevelRuleIsAtItsLevel) {
    const Effect effect = differenceOf({}, {rule("highway", "all").color("#112233").level("12")});
    EXPECT_EQ(levelsText(effect.styles), "12");
    EXPECT_EQ(effect.styleIds, 4u);
}

TEST(StoreDifference, OfEveryIconIsForEveryStyleId) {
    const Effect effect = differenceOf({}, {rule("all", "icon").visibility("off")});
    EXPECT_EQ(levelsText(effect.icons), "all levels");
    EXPECT_TRUE(effect.styles.none());
    EXPECT_EQ(effect.styleIds, 145u) << "and one that the mapping does not list";
}

TEST(StoreDifference, OfEveryIconDoesNotHangOnTheGrid) {
    const Effect effect = differenceOf({rule("grid", "fill").color("#112233")},
                                       {rule("grid", "fill").color("#112233"), rule("all", "icon").visibility("off")});
    EXPECT_EQ(levelsText(effect.icons), "all levels");
}

TEST(StoreDifference, OfTheBackgrounds) {
    const Effect land = differenceOf({}, {rule("land", "fill").color("#112233").level("5")});
    EXPECT_EQ(levelsText(land.land), "5");
    const Effect grid = differenceOf({}, {rule("grid", "fill").color("#112233").level("5")});
    EXPECT_EQ(levelsText(grid.grid), "all levels");
    EXPECT_TRUE(grid.styles.none());
}

TEST(Effect, OfAnyKindCounts) {
    EXPECT_FALSE(Effect().any());
    for (const auto part : {&Effect::styles, &Effect::icons, &Effect::land, &Effect::grid}) {
        Effect effect;
        (effect.*part).set(3);
        EXPECT_TRUE(effect.any());
    }
}

TEST(StoreDifference, OfARecordTakenOutShowsAtItsLevel) {
    const Effect effect = differenceOf(
        {rule("water", "geometry").color("#112233")},
        {rule("water", "geometry").color("#112233"), rule("water", "labels.topsurface").visibility("off").level("9")});
    EXPECT_EQ(levelsText(effect.styles), "9");
}

TEST(StoreDifference, OfAStyleIdThatOneStoreHasAloneIsAtEveryLevel) {
    const auto left = loadedWith({rule("water", "geometry").color("#112233")});
    const auto right = loadedWith({rule("water", "geometry").color("#112233")});
    tagCustomStyle another = firstRecordAt(*right, "2");
    another.m_ID = 99999;
    storeCopy(*right->m_keyStyleMaps.at("2"), another);
    const QueriesEnabled enabled;
    const Effect effect = differenceBetween(*left, *right);
    EXPECT_EQ(levelsText(effect.styles), "all levels");
    EXPECT_EQ(effect.styleIds, 1u);
}

TEST(StoreDifference, OfAStyleIdWithoutARecordIsNone) {
    const auto left = loadedWith({rule("water", "geometry").color("#112233")});
    const auto right = loadedWith({rule("water", "geometry").color("#112233")});
    (*right->m_keyStyleMaps.at("2"))[_orvik_framework::storedKey(99999)] = nullptr;
    const QueriesEnabled enabled;
    EXPECT_FALSE(differenceBetween(*left, *right).any());
}

TEST(StoreDifference, OfBytesThatBelongToNoFieldIsNone) {
    constexpr std::size_t kBehindTheSize = offsetof(tagCustomStyle, m_fontSize) + 1;
    static_assert(kBehindTheSize < offsetof(tagCustomStyle, m_fontSizeSet));
    const auto left = loadedWith({rule("water", "geometry").color("#112233")});
    const auto right = loadedWith({rule("water", "geometry").color("#112233")});
    reinterpret_cast<unsigned char*>(&firstRecordAt(*right, "2"))[kBehindTheSize] ^= 1;
    const QueriesEnabled enabled;
    EXPECT_FALSE(differenceBetween(*left, *right).any());
}

class DifferenceOfRandomStyles : public testing::TestWithParam<unsigned> {};

TEST_P(DifferenceOfRandomStyles, IsTheSameWithAndWithoutTheShortCut) {
    const LogSilence quiet;
    const QueriesEnabled enabled;
    RandomFiles files(GetParam());
    const Tree mapping = parsed(files.mapping());
    CustomConfig left;
    CustomConfig right;
    left.ParseMappingConfig(mapping.get());
    right.ParseMappingConfig(mapping.get());
    for (int i = 0; i < 30; ++i) {
        const Tree rule = parsed("[" + files.rule() + "]");
        left.ParseCustomConfig(rule.get());
        if (i % 10 != 0) right.ParseCustomConfig(rule.get());
    }
    const Effect quick = differenceBetween(left, right);
    const Effect full = fullDifferenceBetween(left, right);
    EXPECT_EQ(quick.styles, full.styles);
    EXPECT_EQ(quick.icons, full.icons);
    EXPECT_EQ(quick.land, full.land);
    EXPECT_EQ(quick.grid, full.grid);
    EXPECT_EQ(quick.styleIds, full.styleIds);
}

INSTANTIATE_TEST_SUITE_P(Seeds, DifferenceOfRandomStyles, testing::Range(0u, 40u));

}  // namespace
}  // namespace customstyle_test
