// The feature type catalogue: the facts about each feature type, one row each.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "customstyle/CustomConfig.h"

namespace [[gnu::visibility("default")]] _orvik_framework {

/// Which type has the labels of a type's content.
enum class LabelOwner {
    Nobody,    ///< there are none
    Itself,    ///< the type keeps them, whatever other types are called
    Namesake,  ///< the type of the same name with "label" at its end, if it can be a companion; otherwise itself
};

/// The facts about a feature type. Ids outside the catalogue have no row, and no column applies to them.
struct FeatureTypeRow {
    EMAPCUSTOMSTYLE id;
    const char* name;    ///< as files spell it
    bool carriesLabels;  ///< rules can address its labels; for other types they reach the geometry instead
    LabelOwner labelOwner;
    bool canBeCompanion;     ///< can hold the labels of its namesake
    bool isParent;           ///< answers a query only after all others
    bool hasFixedWeight;     ///< drawn in the renderer's own width
    bool isOpaque;           ///< its colours lose their alpha
    bool drawsGeometry;      ///< its content has a geometry; all others are labels, signs and names of places
    EMAPCUSTOMSTYLE family;  ///< the parent whose content it seems to be, EMAPCUSTOMSTYLE_ALL for none
};

inline constexpr auto kFeatureTypes = [] {
    constexpr bool yes = true;
    constexpr bool no = false;
    using enum LabelOwner;
    constexpr EMAPCUSTOMSTYLE manmade = EMAPCUSTOMSTYLE_MANMADE;
    constexpr EMAPCUSTOMSTYLE district = EMAPCUSTOMSTYLE_DISTRICTLABEL;
    constexpr EMAPCUSTOMSTYLE poi = EMAPCUSTOMSTYLE_POILABEL;
    constexpr EMAPCUSTOMSTYLE none = EMAPCUSTOMSTYLE_ALL;
    // clang-format off
    return std::array<FeatureTypeRow, kFeatureTypeCount>{{
    //                                                         labels owner     comp- pa-  fixed opaque geo-   family
    //                                                                          nion  rent wght         metry
    {EMAPCUSTOMSTYLE_LAND,                "land",              no,    Namesake, no,   no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_GREEN,               "green",             yes,   Namesake, no,   no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_WATER,               "water",             yes,   Itself,   no,   no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_BUILDING,            "building",          yes,   Namesake, no,   no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_MANMADE,             "manmade",           yes,   Namesake, yes,  yes, no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_SUBWAYSTATION,       "subwaystation",     yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_EDUCATION,           "education",         yes,   Itself,   yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_MEDICAL,             "medical",           yes,   Itself,   yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_SCENICSPOTS,         "scenicspots",       yes,   Itself,   yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_ENTERTAINMENT,       "entertainment",     yes,   Namesake, yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_ESTATE,              "estate",            yes,   Namesake, yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_SHOPPING,            "shopping",          yes,   Namesake, yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_TRANSPORTATION,      "transportation",    yes,   Namesake, yes,  no,  no,   no,    yes,   manmade},
    {EMAPCUSTOMSTYLE_HIGHWAY,             "highway",           yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_NATIONALWAY,         "nationalway",       yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_PROVINCIALWAY,       "provincialway",     yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_CITYHIGHWAY,         "cityhighway",       yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_ARTERIAL,            "arterial",          yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_TERTIARYWAY,         "tertiaryway",       yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_FOURLEVELWAY,        "fourlevelway",      yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_LOCAL,               "local",             yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_SCENICSPOTSWAY,      "scenicspotsway",    yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_UNIVERSITYWAY,       "universityway",     yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_VACATIONWAY,         "vacationway",       yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_RAILWAY,             "railway",           yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_SUBWAY,              "subway",            yes,   Namesake, yes,  no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_SUBWAYLABEL,         "subwaylabel",       yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_ROADLABEL,           "roadlabel",         yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_HIGHWAYLABEL,        "highwaylabel",      yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_HIGHWAYENTRANCE,     "highwayentrance",   yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_HIGHWAYSIGN,         "highwaysign",       yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_NATIONALWAYLABEL,    "nationalwaylabel",  yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_NATIONALWAYSIGN,     "nationalwaysign",   yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_PROVINCIALWAYLABEL,  "provincialwaylabel",yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_PROVINCIALWAYSIGN,   "provincialwaysign", yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_CITYHIGHWAYLABEL,    "cityhighwaylabel",  yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_ARTERIALLABEL,       "arteriallabel",     yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_ARTERIALENTRANCE,    "arterialentrance",  yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_TERTIARYWAYLABEL,    "tertiarywaylabel",  yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_TERTIARYWAYSIGN,     "tertiarywaysign",   yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_FOURLEVELWAYLABEL,   "fourlevelwaylabel", yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_LOCALLABEL,          "locallabel",        yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_SCENICSPOTSWAYLABEL, "scenicspotswaylabel",yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_UNIVERSITYWAYLABEL,  "universitywaylabel",yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_VACATIONWAYLABEL,    "vacationwaylabel",  yes,   Namesake, yes,  no,  no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_DISTRICTLABEL,       "districtlabel",     yes,   Namesake, yes,  yes, no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_BOUNDARY,            "boundary",          yes,   Namesake, yes,  no,  yes,  yes,   yes,   none},
    {EMAPCUSTOMSTYLE_CONTINENT,           "continent",         yes,   Namesake, yes,  no,  no,   no,    no,    district},
    {EMAPCUSTOMSTYLE_COUNTRY,             "country",           yes,   Namesake, yes,  no,  no,   no,    no,    district},
    {EMAPCUSTOMSTYLE_PROVINCE,            "province",          yes,   Namesake, yes,  no,  no,   no,    no,    district},
    {EMAPCUSTOMSTYLE_CITY,                "city",              yes,   Namesake, yes,  no,  no,   no,    no,    district},
    {EMAPCUSTOMSTYLE_DISTRICT,            "district",          yes,   Itself,   yes,  no,  no,   no,    no,    district},
    {EMAPCUSTOMSTYLE_TOWN,                "town",              yes,   Namesake, yes,  no,  no,   no,    no,    district},
    {EMAPCUSTOMSTYLE_POILABEL,            "poilabel",          yes,   Namesake, yes,  yes, no,   no,    no,    none},
    {EMAPCUSTOMSTYLE_AIRPORTLABEL,        "airportlabel",      yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_SCENICSPOTSLABEL,    "scenicspotslabel",  yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_EDUCATIONLABEL,      "educationlabel",    yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_MEDICALLABEL,        "medicallabel",      yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_ENTERTAINMENTLABEL,  "entertainmentlabel",yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_ESTATELABEL,         "estatelabel",       yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_BUSINESSTOWERLABEL,  "businesstowerlabel",yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_COMPANYLABEL,        "companylabel",      yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_GOVERNMENTLABEL,     "governmentlabel",   yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_RESTAURANTLABEL,     "restaurantlabel",   yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_HOTELLABEL,          "hotellabel",        yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_SHOPPINGLABEL,       "shoppinglabel",     yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_LIFESERVICELABEL,    "lifeservicelabel",  yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_CARSERVICELABEL,     "carservicelabel",   yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_TRANSPORTATIONLABEL, "transportationlabel",yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_FINANCELABEL,        "financelabel",      yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_OTHERLABEL,          "otherlabel",        yes,   Namesake, yes,  no,  no,   no,    no,    poi},
    {EMAPCUSTOMSTYLE_GRID,                "grid",              no,    Nobody,   no,   no,  no,   no,    yes,   none},
    {EMAPCUSTOMSTYLE_ALL,                 "all",               no,    Nobody,   no,   no,  no,   no,    no,    none},
    }};
    // clang-format on
}();

constexpr bool eachRowStandsAtItsId() {
    int id = 0;
    return std::ranges::all_of(kFeatureTypes, [&](const FeatureTypeRow& row) { return row.id == id++; });
}
static_assert(eachRowStandsAtItsId());

/// Loops over feature types end before this one: "all" is a wildcard for rules, not a type of content.
inline constexpr int kFeatureTypesEnd = EMAPCUSTOMSTYLE_ALL;

/// Whether an id is in the catalogue, "all" included.
constexpr bool isFeatureType(int id) {
    return static_cast<unsigned>(id) < kFeatureTypes.size();
}

/// The row of an id, or null where the catalogue has none.
constexpr const FeatureTypeRow* featureTypeRow(int id) {
    return isFeatureType(id) ? &kFeatureTypes[static_cast<std::size_t>(id)] : nullptr;
}

/// Whether a column applies to an id: `applies(&FeatureTypeRow::isOpaque, id)`.
constexpr bool applies(bool FeatureTypeRow::*column, int id) {
    const FeatureTypeRow* row = featureTypeRow(id);
    return row != nullptr && row->*column;
}

/// The types that answer a query only after all others, in the order in which they are asked.
inline constexpr auto kParentFeatureTypes = [] {
    constexpr auto count = std::ranges::count(kFeatureTypes, true, &FeatureTypeRow::isParent);
    std::array<EMAPCUSTOMSTYLE, static_cast<std::size_t>(count)> parents{};
    auto next = parents.begin();
    for (const FeatureTypeRow& row : kFeatureTypes) {
        if (row.isParent) *next++ = row.id;
    }
    return parents;
}();

/// Asked for each type in a query, so the few parents are compared instead of reading the table.
constexpr bool isParentFeatureType(int id) {
    return std::ranges::find(kParentFeatureTypes, id) != kParentFeatureTypes.end();
}

}  // namespace _orvik_framework
