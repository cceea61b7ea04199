// The order in which feature types answer, parents last, and the parents asked directly.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/queries/QueryStore.h"
#include "tests/support/CaseName.h"
#include "tests/support/IntLimits.h"

namespace customstyle_test {
namespace {

struct OrderCase {
    const char* name;
    std::vector<std::string> keys;  // keys under which style id 7 is customised
    int answer;                     // at level 15
};

class FeatureTypeOrder : public testing::TestWithParam<OrderCase> {};

TEST_P(FeatureTypeOrder, DecidesWhichTypeAnswers) {
    QueryStore store;
    for (const std::string& key : GetParam().keys) store.add(key, 7);
    const QueriesEnabled enabled;
    tagCustomStyle style{};
    EXPECT_EQ(store.GetStyleFromConfig(style, 7, 15), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(
    StyleLookup, FeatureTypeOrder,
    testing::Values(OrderCase{"TheLowestTypeAnswers", {"9", "13"}, 9},
                    OrderCase{"TheOrderOfRegistrationDoesNotMatter", {"13", "9"}, 9},
                    OrderCase{"OrderIsByNumberNotByText", {"10", "9"}, 9}, OrderCase{"LandIsFirst", {"0", "1"}, 0},
                    OrderCase{"GridIsLast", {"71", "70"}, 70}, OrderCase{"GridAlone", {"71"}, 71},
                    OrderCase{"ALevelOfAHigherTypeDoesNotOvertake", {"9", "13:15"}, 9},
                    OrderCase{"ALevelOfALowerType", {"9:15", "13"}, 9},
                    OrderCase{"AnotherLevelOfALowerTypeDoesNotCount", {"9:14", "13"}, 13},
                    OrderCase{"ParentsComeAfterHigherTypes", {"4", "45", "53", "71"}, 71},
                    OrderCase{"AParentComesAfterAHigherType", {"4", "13"}, 13},
                    OrderCase{"ParentsComeAfterLevelsOfHigherTypes", {"45", "46:15"}, 46},
                    OrderCase{"ManmadeAlone", {"4"}, 4}, OrderCase{"DistrictlabelAlone", {"45"}, 45},
                    OrderCase{"PoilabelAlone", {"53"}, 53}, OrderCase{"ManmadeBeforeDistrictlabel", {"45", "4"}, 4},
                    OrderCase{"ManmadeBeforePoilabel", {"53", "4"}, 4},
                    OrderCase{"DistrictlabelBeforePoilabel", {"53", "45"}, 45},
                    OrderCase{"ALevelOfAParent", {"53:15"}, 53},
                    OrderCase{"AnotherLevelOfAParentDoesNotCount", {"4:14", "45"}, 45},
                    OrderCase{"AllIsNeverTried", {"72"}, -1}, OrderCase{"ALevelOfAllIsNeverTried", {"72:15"}, -1}),
    caseName);

TEST(FeatureTypes, AllOfThemButAllCanAnswer) {
    const QueriesEnabled enabled;
    for (int featureType = 0; featureType <= 71; ++featureType) {
        QueryStore store;
        store.add(std::to_string(featureType), 7);
        tagCustomStyle style{};
        EXPECT_EQ(store.GetStyleFromConfig(style, 7, 15), featureType);
    }
}

TEST(FeatureTypes, AnUnmarkedRecordOfALowerTypeDoesNotAnswer) {
    const QueriesEnabled enabled;
    QueryStore store;
    store.add("9", 7).m_custom = 0;
    store.add("13", 7);
    store.slot("12")[recordKey(7)] = nullptr;
    tagCustomStyle style{};
    EXPECT_EQ(store.GetStyleFromConfig(style, 7, 15), 13);
}

// ---- The parents asked directly -------------------------------------------------------------------------------------

class ParentStyle : public testing::Test {
protected:
    int ofParents(int level, unsigned styleId = 7) {
        m_style = fullRecord(9999);
        return m_store.GetParentFeatureTypeCustomStyle(m_style, level, styleId);
    }
    int ofType(int featureType, int level, unsigned styleId = 7) {
        m_style = fullRecord(9999);
        return m_store.GetParentFeatureTypeCustomStyle(m_style, level, featureType, styleId);
    }
    void expectUntouched() const { EXPECT_EQ(m_style, fullRecord(9999)); }

    QueryStore m_store;  // the switch is off in these tests
    tagCustomStyle m_style{};
};

TEST_F(ParentStyle, AnswersWhileTheSwitchIsOff) {
    m_store.add("45", 7) = fullRecord(7);
    EXPECT_EQ(ofParents(15), 45);
    EXPECT_EQ(m_style, fullRecord(7));
    EXPECT_EQ(ofType(45, 15), 45);
    EXPECT_EQ(m_style, fullRecord(7));
}

TEST_F(ParentStyle, IsNoneForOtherTypes) {
    for (int featureType = 0; featureType <= 72; ++featureType) {
        if (m_store.IsParentFeatureType(featureType) == 0) m_store.add(std::to_string(featureType), 7);
    }
    EXPECT_EQ(ofParents(15), -1);
    expectUntouched();
}

TEST_F(ParentStyle, ComesFrom4Then45Then53) {
    for (const int parent : {53, 45, 4}) {
        m_store.add(std::to_string(parent), 7);
        EXPECT_EQ(ofParents(15), parent);
    }
}

TEST_F(ParentStyle, PassesOverAParentWithoutACustomisedRecord) {
    m_store.add("4", 7).m_custom = 0;
    m_store.slot("45")[recordKey(7)] = nullptr;
    m_store.add("53", 7);
    EXPECT_EQ(ofParents(15), 53);
}

TEST_F(ParentStyle, IsShutOutByALevelOfItsOwn) {
    m_store.add("4", 7);
    m_store.slot("4:15");
    EXPECT_EQ(ofParents(15), -1);
    expectUntouched();
    EXPECT_EQ(ofParents(14), 4);
}

TEST_F(ParentStyle, OfOneTypeAnswersForAnyTypeThatHasAKey) {
    for (const int featureType : {0, 13, 53, 71, 72}) {
        m_store.add(std::to_string(featureType), 7);
        EXPECT_EQ(ofType(featureType, 15), featureType);
    }
}

TEST_F(ParentStyle, OfOneTypeDoesNotAskOthers) {
    m_store.add("4", 7);
    m_store.add("13", 7);
    EXPECT_EQ(ofType(45, 15), -1);
    expectUntouched();
}

TEST_F(ParentStyle, OfOneTypeChoosesItsKeyByTheLevel) {
    m_store.add("13", 7, 100);
    m_store.add("13:15", 7, 115);
    ofType(13, 15);
    EXPECT_EQ(m_style.m_fillColor, 115u);
    ofType(13, 14);
    EXPECT_EQ(m_style.m_fillColor, 100u);
}

TEST_F(ParentStyle, OfOneTypeNeedsACustomisedRecord) {
    m_store.add("13", 7).m_custom = 0;
    EXPECT_EQ(ofType(13, 15), -1);
    expectUntouched();
    EXPECT_EQ(ofType(13, 15, 8), -1);
    expectUntouched();
}

TEST_F(ParentStyle, OfATypeOutsideTheCatalogueIsNone) {
    m_store.add("13:15", 7);
    m_store.add("0", 7);
    for (const int featureType : {-1, 73, 1315, kIntMin, kIntMax}) {
        for (const int level : {15, kIntMin, kIntMax}) EXPECT_EQ(ofType(featureType, level), -1) << featureType;
    }
    expectUntouched();
}

// ---- Keys in effect -------------------------------------------------------------------------------------------------

class KeyInEffect : public testing::Test {
protected:
    KeyInEffect() { m_config.m_styleEffectLevels = {{"13", 1}, {"13:16", 0}, {"20", 2}, {"20:16", -1}}; }

    CustomConfig m_config;
};

TEST_F(KeyInEffect, AtAllLevelsIsOneMarked1) {
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("13"), 1);
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("13:16"), 0);
}

TEST_F(KeyInEffect, AtAGivenLevelIsOneMarked0) {
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel("13:16"), 1);
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel("13"), 0);
}

TEST_F(KeyInEffect, WithAnotherMarkIsNone) {
    for (const char* key : {"20", "20:16"}) {
        EXPECT_EQ(m_config.IsStyleEffectAtAllLevel(key), 0) << key;
        EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel(key), 0) << key;
    }
}

TEST_F(KeyInEffect, MustBeThereToTheLetter) {
    for (const char* key : {"14", "1", "130", "13:", "13:1", "13:160", "013", " 13", ""}) {
        EXPECT_EQ(m_config.IsStyleEffectAtAllLevel(key), 0) << key;
        EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel(key), 0) << key;
    }
}

TEST_F(KeyInEffect, IsComparedWholeWhateverItsLength) {
    m_config.m_styleEffectLevels = {{"0123456789abcdefX", 1}, {"0123456789abcdefZ", 0}, {"0123456789abcdef", 1}};
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("0123456789abcdefX"), 1);
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("0123456789abcdefY"), 0);
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("0123456789abcdefZ"), 0);
    EXPECT_EQ(m_config.IsStyleEffectAtAllLevel("0123456789abcdef"), 1);
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel("0123456789abcdefX"), 0);
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel("0123456789abcdefY"), 0);
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel("0123456789abcdefZ"), 1);
    EXPECT_EQ(m_config.IsStyleEffectAtGivenLevel(std::string(1000, 'x').c_str()), 0);
}

TEST_F(KeyInEffect, AskingAddsNothing) {
    m_config.IsStyleEffectAtAllLevel("14");
    m_config.IsStyleEffectAtGivenLevel("14:4");
    EXPECT_EQ(m_config.m_styleEffectLevels.size(), 4u);
}

}  // namespace
}  // namespace customstyle_test
