// The feature types: their ids and names.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/CaseName.h"
#include "tests/support/IntLimits.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using namespace _orvik_framework;

struct CatalogueRow {
    int id;
    EMAPCUSTOMSTYLE enumerator;
    const char* name;
};

constexpr CatalogueRow kRows[] = {
    {0, EMAPCUSTOMSTYLE_LAND, "land"},
    {1, EMAPCUSTOMSTYLE_GREEN, "green"},
    {2, EMAPCUSTOMSTYLE_WATER, "water"},
    {3, EMAPCUSTOMSTYLE_BUILDING, "building"},
    {4, EMAPCUSTOMSTYLE_MANMADE, "manmade"},
    {5, EMAPCUSTOMSTYLE_SUBWAYSTATION, "subwaystation"},
    {6, EMAPCUSTOMSTYLE_EDUCATION, "education"},
    {7, EMAPCUSTOMSTYLE_MEDICAL, "medical"},
    {8, EMAPCUSTOMSTYLE_SCENICSPOTS, "scenicspots"},
    {9, EMAPCUSTOMSTYLE_ENTERTAINMENT, "entertainment"},
    {10, EMAPCUSTOMSTYLE_ESTATE, "estate"},
    {11, EMAPCUSTOMSTYLE_SHOPPING, "shopping"},
    {12, EMAPCUSTOMSTYLE_TRANSPORTATION, "transportation"},
    {13, EMAPCUSTOMSTYLE_HIGHWAY, "highway"},
    {14, EMAPCUSTOMSTYLE_NATIONALWAY, "nationalway"},
    {15, EMAPCUSTOMSTYLE_PROVINCIALWAY, "provincialway"},
    {16, EMAPCUSTOMSTYLE_CITYHIGHWAY, "cityhighway"},
    {17, EMAPCUSTOMSTYLE_ARTERIAL, "arterial"},
    {18, EMAPCUSTOMSTYLE_TERTIARYWAY, "tertiaryway"},
    {19, EMAPCUSTOMSTYLE_FOURLEVELWAY, "fourlevelway"},
    {20, EMAPCUSTOMSTYLE_LOCAL, "local"},
    {21, EMAPCUSTOMSTYLE_SCENICSPOTSWAY, "scenicspotsway"},
    {22, EMAPCUSTOMSTYLE_UNIVERSITYWAY, "universityway"},
    {23, EMAPCUSTOMSTYLE_VACATIONWAY, "vacationway"},
    {24, EMAPCUSTOMSTYLE_RAILWAY, "railway"},
    {25, EMAPCUSTOMSTYLE_SUBWAY, "subway"},
    {26, EMAPCUSTOMSTYLE_SUBWAYLABEL, "subwaylabel"},
    {27, EMAPCUSTOMSTYLE_ROADLABEL, "roadlabel"},
    {28, EMAPCUSTOMSTYLE_HIGHWAYLABEL, "highwaylabel"},
    {29, EMAPCUSTOMSTYLE_HIGHWAYENTRANCE, "highwayentrance"},
    {30, EMAPCUSTOMSTYLE_HIGHWAYSIGN, "highwaysign"},
    {31, EMAPCUSTOMSTYLE_NATIONALWAYLABEL, "nationalwaylabel"},
    {32, EMAPCUSTOMSTYLE_NATIONALWAYSIGN, "nationalwaysign"},
    {33, EMAPCUSTOMSTYLE_PROVINCIALWAYLABEL, "provincialwaylabel"},
    {34, EMAPCUSTOMSTYLE_PROVINCIALWAYSIGN, "provincialwaysign"},
    {35, EMAPCUSTOMSTYLE_CITYHIGHWAYLABEL, "cityhighwaylabel"},
    {36, EMAPCUSTOMSTYLE_ARTERIALLABEL, "arteriallabel"},
    {37, EMAPCUSTOMSTYLE_ARTERIALENTRANCE, "arterialentrance"},
    {38, EMAPCUSTOMSTYLE_TERTIARYWAYLABEL, "tertiarywaylabel"},
    {39, EMAPCUSTOMSTYLE_TERTIARYWAYSIGN, "tertiarywaysign"},
    {40, EMAPCUSTOMSTYLE_FOURLEVELWAYLABEL, "fourlevelwaylabel"},
    {41, EMAPCUSTOMSTYLE_LOCALLABEL, "locallabel"},
    {42, EMAPCUSTOMSTYLE_SCENICSPOTSWAYLABEL, "scenicspotswaylabel"},
    {43, EMAPCUSTOMSTYLE_UNIVERSITYWAYLABEL, "universitywaylabel"},
    {44, EMAPCUSTOMSTYLE_VACATIONWAYLABEL, "vacationwaylabel"},
    {45, EMAPCUSTOMSTYLE_DISTRICTLABEL, "districtlabel"},
    {46, EMAPCUSTOMSTYLE_BOUNDARY, "boundary"},
    {47, EMAPCUSTOMSTYLE_CONTINENT, "continent"},
    {48, EMAPCUSTOMSTYLE_COUNTRY, "country"},
    {49, EMAPCUSTOMSTYLE_PROVINCE, "province"},
    {50, EMAPCUSTOMSTYLE_CITY, "city"},
    {51, EMAPCUSTOMSTYLE_DISTRICT, "district"},
    {52, EMAPCUSTOMSTYLE_TOWN, "town"},
    {53, EMAPCUSTOMSTYLE_POILABEL, "poilabel"},
    {54, EMAPCUSTOMSTYLE_AIRPORTLABEL, "airportlabel"},
    {55, EMAPCUSTOMSTYLE_SCENICSPOTSLABEL, "scenicspotslabel"},
    {56, EMAPCUSTOMSTYLE_EDUCATIONLABEL, "educationlabel"},
    {57, EMAPCUSTOMSTYLE_MEDICALLABEL, "medicallabel"},
    {58, EMAPCUSTOMSTYLE_ENTERTAINMENTLABEL, "entertainmentlabel"},
    {59, EMAPCUSTOMSTYLE_ESTATELABEL, "estatelabel"},
    {60, EMAPCUSTOMSTYLE_BUSINESSTOWERLABEL, "businesstowerlabel"},
    {61, EMAPCUSTOMSTYLE_COMPANYLABEL, "companylabel"},
    {62, EMAPCUSTOMSTYLE_GOVERNMENTLABEL, "governmentlabel"},
    {63, EMAPCUSTOMSTYLE_RESTAURANTLABEL, "restaurantlabel"},
    {64, EMAPCUSTOMSTYLE_HOTELLABEL, "hotellabel"},
    {65, EMAPCUSTOMSTYLE_SHOPPINGLABEL, "shoppinglabel"},
    {66, EMAPCUSTOMSTYLE_LIFESERVICELABEL, "lifeservicelabel"},
    {67, EMAPCUSTOMSTYLE_CARSERVICELABEL, "carservicelabel"},
    {68, EMAPCUSTOMSTYLE_TRANSPORTATIONLABEL, "transportationlabel"},
    {69, EMAPCUSTOMSTYLE_FINANCELABEL, "financelabel"},
    {70, EMAPCUSTOMSTYLE_OTHERLABEL, "otherlabel"},
    {71, EMAPCUSTOMSTYLE_GRID, "grid"},
    {72, EMAPCUSTOMSTYLE_ALL, "all"},
};

class FeatureType : public testing::TestWithParam<CatalogueRow> {
protected:
    CustomConfig m_config;
};

TEST_P(FeatureType, HasItsId) {
    EXPECT_EQ(+GetParam().enumerator, GetParam().id);
    EXPECT_EQ(m_config.GetFeatureTypeId(GetParam().name), GetParam().id);
}

TEST_P(FeatureType, HasItsName) {
    EXPECT_EQ(m_config.GetFeatureTypeName(GetParam().id), GetParam().name);
}

TEST_P(FeatureType, StandsInBothTables) {
    EXPECT_EQ(m_config.m_featureTypeIds.at(GetParam().name), GetParam().id);
    EXPECT_EQ(m_config.m_featureTypeNames.at(GetParam().id), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, FeatureType, testing::ValuesIn(kRows), caseName);

class FeatureTypes : public testing::Test {
protected:
    CustomConfig m_config;
};

TEST_F(FeatureTypes, Are73) {
    EXPECT_EQ(std::size(kRows), 73u);
    EXPECT_EQ(m_config.m_featureTypeIds.size(), 73u);
    EXPECT_EQ(m_config.m_featureTypeNames.size(), 73u);
}

TEST_F(FeatureTypes, OutsideTheCatalogueHaveNoName) {
    for (const int id : {-1, 73, 1000, kIntMin, kIntMax}) EXPECT_EQ(m_config.GetFeatureTypeName(id), "") << id;
}

TEST_F(FeatureTypes, OutsideTheCatalogueHaveNoNameEvenIfTheTableHoldsOne) {
    m_config.m_featureTypeNames.insert({{73, "beyond"}, {-1, "before"}});
    EXPECT_EQ(m_config.GetFeatureTypeName(73), "");
    EXPECT_EQ(m_config.GetFeatureTypeName(-1), "");
}

TEST_F(FeatureTypes, AreFoundByTheirExactNameOnly) {
    for (const char* name : {"", "Land", "LAND", "highway ", " highway", "high way", "highwa", "highways", "0", "13"})
        EXPECT_EQ(m_config.GetFeatureTypeId(name), -1) << name;
    EXPECT_EQ(m_config.GetFeatureTypeId(std::string("land\0", 5)), -1);
}

TEST_F(FeatureTypes, AreFoundByTheirWholeNameHoweverLong) {
    for (const char* name :
         {"scenicspotswaylabex", "scenicspotswaylab", "scenicspotswaylabell", "scenicspotswayla", "provincialwaylabels",
          "provincialwaylabe", "transportationlabex", "businesstowerlabe", "businesstowerlabelbusinesstowerlabel"})
        EXPECT_EQ(m_config.GetFeatureTypeId(name), -1) << name;
}

TEST_F(FeatureTypes, TheEmptyNameIsNeverFound) {
    m_config.m_featureTypeIds[""] = 5;
    EXPECT_EQ(m_config.GetFeatureTypeId(""), -1);
}

TEST_F(FeatureTypes, AStoredIdOutsideTheCatalogueIsNotGiven) {
    m_config.m_featureTypeIds.insert({{"below", -1}, {"last", 72}, {"above", 73}, {"lowest", kIntMin}});
    EXPECT_EQ(m_config.GetFeatureTypeId("below"), -1);
    EXPECT_EQ(m_config.GetFeatureTypeId("last"), 72);
    EXPECT_EQ(m_config.GetFeatureTypeId("above"), -1);
    EXPECT_EQ(m_config.GetFeatureTypeId("lowest"), -1);
}

TEST_F(FeatureTypes, FillingATableAgainKeepsTheEntriesThatItHas) {
    m_config.m_featureTypeIds["land"] = 7;
    m_config.m_featureTypeNames[13] = "motorway";
    m_config.initFeatureTypeIdMap();
    m_config.initFeatureTypeNameMap();
    EXPECT_EQ(m_config.m_featureTypeIds.at("land"), 7);
    EXPECT_EQ(m_config.m_featureTypeNames.at(13), "motorway");
}

TEST_F(FeatureTypes, FillingATableAgainRestoresMissingEntries) {
    m_config.m_featureTypeIds.clear();
    m_config.m_featureTypeNames.clear();
    m_config.initFeatureTypeIdMap();
    EXPECT_EQ(m_config.m_featureTypeIds.size(), 73u);
    EXPECT_TRUE(m_config.m_featureTypeNames.empty());
    m_config.initFeatureTypeNameMap();
    EXPECT_EQ(m_config.m_featureTypeNames.size(), 73u);
}

TEST_F(FeatureTypes, From1To70IncludeLabels) {
    for (int id = 1; id <= 70; ++id) EXPECT_EQ(m_config.IsFeatureTypeIncludeLabels(id), 1) << id;
}

TEST_F(FeatureTypes, LandGridAllAndIdsOutsideIncludeNoLabels) {
    for (const int id : {0, 71, 72, 73, -1, -70, kIntMin, kIntMax})
        EXPECT_EQ(m_config.IsFeatureTypeIncludeLabels(id), 0) << id;
}

TEST_F(FeatureTypes, ManmadeDistrictlabelAndPoilabelAreParents) {
    for (const int id : {4, 45, 53}) EXPECT_EQ(m_config.IsParentFeatureType(id), 1) << id;
}

TEST_F(FeatureTypes, NoOthersAreParents) {
    for (int id = -2; id <= 75; ++id) {
        const bool parent = id == 4 || id == 45 || id == 53;
        EXPECT_EQ(m_config.IsParentFeatureType(id), parent ? 1 : 0) << id;
    }
    EXPECT_EQ(m_config.IsParentFeatureType(kIntMin), 0);
    EXPECT_EQ(m_config.IsParentFeatureType(kIntMax), 0);
}

}  // namespace
}  // namespace customstyle_test
