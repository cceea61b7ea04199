#include "tools/vocabulary/Descriptions.h"

#include <algorithm>

namespace customstyle_tool {
namespace {

constexpr Description kFeatureTypes[] = {
    {"land", "The ground of the map"},
    {"green", "Parks and other green areas"},
    {"water", "Lakes, rivers and the sea, with their names"},
    {"building", "Buildings"},
    {"manmade", "Built-up areas of every kind"},
    {"subwaystation", "Subway stations"},
    {"education", "Grounds of schools and universities"},
    {"medical", "Grounds of hospitals"},
    {"scenicspots", "Areas of scenic spots"},
    {"entertainment", "Areas for entertainment"},
    {"estate", "Housing estates"},
    {"shopping", "Shopping areas"},
    {"transportation", "Grounds of stations and airports"},
    {"highway", "Motorways"},
    {"nationalway", "National roads"},
    {"provincialway", "Provincial roads"},
    {"cityhighway", "City motorways"},
    {"arterial", "Main roads of a city"},
    {"tertiaryway", "Tertiary roads"},
    {"fourlevelway", "Roads of the fourth class"},
    {"local", "Local roads"},
    {"scenicspotsway", "Ways in scenic spots"},
    {"universityway", "Ways on university grounds"},
    {"vacationway", "Ways in holiday resorts"},
    {"railway", "Railways"},
    {"subway", "Subway lines"},
    {"subwaylabel", "Names of subway lines"},
    {"roadlabel", "Names of roads that no other type lists"},
    {"highwaylabel", "Names of motorways"},
    {"highwayentrance", "Entrances of motorways"},
    {"highwaysign", "Shields of motorways"},
    {"nationalwaylabel", "Names of national roads"},
    {"nationalwaysign", "Shields of national roads"},
    {"provincialwaylabel", "Names of provincial roads"},
    {"provincialwaysign", "Shields of provincial roads"},
    {"cityhighwaylabel", "Names of city motorways"},
    {"arteriallabel", "Names of main roads"},
    {"arterialentrance", "Entrances of main roads"},
    {"tertiarywaylabel", "Names of tertiary roads"},
    {"tertiarywaysign", "Shields of tertiary roads"},
    {"fourlevelwaylabel", "Names of roads of the fourth class"},
    {"locallabel", "Names of local roads"},
    {"scenicspotswaylabel", "Names of ways in scenic spots"},
    {"universitywaylabel", "Names of ways on university grounds"},
    {"vacationwaylabel", "Names of ways in holiday resorts"},
    {"districtlabel", "Names of administrative areas of every kind"},
    {"boundary", "Administrative boundaries"},
    {"continent", "Names of continents"},
    {"country", "Names of countries"},
    {"province", "Names of provinces"},
    {"city", "Names of cities"},
    {"district", "Names of districts"},
    {"town", "Names of towns"},
    {"poilabel", "Points of interest of every kind"},
    {"airportlabel", "Airports"},
    {"scenicspotslabel", "Names of scenic spots"},
    {"educationlabel", "Names of schools and universities"},
    {"medicallabel", "Names of hospitals"},
    {"entertainmentlabel", "Names of places of entertainment"},
    {"estatelabel", "Names of housing estates"},
    {"businesstowerlabel", "Names of office towers"},
    {"companylabel", "Names of companies"},
    {"governmentlabel", "Names of public authorities"},
    {"restaurantlabel", "Names of restaurants"},
    {"hotellabel", "Names of hotels"},
    {"shoppinglabel", "Names of shops"},
    {"lifeservicelabel", "Names of everyday services"},
    {"carservicelabel", "Names of garages and filling stations"},
    {"transportationlabel", "Names of stations and stops"},
    {"financelabel", "Names of banks"},
    {"otherlabel", "Names of all other points of interest"},
    {"grid", "The grid that shows while map tiles are missing"},
    {"all", "The whole map"},
};

}  // namespace

std::span<const Description> featureTypeDescriptions() {
    return kFeatureTypes;
}

std::string_view titleOf(std::span<const Description> descriptions, std::string_view word) {
    const auto found = std::ranges::find(descriptions, word, &Description::word);
    return found == descriptions.end() ? std::string_view() : found->title;
}

}  // namespace customstyle_tool
