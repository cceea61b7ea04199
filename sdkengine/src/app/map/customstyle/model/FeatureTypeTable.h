// The feature type catalogue.
#pragma once

#include <algorithm>
#include <iterator>

#include "customstyle/CustomConfig.h"

namespace _orvik_framework {

struct FeatureTypeRow {
    EMAPCUSTOMSTYLE id;
    const char* name;  ///< as files spell it
};

inline constexpr FeatureTypeRow kFeatureTypes[] = {
    {EMAPCUSTOMSTYLE_LAND, "land"},
    {EMAPCUSTOMSTYLE_GREEN, "green"},
    {EMAPCUSTOMSTYLE_WATER, "water"},
    {EMAPCUSTOMSTYLE_BUILDING, "building"},
    {EMAPCUSTOMSTYLE_MANMADE, "manmade"},
    {EMAPCUSTOMSTYLE_SUBWAYSTATION, "subwaystation"},
    {EMAPCUSTOMSTYLE_EDUCATION, "education"},
    {EMAPCUSTOMSTYLE_MEDICAL, "medical"},
    {EMAPCUSTOMSTYLE_SCENICSPOTS, "scenicspots"},
    {EMAPCUSTOMSTYLE_ENTERTAINMENT, "entertainment"},
    {EMAPCUSTOMSTYLE_ESTATE, "estate"},
    {EMAPCUSTOMSTYLE_SHOPPING, "shopping"},
    {EMAPCUSTOMSTYLE_TRANSPORTATION, "transportation"},
    {EMAPCUSTOMSTYLE_HIGHWAY, "highway"},
    {EMAPCUSTOMSTYLE_NATIONALWAY, "nationalway"},
    {EMAPCUSTOMSTYLE_PROVINCIALWAY, "provincialway"},
    {EMAPCUSTOMSTYLE_CITYHIGHWAY, "cityhighway"},
    {EMAPCUSTOMSTYLE_ARTERIAL, "arterial"},
    {EMAPCUSTOMSTYLE_TERTIARYWAY, "tertiaryway"},
    {EMAPCUSTOMSTYLE_FOURLEVELWAY, "fourlevelway"},
    {EMAPCUSTOMSTYLE_LOCAL, "local"},
    {EMAPCUSTOMSTYLE_SCENICSPOTSWAY, "scenicspotsway"},
    {EMAPCUSTOMSTYLE_UNIVERSITYWAY, "universityway"},
    {EMAPCUSTOMSTYLE_VACATIONWAY, "vacationway"},
    {EMAPCUSTOMSTYLE_RAILWAY, "railway"},
    {EMAPCUSTOMSTYLE_SUBWAY, "subway"},
    {EMAPCUSTOMSTYLE_SUBWAYLABEL, "subwaylabel"},
    {EMAPCUSTOMSTYLE_ROADLABEL, "roadlabel"},
    {EMAPCUSTOMSTYLE_HIGHWAYLABEL, "highwaylabel"},
    {EMAPCUSTOMSTYLE_HIGHWAYENTRANCE, "highwayentrance"},
    {EMAPCUSTOMSTYLE_HIGHWAYSIGN, "highwaysign"},
    {EMAPCUSTOMSTYLE_NATIONALWAYLABEL, "nationalwaylabel"},
    {EMAPCUSTOMSTYLE_NATIONALWAYSIGN, "nationalwaysign"},
    {EMAPCUSTOMSTYLE_PROVINCIALWAYLABEL, "provincialwaylabel"},
    {EMAPCUSTOMSTYLE_PROVINCIALWAYSIGN, "provincialwaysign"},
    {EMAPCUSTOMSTYLE_CITYHIGHWAYLABEL, "cityhighwaylabel"},
    {EMAPCUSTOMSTYLE_ARTERIALLABEL, "arteriallabel"},
    {EMAPCUSTOMSTYLE_ARTERIALENTRANCE, "arterialentrance"},
    {EMAPCUSTOMSTYLE_TERTIARYWAYLABEL, "tertiarywaylabel"},
    {EMAPCUSTOMSTYLE_TERTIARYWAYSIGN, "tertiarywaysign"},
    {EMAPCUSTOMSTYLE_FOURLEVELWAYLABEL, "fourlevelwaylabel"},
    {EMAPCUSTOMSTYLE_LOCALLABEL, "locallabel"},
    {EMAPCUSTOMSTYLE_SCENICSPOTSWAYLABEL, "scenicspotswaylabel"},
    {EMAPCUSTOMSTYLE_UNIVERSITYWAYLABEL, "universitywaylabel"},
    {EMAPCUSTOMSTYLE_VACATIONWAYLABEL, "vacationwaylabel"},
    {EMAPCUSTOMSTYLE_DISTRICTLABEL, "districtlabel"},
    {EMAPCUSTOMSTYLE_BOUNDARY, "boundary"},
    {EMAPCUSTOMSTYLE_CONTINENT, "continent"},
    {EMAPCUSTOMSTYLE_COUNTRY, "country"},
    {EMAPCUSTOMSTYLE_PROVINCE, "province"},
    {EMAPCUSTOMSTYLE_CITY, "city"},
    {EMAPCUSTOMSTYLE_DISTRICT, "district"},
    {EMAPCUSTOMSTYLE_TOWN, "town"},
    {EMAPCUSTOMSTYLE_POILABEL, "poilabel"},
    {EMAPCUSTOMSTYLE_AIRPORTLABEL, "airportlabel"},
    {EMAPCUSTOMSTYLE_SCENICSPOTSLABEL, "scenicspotslabel"},
    {EMAPCUSTOMSTYLE_EDUCATIONLABEL, "educationlabel"},
    {EMAPCUSTOMSTYLE_MEDICALLABEL, "medicallabel"},
    {EMAPCUSTOMSTYLE_ENTERTAINMENTLABEL, "entertainmentlabel"},
    {EMAPCUSTOMSTYLE_ESTATELABEL, "estatelabel"},
    {EMAPCUSTOMSTYLE_BUSINESSTOWERLABEL, "businesstowerlabel"},
    {EMAPCUSTOMSTYLE_COMPANYLABEL, "companylabel"},
    {EMAPCUSTOMSTYLE_GOVERNMENTLABEL, "governmentlabel"},
    {EMAPCUSTOMSTYLE_RESTAURANTLABEL, "restaurantlabel"},
    {EMAPCUSTOMSTYLE_HOTELLABEL, "hotellabel"},
    {EMAPCUSTOMSTYLE_SHOPPINGLABEL, "shoppinglabel"},
    {EMAPCUSTOMSTYLE_LIFESERVICELABEL, "lifeservicelabel"},
    {EMAPCUSTOMSTYLE_CARSERVICELABEL, "carservicelabel"},
    {EMAPCUSTOMSTYLE_TRANSPORTATIONLABEL, "transportationlabel"},
    {EMAPCUSTOMSTYLE_FINANCELABEL, "financelabel"},
    {EMAPCUSTOMSTYLE_OTHERLABEL, "otherlabel"},
    {EMAPCUSTOMSTYLE_GRID, "grid"},
    {EMAPCUSTOMSTYLE_ALL, "all"},
};

constexpr bool eachRowStandsAtItsId() {
    int id = 0;
    for (const FeatureTypeRow& row : kFeatureTypes) {
        if (row.id != id++) return false;
    }
    return true;
}
static_assert(std::size(kFeatureTypes) == kFeatureTypeCount && eachRowStandsAtItsId());

/// Types that answer a query only after all others, in the order in which they are asked.
inline constexpr EMAPCUSTOMSTYLE kParentFeatureTypes[] = {EMAPCUSTOMSTYLE_MANMADE, EMAPCUSTOMSTYLE_DISTRICTLABEL,
                                                          EMAPCUSTOMSTYLE_POILABEL};

constexpr bool isParentFeatureType(int id) {
    return std::ranges::find(kParentFeatureTypes, id) != std::end(kParentFeatureTypes);
}

/// Loops over feature types end before this one: "all" is a wildcard of rules, not a type that content has.
inline constexpr int kFeatureTypesEnd = EMAPCUSTOMSTYLE_ALL;

/// Whether an id stands in the catalogue, "all" included.
constexpr bool isFeatureType(int id) {
    return static_cast<unsigned>(id) <= EMAPCUSTOMSTYLE_ALL;
}

}  // namespace _orvik_framework
