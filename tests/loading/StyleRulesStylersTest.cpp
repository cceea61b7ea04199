// Which stylers of a rule act, in which order, on which type and level.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CaseName.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

// ---- Order ----------------------------------------------------------------------------------------------------------

constexpr char kColorLine[] = R"(ZRX Custom Map: warning, "elementType" is invalid.)";
constexpr char kVisibilityLine[] = R"(ZRX Custom Map: warning, "visibility" is illegal or absent)";
constexpr char kWeightLine[] = R"(ZRX Custom Map: Error, "weight" contain alpha, is illegal)";
constexpr char kFontSizeLine[] = R"(ZRX Custom Map: Error, "fontsize" contain alpha, is illegal)";

TEST(Stylers, ActInTheirOwnOrderWhateverTheOrderInTheFile) {
    LogCapture log;
    loadedWith({rule("highway", "icon").fontsize("x").weight("x").visibility("x").color("x")});
    EXPECT_THAT(log.take(), ElementsAre(kColorLine, kVisibilityLine, kWeightLine, kFontSizeLine));
}

TEST(Stylers, OfARuleAllActBeforeTheNextRule) {
    LogCapture log;
    loadedWith({rule("highway", "icon").weight("x").color("x"), rule("highway", "icon").fontsize("x").color("x")});
    EXPECT_THAT(log.take(), ElementsAre(kColorLine, kWeightLine, kColorLine, kFontSizeLine));
}

TEST(Stylers, ThatAreRefusedDoNotStopTheOthers) {
    LogCapture log;
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233").weight("x").visibility("x")});
    EXPECT_THAT(log.take(), ElementsAre(kVisibilityLine, kWeightLine));
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillColor, 0xff332211U);
}

TEST(Stylers, OfOneRuleActTogether) {
    const LogCapture silent;
    const auto config =
        loadedWith({rule("poilabel", "labels").color("#112233").visibility("on").weight("7").fontsize("9")});
    tagCustomStyle expected = baseRecord(firstStyleId(53));
    expected.m_textFillColor = expected.m_textStrokeColor = 0xff332211;
    expected.m_textFillWeight = expected.m_textStrokeWeight = expected.m_fillWeight = expected.m_borderWeight = 7;
    expected.m_textFillColorSet = expected.m_textStrokeColorSet = 1;
    expected.m_textFillWeightSet = expected.m_textStrokeWeightSet = 1;
    expected.m_fillWeightSet = expected.m_borderWeightSet = 1;
    expected.m_fontSize = 9;
    expected.m_fontSizeSet = expected.m_custom = 1;
    EXPECT_EQ(firstRecordAt(*config, "53"), expected);
}

TEST(Stylers, HidingComesAfterTheColour) {
    const auto config = loadedWith({rule("green", "geometry").visibility("off").color("#112233")});
    EXPECT_EQ(firstRecordAt(*config, "1").m_fillColor, 0U);
}

TEST(Stylers, ThatAreNotTextsAreLeftOut) {
    const LogCapture silent;
    const auto config = loadedWith(
        {rule("highway", "geometry.fill").color("#112233").styler("weight", "3").styler("visibility", "false")});
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillColorSet, 1);
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillWeightSet, 0);
}

// ---- Members --------------------------------------------------------------------------------------------------------

/// A store to which one rule, given as JSON text, has been applied.
std::unique_ptr<CustomConfig> styledWithRule(const std::string& rule) {
    std::unique_ptr<CustomConfig> config = loadedWith({});
    config->ParseCustomConfig(parsed("[" + rule + "]").get());
    return config;
}

TEST(Members, MayStandInAnyOrderAmongOthers) {
    const LogCapture silent;
    const auto config = styledWithRule(
        R"({"x":1,"stylers":{"y":2,"color":"#112233"},"level":"10","elementType":"fill","featureType":"land"})");
    EXPECT_THAT(keysOf(*config), ElementsAre("0"));
}

TEST(Members, ThatStandTwiceCountOnce) {
    const LogCapture silent;
    const auto config =
        styledWithRule(R"({"featureType":"land","featureType":"water","elementType":"geometry","elementType":"icon",)"
                       R"("stylers":{"color":"#112233","color":"#445566"},"stylers":5})");
    EXPECT_THAT(keysOf(*config), ElementsAre("0"));
    EXPECT_EQ(firstRecordAt(*config, "0").m_fillColor, 0xff332211U);
}

TEST(Members, AreFoundInOtherLetterCase) {
    const LogCapture silent;
    const auto config =
        styledWithRule(R"({"FEATURETYPE":"land","ElementType":"geometry","Stylers":{"color":"#112233","Level":"10"}})");
    EXPECT_THAT(keysOf(*config), ElementsAre("0:10"));
}

TEST(Members, AStylerInOtherLetterCaseIsLeftOutBesideGoodOnes) {
    const LogCapture silent;
    const auto config =
        styledWithRule(R"({"featureType":"land","elementType":"geometry","stylers":{"Color":"#112233","weight":"3"}})");
    EXPECT_EQ(firstRecordAt(*config, "0").m_fillColorSet, 0);
    EXPECT_EQ(firstRecordAt(*config, "0").m_fillWeight, 3);
}

// ---- Feature type and level -----------------------------------------------------------------------------------------

struct ScopeCase {
    const char* name;
    const char* featureType;
    const char* level;  ///< as JSON
    const char* key;
};

const ScopeCase kScopes[] = {
    {"TheFirstType", "land", R"("10")", "0:10"},
    {"ATypeInTheMiddle", "building", R"("10")", "3:10"},
    {"TheLastTypeWithLabels", "otherlabel", R"("10")", "70:10"},
    {"TheGrid", "grid", R"("10")", "71:10"},
    {"TheWildcard", "all", R"("10")", "72:10"},
    {"LevelAsANumber", "building", "10", "3"},
    {"LevelIsNull", "building", "null", "3"},
    {"LevelIsTooHigh", "building", R"("25")", "3:21"},
    {"LevelIsTooLow", "building", R"("2")", "3:4"},
    {"LevelWithoutDigits", "building", R"("x")", "3:4"},
    {"LevelWithoutText", "building", R"("")", "3:4"},
};

class RuleScope : public testing::TestWithParam<ScopeCase> {};

TEST_P(RuleScope, IsTheKeyOfEachStyler) {
    const LogCapture silent;
    for (const char* styler : {"color", "visibility", "weight"}) {
        const char* value = std::string(styler) == "visibility" ? R"("off")" : R"("112233")";
        const auto config = loadedWith(
            {rule(GetParam().featureType, "geometry").styler(styler, value).styler("level", GetParam().level)});
        EXPECT_THAT(keysOf(*config), ElementsAre(GetParam().key)) << styler;
    }
}

INSTANTIATE_TEST_SUITE_P(StyleRules, RuleScope, testing::ValuesIn(kScopes), caseName);

TEST(StyleRules, TheScopeIsTheKeyOfAFontSize) {
    const auto config =
        loadedWith({rule("highway", "labels").fontsize("9").level("10"), rule("highway", "labels").fontsize("9")});
    EXPECT_THAT(keysOf(*config), UnorderedElementsAre("13:10", "28:10", "13", "28"));
}

TEST(StyleRules, ALaterRuleOverwritesAnEarlierOne) {
    const auto config = loadedWith(
        {rule("highway", "geometry.fill").color("#112233"), rule("highway", "geometry.fill").color("#445566")});
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillColor, 0xff665544U);
}

TEST(StyleRules, ASecondDocumentAddsToTheFirst) {
    const auto config = loadedWith({rule("highway", "geometry.fill").color("#112233")});
    config->ParseCustomConfig(parsed(styleOf({rule("highway", "geometry.stroke").color("#445566")})).get());
    EXPECT_EQ(firstRecordAt(*config, "13").m_fillColor, 0xff332211U);
    EXPECT_EQ(firstRecordAt(*config, "13").m_borderColor, 0xff665544U);
    EXPECT_EQ(config->m_usedLevelSlots, 1);
}

TEST(StyleRules, ARecordWithoutMemoryIsLeftOutOfItsKey) {
    const auto config = loadedWith({});
    const Tree rules = parsed(styleOf({rule("highway", "geometry.fill").color("#112233")}));
    const FaultyMemory memory(0);
    EXPECT_EQ(config->ParseCustomConfig(rules.get()), 1);
    EXPECT_TRUE(memory.hasFailed());
    EXPECT_EQ(recordAt(*config, "13", firstStyleId(13)), nullptr);
    ASSERT_NE(recordAt(*config, "13", secondStyleId(13)), nullptr);
    EXPECT_EQ(recordAt(*config, "13", secondStyleId(13))->m_fillColor, 0xff332211U);
}

}  // namespace
}  // namespace customstyle_test
