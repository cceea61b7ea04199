#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <tuple>

#include "tests/study/LoadedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/RandomFiles.h"
#include "tools/export/LegendReader.h"
#include "tools/export/MapStyle.h"
#include "tools/import/ImportedStyle.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

Legend builtIn(const std::string& name) {
    return std::get<Legend>(readLegend(*builtInLegend(name)));
}

Legend legendWith(const std::string& layers) {
    return std::get<Legend>(
        readLegend(SourceFile("legend.json", R"({"version": 1, "name": "test", "source": {"type": "vector"},
        "fonts": {"regular": ["Sans"], "bold": ["Sans Bold"]}, "text": ["get", "name"],
        "backgrounds": {"land": "#ffffff", "grid": "#eeeeee"}, "layers": [)" +
                                                 layers + "]}")));
}

ImportedStyle imported(const std::string& mapLayers, const std::string& legendLayers) {
    return importedStyle(MapJson::parse(R"({"version": 8, "layers": [)" + mapLayers + "]}"), legendWith(legendLayers),
                         Mapping::standard());
}

std::vector<std::string> codesOf(const ImportedStyle& style) {
    std::vector<std::string> codes;
    for (const auto& loss : style.losses.json()) codes.push_back(loss["code"]);
    return codes;
}

std::vector<std::string> placesOf(const ImportLosses& losses, const std::string& code) {
    for (const auto& loss : losses.json()) {
        if (loss["code"] == code) return loss["places"];
    }
    return {};
}

const std::string kRoads =
    R"({"type": "highway", "kind": "line", "source_layer": "roads", "filter": ["==", ["get", "class"], "motorway"]})";
const std::string kWater = R"({"type": "water", "kind": "area", "source_layer": "water"})";
const std::string kCity = R"({"type": "city", "kind": "label", "source_layer": "places", "icon": "dot"})";

struct ImportCase {
    std::string name;
    std::string mapLayers;
    std::string legendLayers;
    std::string rule;  ///< a part of the style
};

class ImportedRule : public testing::TestWithParam<ImportCase> {};

TEST_P(ImportedRule, SaysWhatTheMapStyleDraws) {
    const auto& [name, mapLayers, legendLayers, rule] = GetParam();
    EXPECT_THAT(imported(mapLayers, legendLayers).text, HasSubstr(rule));
}

INSTANTIATE_TEST_SUITE_P(
    Imports, ImportedRule,
    testing::Values(
        ImportCase{
            "AFill", R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            kWater, R"({"featureType": "water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "TheOpacityAsAlpha",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456", "fill-opacity": 0.5}})",
            kWater, R"("color": "#12345680")"},
        ImportCase{"ANewLookFromAZoomOn",
                   R"({"id": "a", "type": "fill", "source-layer": "water",
                       "paint": {"fill-color": ["step", ["zoom"], "#111111", 9, "#222222"]}})",
                   kWater, R"("stylers": {"color": "#111111", "level": "9"}})"},
        ImportCase{
            "ALineWithTheOlderFilter",
            R"({"id": "a", "type": "line", "source-layer": "roads", "filter": ["in", "class", "motorway", "trunk"],
                       "paint": {"line-color": "#ff0000", "line-width": 4}})",
            kRoads, R"("highway", "elementType": "geometry.fill", "stylers": {"color": "#ff0000", "weight": "4"}})"},
        ImportCase{
            "TheWiderLineBelowAsBorder",
            R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-color": "#000000", "line-width": 8}},
                      {"id": "b", "type": "line", "source-layer": "roads", "paint": {"line-color": "#ff0000", "line-width": 4}})",
            kRoads, R"("highway", "elementType": "geometry.stroke", "stylers": {"color": "#000000", "weight": "2"}})"},
        ImportCase{"ALayerThatIsNotThereAsInvisible", "", kRoads,
                   R"("highway", "elementType": "geometry.fill", "stylers": {"color": "#00000000"}})"},
        ImportCase{
            "ALayerFromItsZoomOn",
            R"({"id": "a", "type": "fill", "source-layer": "water", "minzoom": 9, "paint": {"fill-color": "#123456"}})",
            kWater, R"("stylers": {"color": "#00000000", "level": "9"}})"},
        ImportCase{"ALabelWithHalo",
                   R"({"id": "a", "type": "symbol", "source-layer": "places",
                       "layout": {"text-field": "{name}", "text-size": 14, "icon-image": "dot"},
                       "paint": {"text-color": "#101010", "text-halo-color": "#ffffff", "text-halo-width": 2}})",
                   kCity,
                   R"("city", "elementType": "labels.text.stroke", "stylers": {"color": "#ffffff", "weight": "2"}})"},
        ImportCase{"AHiddenIcon",
                   R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}})",
                   kCity, R"("city", "elementType": "labels.icon", "stylers": {"visibility": "off"}})"},
        ImportCase{
            "TheUpperWallsAsTopSurface",
            R"({"id": "a", "type": "fill-extrusion", "source-layer": "b", "paint": {"fill-extrusion-color": "#111111"}},
                {"id": "b", "type": "fill-extrusion", "source-layer": "b", "paint": {"fill-extrusion-color": "#222222"}})",
            R"({"type": "building", "kind": "building", "source_layer": "b", "height": 9})",
            R"("building", "elementType": "geometry.topsurface", "stylers": {"color": "#222222"}})"},
        ImportCase{
            "TheLastOfTwoOutlines",
            R"({"id": "a", "type": "line", "source-layer": "water", "paint": {"line-color": "#111111", "line-width": 3}},
                {"id": "b", "type": "line", "source-layer": "water", "paint": {"line-color": "#222222"}})",
            kWater, R"("water", "elementType": "geometry.stroke", "stylers": {"color": "#222222", "weight": "1"}})"},
        ImportCase{
            "ACasingOfOnePixel",
            R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-color": "#111111", "line-gap-width": 4}})",
            kRoads, R"("highway", "elementType": "geometry.stroke", "stylers": {"color": "#111111", "weight": "1"}})"},
        ImportCase{
            "NoBorderWhereTheLineBelowIsNoWider",
            R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-color": "#111111", "line-width": 4}},
                {"id": "b", "type": "line", "source-layer": "roads", "paint": {"line-color": "#222222", "line-width": 4}})",
            R"({"type": "highway", "kind": "line", "source_layer": "roads", "look": {"stroke": "#000000", "stroke_width": 1}})",
            R"("highway", "elementType": "geometry.stroke", "stylers": {"color": "#00000000"}})"},
        ImportCase{"TheTextOfTheLastLabel",
                   R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"icon-image": "dot"}},
                {"id": "b", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}", "text-size": 14},
                 "paint": {"text-color": "#101010"}})",
                   kCity,
                   R"("city", "elementType": "labels.text.fill", "stylers": {"color": "#101010", "fontsize": "14"}})"},
        ImportCase{
            "ALayerUpToItsZoom",
            R"({"id": "a", "type": "fill", "source-layer": "water", "maxzoom": 9, "paint": {"fill-color": "#123456"}})",
            kWater, R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456", "level": "9"}})"},
        ImportCase{"ALayerThatIsSwitchedOffAsInvisible",
                   R"({"id": "a", "type": "fill", "source-layer": "water", "layout": {"visibility": "none"}})", kWater,
                   R"("water", "elementType": "geometry.fill", "stylers": {"color": "#00000000"}})"},
        ImportCase{"TheLevelsBeyondAllFromAnyLevelOn", R"({"id": "a", "type": "fill", "source-layer": "water",
                 "paint": {"fill-color": ["step", ["zoom"], "#111111", 21, "#222222"]}})",
                   R"({"type": "water", "kind": "area", "source_layer": "water", "from": 9})",
                   R"("water", "elementType": "geometry.fill", "stylers": {"color": "#222222"}})"},
        ImportCase{"TheLastBackgroundAsLand",
                   R"({"id": "a", "type": "background", "paint": {"background-color": "#111111"}},
                {"id": "b", "type": "background", "paint": {"background-color": "#222222"}})",
                   kWater, R"("land", "elementType": "geometry.fill", "stylers": {"color": "#222222"}})"},
        ImportCase{"TheBackgroundBelowAsGrid",
                   R"({"id": "a", "type": "background", "paint": {"background-color": "#111111"}},
                {"id": "b", "type": "background", "paint": {"background-color": "#222222"}})",
                   kWater, R"("grid", "elementType": "geometry.fill", "stylers": {"color": "#111111"}})"},
        ImportCase{
            "AFilterForAtLeast",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": [">=", ["get", "depth"], 3]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AFilterForAtMost",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["<=", ["get", "depth"], 3]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AFilterForAllButOne",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["!=", ["get", "class"], "ice"]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AFilterForAllConditions",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["all", ["==", ["get", "class"], "lake"], ["==", ["get", "depth"], 3]]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AFilterForAMatch",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["match", ["get", "class"], "lake", true, false]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AFilterForTwoProperties",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["==", ["get", "class"], ["get", "kind"]]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AnEmptyTextAsInvisible",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "", "icon-image": "dot"}})",
            kCity, R"("city", "elementType": "labels.text.fill", "stylers": {"color": "#00000000"}})"},
        ImportCase{
            "ATextOfTheSizeOfRenderers",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-color": "#101010"}})",
            kCity, R"("labels.text.fill", "stylers": {"color": "#101010", "fontsize": "16"}})"},
        ImportCase{
            "AHaloWithoutWidth",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-color": "#ffffff"}})",
            kCity, R"("labels.text.stroke", "stylers": {"color": "#00000000"}})"},
        ImportCase{
            "AHaloWithoutColour",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-width": 2}})",
            kCity, R"("labels.text.stroke", "stylers": {"color": "#00000000"}})"},
        ImportCase{
            "AHaloThatIsInvisible",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-color": "#ffffff00", "text-halo-width": 2}})",
            kCity, R"("labels.text.stroke", "stylers": {"color": "#00000000"}})"},
        ImportCase{
            "AHaloThatIsFaint",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-color": "#ffffff01", "text-halo-width": 2}})",
            kCity, R"("labels.text.stroke", "stylers": {"color": "#ffffff01", "weight": "2"}})"},
        ImportCase{
            "AHaloThatIsAsFaintAsItsText",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-opacity": 0.2, "text-halo-color": "#ffffff", "text-halo-width": 2}})",
            kCity, R"("labels.text.stroke", "stylers": {"color": "#ffffff33", "weight": "2"}})"},
        ImportCase{
            "AHaloOfATextThatIsInvisible",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-opacity": 0, "text-halo-color": "#ffffff", "text-halo-width": 2}})",
            kCity, R"("labels.text.stroke", "stylers": {"color": "#00000000"}})"},
        ImportCase{"TheLastLevelOfALegendLayer", R"({"id": "a", "type": "fill", "source-layer": "water",
                 "paint": {"fill-color": ["step", ["zoom"], "#111111", 8, "#222222"]}})",
                   R"({"type": "water", "kind": "area", "source_layer": "water", "to": 9})",
                   R"("stylers": {"color": "#222222", "level": "9"}})"},
        ImportCase{
            "TheBackgroundBeyondAllLevels",
            R"({"id": "a", "type": "background", "paint": {"background-color": ["step", ["zoom"], "#111111", 21, "#222222"]}})",
            kWater, R"("land", "elementType": "geometry.fill", "stylers": {"color": "#222222"}})"},
        ImportCase{
            "AFilterForOneConditionOfAll",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["all", ["==", ["get", "class"], "lake"]]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "AFilterForAnyCondition",
            R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#123456"}})",
            R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["any", ["==", ["get", "class"], "lake"], ["==", ["get", "class"], "sea"]]})",
            R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{
            "PolygonsAsAreas",
            R"({"id": "a", "type": "fill", "source-layer": "water", "filter": ["==", ["geometry-type"], "Polygon"], "paint": {"fill-color": "#123456"}})",
            kWater, R"("water", "elementType": "geometry.fill", "stylers": {"color": "#123456"}})"},
        ImportCase{"TheBackgroundAsLand",
                   R"({"id": "a", "type": "background", "paint": {"background-color": "#f0f0f0"}})", kWater,
                   R"("land", "elementType": "geometry.fill", "stylers": {"color": "#f0f0f0"}})"}),
    caseName);

struct LossCase {
    std::string name;
    std::string mapLayers;
    std::string legendLayers;
    std::string code;
};

class ImportLossOf : public testing::TestWithParam<LossCase> {};

TEST_P(ImportLossOf, IsListed) {
    const auto& [name, mapLayers, legendLayers, code] = GetParam();
    EXPECT_THAT(codesOf(imported(mapLayers, legendLayers)), Contains(code));
}

INSTANTIATE_TEST_SUITE_P(
    Imports, ImportLossOf,
    testing::Values(
        LossCase{"AnUnknownExpression",
                 R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": ["var", "blue"]}})",
                 kWater, "not-understood"},
        LossCase{"AnUnknownFilter", R"({"id": "a", "type": "fill", "source-layer": "water", "filter": ["within", {}]})",
                 kWater, "not-understood"},
        LossCase{"AnUnknownColour",
                 R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "rebeccapurple"}})",
                 kWater, "not-understood"},
        LossCase{"APattern",
                 R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-pattern": "waves"}})", kWater,
                 "no-counterpart"},
        LossCase{"AWidthThatGrows",
                 R"({"id": "a", "type": "line", "source-layer": "roads",
                     "paint": {"line-width": ["interpolate", ["linear"], ["zoom"], 4, 1, 20, 17]}})",
                 kRoads, "between-zooms"},
        LossCase{"AFractionOfAPixel",
                 R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-width": 1.5}})", kRoads,
                 "rounded"},
        LossCase{
            "ManyLayers",
            R"({"id": "a", "type": "fill", "source-layer": "water"}, {"id": "b", "type": "fill", "source-layer": "water"})",
            kWater, "more-layers"},
        LossCase{
            "ManyOutlines",
            R"({"id": "a", "type": "line", "source-layer": "water"}, {"id": "b", "type": "line", "source-layer": "water"})",
            kWater, "more-layers"},
        LossCase{
            "ManyLinesInACasing",
            R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-gap-width": 4}}, {"id": "b", "type": "line", "source-layer": "roads"}, {"id": "c", "type": "line", "source-layer": "roads"})",
            kRoads, "more-layers"},
        LossCase{
            "ManyCasings",
            R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-gap-width": 4}}, {"id": "b", "type": "line", "source-layer": "roads", "paint": {"line-gap-width": 2}})",
            kRoads, "more-layers"},
        LossCase{"ALayerForOtherFeatures",
                 R"({"id": "a", "type": "line", "source-layer": "roads", "filter": ["==", "class", "path"]})", kRoads,
                 "layer-unused"},
        LossCase{"AWidthThatIsNoNumber",
                 R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-width": "wide"}})", kRoads,
                 "not-understood"},
        LossCase{
            "AHaloOfUnknownColour",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-color": "rebeccapurple", "text-halo-width": 2}})",
            kCity, "not-understood"},
        LossCase{
            "AHaloOfUnknownWidth",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-color": "#112233", "text-halo-width": ["var", "w"]}})",
            kCity, "not-understood"},
        LossCase{
            "AHaloColouredByAnUnknownExpression",
            R"({"id": "a", "type": "symbol", "source-layer": "places", "layout": {"text-field": "{name}"}, "paint": {"text-halo-color": ["var", "c"], "text-halo-width": 2}})",
            kCity, "not-understood"},
        LossCase{
            "ThreeLines",
            R"({"id": "a", "type": "line", "source-layer": "roads"}, {"id": "b", "type": "line", "source-layer": "roads"}, {"id": "c", "type": "line", "source-layer": "roads"})",
            kRoads, "more-layers"},
        LossCase{
            "ManyLabels",
            R"({"id": "a", "type": "symbol", "source-layer": "places"}, {"id": "b", "type": "symbol", "source-layer": "places"})",
            kCity, "more-layers"},
        LossCase{"ALayerOfTilesWithALongerName", R"({"id": "a", "type": "fill", "source-layer": "waterway"})", kWater,
                 "layer-unused"},
        LossCase{"ShapesOfOneType",
                 R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#111111"}},
                 {"id": "b", "type": "fill", "source-layer": "lakes", "paint": {"fill-color": "#222222"}})",
                 kWater + R"(, {"type": "water", "kind": "area", "name": "lakes", "source_layer": "lakes"})",
                 "shapes-differ"},
        LossCase{"AnOpacityThatIsNoNumber",
                 R"({"id": "a", "type": "fill", "source-layer": "water", "paint": {"fill-opacity": "half"}})", kWater,
                 "not-understood"},
        LossCase{"ALayerOfOtherTiles", R"({"id": "a", "type": "fill", "source-layer": "ice"})", kWater, "layer-unused"},
        LossCase{"FeaturesOfOneType",
                 R"({"id": "a", "type": "fill", "source-layer": "water",
                     "paint": {"fill-color": ["match", ["get", "class"], "lake", "#000001", "#000002"]}})",
                 R"({"type": "water", "kind": "area", "source_layer": "water",
                     "filter": ["match", ["get", "class"], ["lake", "sea"], true, false]})",
                 "features-differ"},
        LossCase{"ALegendThatAsksForMore", "",
                 R"({"type": "water", "kind": "area", "source_layer": "water", "filter": ["within", {}]})",
                 "legend-filter"},
        LossCase{"AWeightThatTheComponentDoesNotTake",
                 R"({"id": "a", "type": "line", "source-layer": "b", "paint": {"line-width": 3}})",
                 R"({"type": "boundary", "kind": "line", "source_layer": "b"})", "not-kept"}),
    caseName);

class PropertyThatIsKnown : public testing::TestWithParam<const char*> {};

TEST_P(PropertyThatIsKnown, IsNoLoss) {
    const std::string property = GetParam();
    const ImportedStyle style = imported(
        R"({"id": "a", "type": "fill", "source-layer": "water", "layout": {")" + property + R"(": "any"}})", kWater);
    EXPECT_THAT(codesOf(style), Not(Contains("no-counterpart")));
}

INSTANTIATE_TEST_SUITE_P(Imports, PropertyThatIsKnown,
                         testing::Values("background-color", "background-opacity", "fill-antialias", "fill-color",
                                         "fill-extrusion-base", "fill-extrusion-color", "fill-extrusion-height",
                                         "fill-extrusion-opacity", "fill-opacity", "icon-image", "icon-padding",
                                         "line-color", "line-gap-width", "line-opacity", "line-width",
                                         "symbol-placement", "symbol-spacing", "text-anchor", "text-color",
                                         "text-field", "text-halo-color", "text-halo-width", "text-max-width",
                                         "text-offset", "text-opacity", "text-optional", "text-padding", "text-size",
                                         "visibility"));

TEST(ImportedStyle, LeavesOutWhatItDoesNotUnderstand) {
    const ImportedStyle style = imported(R"({"id": "a", "type": "line", "source-layer": "roads",
                     "paint": {"line-color": ["var", "red"], "line-width": 3}})",
                                         kRoads);
    EXPECT_THAT(style.text, HasSubstr(R"("geometry.fill", "stylers": {"weight": "3"})"));
    EXPECT_THAT(style.text, Not(HasSubstr(R"("geometry.fill", "stylers": {"color")")));
    EXPECT_THAT(placesOf(style.losses, "not-understood"), Contains("layer a: line-color"));
}

TEST(ImportedStyle, LosesNothingOfWhatAStyleCanSay) {
    const ImportedStyle style = imported(R"({"id": "a", "type": "background", "paint": {"background-color": "#f0f0f0"}},
                    {"id": "b", "type": "background", "paint": {"background-color": "#e0e0e0", "background-opacity": 1}},
                    {"id": "c", "type": "fill", "source-layer": "water",
                     "paint": {"fill-color": ["match", ["get", "class"], "lake", "#111111", "#222222"]}})",
                                         kWater);
    EXPECT_THAT(codesOf(style), testing::IsEmpty());
}

TEST(ImportedStyle, NamesTheFilterThatItDoesNotUnderstand) {
    const ImportedStyle style =
        imported(R"({"id": "a", "type": "fill", "source-layer": "water", "filter": ["within", {}]})", kWater);
    EXPECT_THAT(placesOf(style.losses, "not-understood"), testing::ElementsAre("layer a: filter"));
}

TEST(ImportedStyle, LeavesABorderAloneThatNobodyDraws) {
    const ImportedStyle style = imported(
        R"({"id": "a", "type": "line", "source-layer": "roads", "paint": {"line-color": "#111111"}})",
        R"({"type": "highway", "kind": "line", "source_layer": "roads", "look": {"stroke": "#00000000", "stroke_width": 1}})");
    EXPECT_THAT(style.text, Not(HasSubstr("geometry.stroke")));
}

std::string mappingOf(std::initializer_list<std::pair<const char*, int>> ids) {
    return mappingText([&](int featureType) {
        for (const auto& [name, id] : ids) {
            if (catalogue().GetFeatureTypeName(featureType) == name) return std::vector<int>{id};
        }
        return std::vector<int>();
    });
}

ImportedStyle importedOver(const std::string& mapping, const std::string& mapLayers, const std::string& legendLayers) {
    return importedStyle(MapJson::parse(R"({"version": 8, "layers": [)" + mapLayers + "]}"), legendWith(legendLayers),
                         Mapping::given(mapping));
}

TEST(ImportedStyle, NamesNoLayerThatIsNone) {
    EXPECT_THAT(codesOf(imported("null, 3", kWater)), Not(Contains("layer-unused")));
}

TEST(ImportedStyle, ReadsTypesWithoutStyleIds) {
    const ImportedStyle style =
        importedOver(mappingOf({}), R"({"id": "a", "type": "fill", "source-layer": "water"})",
                     R"({"type": "water", "kind": "area", "source_layer": "water", "id": "s"})");
    EXPECT_THAT(codesOf(style), testing::IsEmpty());
}

TEST(ImportedStyle, SaysWhichValuesAnotherTypeAnswers) {
    const ImportedStyle style =
        importedOver(mappingOf({{"green", 1}, {"water", 1}}),
                     R"({"id": "a", "type": "fill", "source-layer": "wood", "paint": {"fill-color": "#111111"}},
           {"id": "b", "type": "fill", "source-layer": "water", "paint": {"fill-color": "#222222"}})",
                     kWater + R"(, {"type": "green", "kind": "area", "source_layer": "wood"})");
    EXPECT_THAT(placesOf(style.losses, "not-kept"), testing::ElementsAre("water fill at all levels"));
}

// Of two parents the first gives a style id its style, and each of them can hide its icon.
TEST(ImportedStyle, KeepsAnIconHiddenBesideTheStyleOfAnotherType) {
    const ImportedStyle style =
        importedOver(mappingOf({{"manmade", 1}, {"poilabel", 1}}),
                     R"({"id": "a", "type": "fill", "source-layer": "man", "paint": {"fill-color": "#111111"}},
           {"id": "b", "type": "symbol", "source-layer": "poi", "layout": {"text-field": ""}})",
                     R"({"type": "manmade", "kind": "area", "source_layer": "man"},
           {"type": "poilabel", "kind": "label", "source_layer": "poi", "icon": "dot"})");
    EXPECT_THAT(style.text, HasSubstr(R"("poilabel", "elementType": "labels.icon", "stylers": {"visibility": "off"})"));
    EXPECT_THAT(placesOf(style.losses, "not-kept"), Not(Contains(HasSubstr("icon"))));
}

TEST(ImportedStyle, TakesALayerForTheTypeThatItNames) {
    const ImportedStyle style =
        imported(R"({"id": "a", "type": "fill", "source-layer": "water", "metadata": {"customstyle:type": "green"},
                     "paint": {"fill-color": "#123456"}})",
                 kWater + R"(, {"type": "green", "kind": "area", "source_layer": "water"})");
    EXPECT_THAT(style.text, HasSubstr(R"("water", "elementType": "geometry.fill", "stylers": {"color": "#00000000"})"));
    EXPECT_THAT(style.text, HasSubstr(R"("green", "elementType": "geometry.fill", "stylers": {"color": "#123456"})"));
}

TEST(ImportedStyle, OfNothingHidesWhatTheLegendKnows) {
    EXPECT_EQ(imported(R"(null, 3, {"type": 5})", kWater).text,
              "[\n"
              R"(  {"featureType": "water", "elementType": "geometry.fill", "stylers": {"color": "#00000000"}})"
              "\n]\n");
}

// --- what is exported comes back ---

const std::string kExamples = CUSTOMSTYLE_EXAMPLES_DIR;

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool isVisible(const Answer& answer, const char* field) {
    const auto color = fieldIn(answer, fieldIndex(field));
    return color && alphaOf(*color) != 0;
}

// The fields that a layer of the legend can carry, where the style shows them.
std::vector<std::string> carriedFields(const LegendLayer& layer, const Answer& answer) {
    std::vector<std::string> fields;
    const auto addIf = [&](bool isCarried, const char* field) {
        if (isCarried && fieldIn(answer, fieldIndex(field))) fields.emplace_back(field);
    };
    const bool isLabel = isLabelKind(layer.kind);
    const auto width = fieldIn(answer, fieldIndex("fill weight"));
    const bool isDrawn = isVisible(answer, "fill") && (layer.kind != ShapeKind::Line || width != 0U);
    addIf(!isLabel && (width != 0U || layer.kind != ShapeKind::Line), "fill");
    addIf(layer.kind == ShapeKind::Line && isDrawn, "fill weight");
    addIf(!isLabel && isVisible(answer, "stroke") && fieldIn(answer, fieldIndex("stroke weight")) != 0U, "stroke");
    addIf(!isLabel && isVisible(answer, "stroke"), "stroke weight");
    const auto size = fieldIn(answer, fieldIndex("font size"));
    const bool hasText = isVisible(answer, "text fill") && size != 0U;
    addIf(isLabel && size != 0U, "text fill");
    addIf(isLabel && hasText, "font size");
    const auto halo = fieldIn(answer, fieldIndex("text stroke weight"));
    const bool isHaloWhole = halo && size && *halo > 0 && *halo * 4 <= *size;
    addIf(isLabel && hasText && isHaloWhole, "text stroke");
    addIf(isLabel && hasText && isHaloWhole && isVisible(answer, "text stroke"), "text stroke weight");
    return fields;
}

bool isSame(const Answer& before, const Answer& after, const std::string& field) {
    const auto left = fieldIn(before, fieldIndex(field));
    const auto right = fieldIn(after, fieldIndex(field));
    const bool isColor = styleFields()[fieldIndex(field)].kind == FieldKind::Color;
    return left == right || (isColor && left && right && alphaOf(*left) == 0 && alphaOf(*right) == 0);
}

// The types of which a loss says that not all comes back, or that not all was exported.
std::set<std::string> excusedTypes(const ImportLosses& losses, const Losses& exportLosses) {
    std::set<std::string> types;
    for (const char* code : {"features-differ", "shapes-differ", "more-layers", "legend-filter", "not-kept"}) {
        for (const std::string& place : placesOf(losses, code)) types.insert(place.substr(0, place.find(' ')));
    }
    const auto notToldApart = exportLosses.all().find(LossCode::IdsNotToldApart);
    if (notToldApart == exportLosses.all().end()) return types;
    for (const auto& [type, levels] : notToldApart->second) types.insert(catalogue().GetFeatureTypeName(type));
    return types;
}

struct Counts {
    std::size_t compared = 0;
    std::size_t excused = 0;
};

// Compares the answers for the features of a legend layer.
void compareLayer(const LegendLayer& layer, const StyleStudy& before, const StyleStudy& after, Counts& counts) {
    for (const unsigned int id : before.mapping().questionIdsOf(layer.featureType)) {
        for (int level = std::max(layer.firstLevel.value_or(kLowestLevel), kLowestLevel); level <= kHighestLevel;
             ++level) {
            const Answer wanted = ask(before.config(), id, level);
            const Answer found = ask(after.config(), id, level);
            for (const std::string& field : carriedFields(layer, wanted)) {
                ++counts.compared;
                ASSERT_TRUE(isSame(wanted, found, field)) << field << " of " << id << " at " << level;
            }
            if (!layer.icon.is_null()) {
                ASSERT_EQ(wanted.iconHidden, found.iconHidden) << "icon of " << id << " at " << level;
            }
        }
    }
}

Counts compareWithImport(const std::string& style, const std::string& mapping, const Legend& legend) {
    const auto before = loadedText(mapping, style);
    const ExportedStyle exported = exportedStyle(*before, legend, {});
    const ImportedStyle back = importedStyle(exported.style, legend, Mapping::given(mapping));
    const auto after = loadedText(mapping, back.text);
    const std::set<std::string> excused = excusedTypes(back.losses, exported.losses);
    Counts counts;
    for (const LegendLayer& layer : legend.layers) {
        const std::string type = catalogue().GetFeatureTypeName(layer.featureType);
        SCOPED_TRACE(type);
        if (excused.contains(type)) {
            ++counts.excused;
        } else {
            compareLayer(layer, *before, *after, counts);
        }
    }
    return counts;
}

class ExportedStyleOf : public testing::TestWithParam<std::tuple<const char*, const char*>> {};

TEST_P(ExportedStyleOf, ComesBackWithItsColoursWidthsAndVisibility) {
    const auto& [name, legendName] = GetParam();
    const Legend legend = builtIn(legendName);
    const Counts counts = compareWithImport(contentOf(kExamples + "/styles/" + name + ".json"),
                                            contentOf(kExamples + "/map/CustomIndex"), legend);
    EXPECT_GT(counts.compared, 500U);
    EXPECT_LT(counts.excused, legend.layers.size() / 2) << "most comes back";
}

INSTANTIATE_TEST_SUITE_P(Examples, ExportedStyleOf,
                         testing::Combine(testing::Values("night", "pale", "transit", "main-roads", "no-labels"),
                                          testing::Values("studio", "openmaptiles")),
                         [](const auto& each) {
                             std::string name = std::string(std::get<0>(each.param)) + "_" + std::get<1>(each.param);
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

class RandomExport : public testing::TestWithParam<unsigned> {};

TEST_P(RandomExport, ComesBackButForWhatIsListed) {
    RandomFiles random(GetParam());
    const std::string mapping = random.mapping();
    std::string rules;
    for (int i = 0; i < 60; ++i) rules += (rules.empty() ? "" : ",") + random.rule();
    for (const char* legend : {"studio", "openmaptiles"}) {
        compareWithImport("[" + rules + "]", mapping, builtIn(legend));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomExport, testing::Range(1U, 9U));

}  // namespace
}  // namespace customstyle_test
