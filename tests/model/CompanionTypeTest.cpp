// Companion types: where the labels of a feature type belong.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

constexpr int kRailway = 24;

class CompanionType : public testing::Test {
protected:
    CustomConfig m_config;
};

struct CompanionRow {
    const char* name;
    int id;
    int companion;
};

constexpr CompanionRow kCompanions[] = {
    {"Entertainment", 9, 58},   {"Estate", 10, 59},        {"Shopping", 11, 65},      {"Transportation", 12, 68},
    {"Highway", 13, 28},        {"NationalWay", 14, 31},   {"ProvincialWay", 15, 33}, {"CityHighway", 16, 35},
    {"Arterial", 17, 36},       {"TertiaryWay", 18, 38},   {"FourLevelWay", 19, 40},  {"Local", 20, 41},
    {"ScenicSpotsWay", 21, 42}, {"UniversityWay", 22, 43}, {"VacationWay", 23, 44},   {"Subway", 25, 26},
};

class CompanionTypeOf : public testing::TestWithParam<CompanionRow> {};

TEST_P(CompanionTypeOf, IsTheTypeOfItsLabels) {
    EXPECT_EQ(CustomConfig().UpdateFeatureTypeId(GetParam().id), GetParam().companion);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, CompanionTypeOf, testing::ValuesIn(kCompanions), caseName);

TEST_F(CompanionType, OfEveryOtherTypeUpTo70IsTheTypeItself) {
    for (int id = 0; id <= 70; ++id) {
        const bool hasCompanion = (id >= 9 && id <= 23) || id == 25;
        if (hasCompanion) continue;
        EXPECT_EQ(m_config.UpdateFeatureTypeId(id), id);
    }
}

TEST_F(CompanionType, OfGridAllAndIdsOutsideIsNone) {
    for (const int id : {71, 72, 73, -1, -5, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(m_config.UpdateFeatureTypeId(id), -1) << id;
}

TEST_F(CompanionType, IsFoundByName) {
    m_config.m_featureTypeIds["railwaylabel"] = 27;
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kRailway), 27);
}

TEST_F(CompanionType, FollowsTheNameOfTheType) {
    m_config.m_featureTypeNames[kHighway] = "motorway";
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kHighway), kHighway);
    m_config.m_featureTypeIds["motorwaylabel"] = 30;
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kHighway), 30);
}

TEST_F(CompanionType, IsTheTypeItselfOnceTheLabelTypeIsGone) {
    m_config.m_featureTypeIds.erase("highwaylabel");
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kHighway), kHighway);
}

TEST_F(CompanionType, LiesBetween4And70) {
    for (const int id : {4, 5, 69, 70}) {
        m_config.m_featureTypeIds["railwaylabel"] = id;
        EXPECT_EQ(m_config.UpdateFeatureTypeId(kRailway), id);
    }
}

TEST_F(CompanionType, OutsideThatRangeDoesNotCount) {
    for (const int id : {3, 0, -1, 71, 72, 73, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        m_config.m_featureTypeIds["railwaylabel"] = id;
        EXPECT_EQ(m_config.UpdateFeatureTypeId(kRailway), kRailway) << id;
    }
}

TEST_F(CompanionType, OfATypeWithLabelAnywhereInItsNameIsTheTypeItself) {
    for (const std::string name : {"label", "labelled", "raillabelway", "railwaylabel"}) {
        m_config.m_featureTypeNames[kRailway] = name;
        m_config.m_featureTypeIds[name + "label"] = 27;
        EXPECT_EQ(m_config.UpdateFeatureTypeId(kRailway), kRailway) << name;
    }
}

TEST_F(CompanionType, OfATypeWithoutANameIsNone) {
    m_config.m_featureTypeNames[kHighway] = "";
    m_config.m_featureTypeIds["label"] = 27;
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kHighway), -1);
}

TEST_F(CompanionType, IsNoneWithoutTheTableOfNames) {
    m_config.m_featureTypeNames.clear();
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kHighway), -1);
    EXPECT_EQ(m_config.UpdateFeatureTypeId(kRailway), -1);
}

class ExemptType : public testing::TestWithParam<int> {};

TEST_P(ExemptType, KeepsItsLabelsWhateverTheTablesHold) {
    CustomConfig config;
    config.m_featureTypeIds[config.m_featureTypeNames[GetParam()] + "label"] = 27;
    EXPECT_EQ(config.UpdateFeatureTypeId(GetParam()), GetParam());
    config.m_featureTypeNames.clear();
    EXPECT_EQ(config.UpdateFeatureTypeId(GetParam()), GetParam());
}

// water, education, medical, scenicspots, district
INSTANTIATE_TEST_SUITE_P(Catalogue, ExemptType, testing::Values(2, 6, 7, 8, 51));

}  // namespace
}  // namespace customstyle_test
