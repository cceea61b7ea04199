#include "tests/model_check/ModelTables.h"

namespace customstyle_test::model {
namespace {

std::set<int> range(int first, int last) {
    std::set<int> types;
    for (int type = first; type <= last; ++type) types.insert(type);
    return types;
}

const std::set<int> kAny = range(0, 72);
const std::set<int> kLabelled = range(1, 70);
const std::set<int> kLand = {0};
const std::set<int> kGrid = {71};
const std::set<int> kWildcard = {72};

using Elements = std::set<std::string>;
const Elements kWhole = {"all", "geometry", "labels"};
const Elements kParts = {"stroke", "fill", "topsurface"};
const Elements kLines = {"stroke", "fill"};

constexpr Step kGeometry{Writer::GeometryColour, Whom::Itself};
constexpr Step kText{Writer::TextColour, Whom::Itself};
constexpr Step kOtherText{Writer::TextColour, Whom::OtherCompanion};
constexpr Step kGridColour{Writer::GridColour, Whom::Itself};
constexpr Step kIcon{Writer::Icon, Whom::Itself};
constexpr Step kCompanionIcon{Writer::Icon, Whom::Companion};
constexpr Step kEveryIcon{Writer::EveryIcon, Whom::Itself};
constexpr Step kCompanionGeometry{Writer::GeometryColour, Whom::Companion};
constexpr Step kCompanionText{Writer::TextColour, Whom::Companion};
constexpr Step kWeight{Writer::GeometryWeight, Whom::Itself};
constexpr Step kCompanionTextWeight{Writer::TextWeight, Whom::Companion};

}  // namespace

const std::vector<std::string> kNames = {
    "land",
    "green",
    "water",
    "building",
    "manmade",  // 0
    "subwaystation",
    "education",
    "medical",
    "scenicspots",
    "entertainment",  // 5
    "estate",
    "shopping",
    "transportation",
    "highway",
    "nationalway",  // 10
    "provincialway",
    "cityhighway",
    "arterial",
    "tertiaryway",
    "fourlevelway",  // 15
    "local",
    "scenicspotsway",
    "universityway",
    "vacationway",
    "railway",  // 20
    "subway",
    "subwaylabel",
    "roadlabel",
    "highwaylabel",
    "highwayentrance",  // 25
    "highwaysign",
    "nationalwaylabel",
    "nationalwaysign",
    "provincialwaylabel",
    "provincialwaysign",  // 30
    "cityhighwaylabel",
    "arteriallabel",
    "arterialentrance",
    "tertiarywaylabel",
    "tertiarywaysign",  // 35
    "fourlevelwaylabel",
    "locallabel",
    "scenicspotswaylabel",
    "universitywaylabel",
    "vacationwaylabel",  // 40
    "districtlabel",
    "boundary",
    "continent",
    "country",
    "province",  // 45
    "city",
    "district",
    "town",
    "poilabel",
    "airportlabel",  // 50
    "scenicspotslabel",
    "educationlabel",
    "medicallabel",
    "entertainmentlabel",
    "estatelabel",  // 55
    "businesstowerlabel",
    "companylabel",
    "governmentlabel",
    "restaurantlabel",
    "hotellabel",  // 60
    "shoppinglabel",
    "lifeservicelabel",
    "carservicelabel",
    "transportationlabel",
    "financelabel",  // 65
    "otherlabel",
    "grid",
    "all",  // 70
};

const std::map<int, int> kCompanions = {
    {9, 58},  {10, 59}, {11, 65}, {12, 68}, {13, 28}, {14, 31}, {15, 33}, {16, 35},
    {17, 36}, {18, 38}, {19, 40}, {20, 41}, {21, 42}, {22, 43}, {23, 44}, {25, 26},
};

const std::vector<Case> kColourCases = {
    {{"all"}, kGrid, false, {kGridColour}},
    {{"labels"}, kGrid, false, {kGeometry}},
    {{"all", "labels"}, kLabelled, false, {kText, kOtherText}},
    {{"all", "labels"}, kAny, false, {kGeometry}},
    {{"geometry"}, kAny, false, {kGeometry}},
    {{"stroke"}, kLand, false, {}},
    {{"fill", "topsurface"}, kLand, false, {kGeometry}},
    {kParts, kGrid, false, {kGridColour}},
    {kParts, kLabelled, true, {kText, kOtherText}},
    {kParts, kAny, false, {kGeometry}},
};

const std::vector<Case> kHidingCases = {
    {{"all"}, kLabelled, false, {kText, kGeometry, kIcon, kCompanionGeometry, kCompanionText, kCompanionIcon}},
    {{"all"}, kAny, false, {kText, kGeometry, kIcon}},
    {{"labels"}, kLabelled, false, {kIcon, kText, kOtherText, kCompanionIcon}},
    {{"labels"}, kAny, false, {}},
    {{"geometry"}, kAny, false, {kText, kGeometry}},
    {kParts, kLabelled, true, {kText, kOtherText}},
    {kParts, kAny, false, {kText, kGeometry}},
    {{"icon"}, kWildcard, false, {kEveryIcon}},
    {{"icon"}, kLabelled, true, {kCompanionIcon}},
    {{"icon"}, kAny, false, {kIcon}},
};

const std::vector<Case> kShowingCases = {
    {{"all"}, kLabelled, false, {kIcon, kCompanionIcon}},    {{"all"}, kAny, false, {kIcon}},
    {{"labels"}, kLabelled, false, {kIcon, kCompanionIcon}}, {{"icon"}, kWildcard, false, {kEveryIcon}},
    {{"icon"}, kLabelled, true, {kCompanionIcon}},           {{"icon"}, kAny, false, {kIcon}},
};

const std::vector<Case> kWeightCases = {
    {{"all", "labels"}, kLabelled, false, {kWeight, kCompanionTextWeight}},
    {{"all", "labels", "geometry"}, kAny, false, {kWeight}},
    {kLines, kLabelled, true, {kCompanionTextWeight}},
    {kLines, kAny, false, {kWeight}},
};

const std::vector<Case> kFontSizeCases = {
    {{"all", "labels", "stroke", "fill"},
     kLabelled,
     true,
     {{Writer::FontSize, Whom::Itself}, {Writer::FontSize, Whom::OtherCompanion}}},
};

const std::vector<Fields> kFields = {
    {Writer::GeometryColour, kWhole, {"fillColor", "borderColor", "topSurfaceColor"}},
    {Writer::GeometryColour, {"stroke"}, {"borderColor"}},
    {Writer::GeometryColour, {"fill"}, {"fillColor"}},
    {Writer::GeometryColour, {"topsurface"}, {"topSurfaceColor"}},
    {Writer::TextColour, kWhole, {"textFillColor", "textStrokeColor"}},
    {Writer::TextColour, {"stroke"}, {"textStrokeColor"}},
    {Writer::TextColour, {"fill"}, {"textFillColor"}},
    {Writer::Icon, {"all", "labels", "icon"}, {"iconHidden"}},
    {Writer::GeometryWeight, kWhole, {"fillWeight", "borderWeight"}},
    {Writer::GeometryWeight, {"stroke"}, {"borderWeight"}},
    {Writer::GeometryWeight, {"fill"}, {"fillWeight"}},
    {Writer::TextWeight, kWhole, {"textFillWeight", "textStrokeWeight"}},
    {Writer::TextWeight, {"stroke"}, {"textStrokeWeight"}},
    {Writer::TextWeight, {"fill"}, {"textFillWeight"}},
    {Writer::FontSize, {"all", "labels", "fill", "stroke"}, {"fontSize"}},
};

const std::map<Writer, std::string> kUnknownElement = {
    {Writer::GeometryWeight, R"(warning, "elementType" is invalid in setTypeWeight.)"},
    {Writer::TextWeight, R"(warning, "elementType" is invalid in setFontWeightStyle.)"},
    {Writer::FontSize, R"(warning, "elementType" is invalid in setFontSizeStyle.)"},
};

}  // namespace customstyle_test::model
