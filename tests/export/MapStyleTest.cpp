#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tests/study/LoadedText.h"
#include "tests/support/StyleBuilder.h"
#include "tools/export/LegendReader.h"
#include "tools/export/MapStyle.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;
using Json = nlohmann::ordered_json;

Legend legendOf(const std::string& layers) {
    const SourceFile file("legend.json", R"({"version": 1, "name": "test", "source": {"type": "vector"},
        "fonts": {"regular": ["Sans"], "bold": ["Sans Bold"]}, "text": ["get", "name"],
        "backgrounds": {"land": "#ffffff", "grid": "#eeeeee"}, "layers": [)" +
                                             layers + "]}");
    return std::get<Legend>(readLegend(file));
}

// Over one style id for each type.
ExportedStyle exported(std::initializer_list<RuleBuilder> rules, const std::string& layers,
                       ExportOptions options = {}) {
    return exportedStyle(*loadedText(Mapping::standard(), styleOf(rules)), legendOf(layers), options);
}

std::vector<std::string> layerIds(const Json& style) {
    std::vector<std::string> ids;
    for (const Json& layer : style["layers"]) ids.push_back(layer["id"]);
    return ids;
}

// A property, of whichever group.
Json valueIn(const Json& style, const std::string& id, const std::string& property) {
    for (const Json& layer : style["layers"]) {
        if (layer["id"] != id) continue;
        for (const char* group : {"paint", "layout"}) {
            if (layer.contains(group) && layer[group].contains(property)) return layer[group][property];
        }
    }
    return nullptr;
}

std::vector<LossCode> codesOf(const Losses& losses) {
    std::vector<LossCode> codes;
    for (const auto& [code, places] : losses.all()) {
        if (code != LossCode::TilesMissing && code != LossCode::GlyphsMissing) codes.push_back(code);
    }
    return codes;
}

const std::string kWater = R"({"type": "water", "kind": "area", "source_layer": "water"})";
const std::string kHighway = R"({"type": "highway", "kind": "line", "source_layer": "roads", "look": {"width": 2}})";
const std::string kLocal = R"({"type": "local", "kind": "line", "source_layer": "roads", "look": {"width": 1}})";
const std::string kCity = R"({"type": "city", "kind": "label", "source_layer": "places", "icon": "dot"})";
const std::string kBuilding =
    R"({"type": "building", "kind": "building", "source_layer": "b", "id": "s", "height": ["get", "h"]})";

TEST(ExportedValue, IsOneWhereAllLevelsAgree) {
    const Json style = exported({rule("water", "fill").color("#112233")}, kWater).style;
    EXPECT_EQ(valueIn(style, "water-fill", "fill-color"), "#112233");
}

TEST(ExportedValue, HasAStepForEachLevelThatChangesIt) {
    const Json style =
        exported({rule("water", "fill").color("#112233"), rule("water", "fill").color("#44556680").level("9"),
                  rule("water", "fill").color("#44556680").level("10")},
                 kWater)
            .style;
    EXPECT_EQ(valueIn(style, "water-fill", "fill-color"),
              Json::parse(R"json(["step", ["zoom"], "#112233", 8, "rgba(68,85,102,0.502)", 10, "#112233"])json"));
}

TEST(ExportedValue, ChangesAtTheZoomOfTheOffset) {
    const Json style = exported({rule("water", "fill").color("#112233").level("9")}, kWater, {.zoomOffset = 0}).style;
    EXPECT_EQ(valueIn(style, "water-fill", "fill-color"),
              Json::parse(R"(["step", ["zoom"], "#e8e4dc", 9, "#112233", 10, "#e8e4dc"])"));
}

// The style ids 7 and 8 are highways, 8 is water as well and looks so.
ExportedStyle exportedShared(const std::string& layer) {
    const std::string mapping = mappingText([](int type) {
        if (type == 13) return std::vector<int>{7, 8, 9};
        return type == 2 ? std::vector<int>{8} : std::vector<int>{};
    });
    const std::string style =
        styleOf({rule("highway", "fill").color("#111111"), rule("water", "fill").color("#222222").level("9")});
    return exportedStyle(*loadedText(mapping, style), legendOf(layer), {});
}

TEST(ExportedValue, IsAChoiceByStyleIdWhereFeaturesTellTheirs) {
    const ExportedStyle result =
        exportedShared(R"({"type": "highway", "kind": "line", "source_layer": "roads", "id": "s"})");
    EXPECT_EQ(valueIn(result.style, "highway-line", "line-color"),
              Json::parse(R"(["step", ["zoom"], "#111111", 8, ["match", ["get", "s"], [8], "#222222", "#111111"],
                              9, "#111111"])"));
    EXPECT_THAT(codesOf(result.losses), Not(Contains(LossCode::IdsNotToldApart)));
}

TEST(ExportedValue, IsThatOfMostStyleIdsWhereFeaturesDoNotTellTheirs) {
    const ExportedStyle result = exportedShared(R"({"type": "highway", "kind": "line", "source_layer": "roads"})");
    EXPECT_EQ(valueIn(result.style, "highway-line", "line-color"), "#111111");
    ASSERT_THAT(codesOf(result.losses), Contains(LossCode::IdsNotToldApart));
    EXPECT_EQ(result.losses.all().at(LossCode::IdsNotToldApart).at(13), LevelSet().set(classOfLevel(9)));
}

TEST(ExportedValue, IsThatOfTheStyleIdsWhichALayerNames) {
    const ExportedStyle result =
        exportedShared(R"({"type": "highway", "kind": "line", "source_layer": "a", "ids": [8]})");
    EXPECT_EQ(valueIn(result.style, "highway-line", "line-color"),
              Json::parse(R"(["step", ["zoom"], "#111111", 8, "#222222", 9, "#111111"])"));
}

TEST(ExportedLayers, HaveTheCasingsOfNeighbouringLinesBelowAllOfThem) {
    const auto stroke = [](const char* type) { return rule(type, "stroke").color("#101010"); };
    const Json style =
        exported({stroke("highway"), stroke("local"), stroke("water")}, kWater + "," + kLocal + "," + kHighway).style;
    EXPECT_THAT(layerIds(style), ElementsAre("grid", "land", "water-fill", "water-outline", "local-casing",
                                             "highway-casing", "local-line", "highway-line"));
    EXPECT_EQ(valueIn(style, "highway-casing", "line-gap-width"), 2);
    EXPECT_EQ(valueIn(style, "highway-casing", "line-width"), 0.6);
}

TEST(ExportedLayers, AreLeftOutWhereNothingCanBeSeen) {
    const Json style = exported({rule("water", "geometry").visibility("off"), rule("city", "all").visibility("off")},
                                kWater + "," + kCity)
                           .style;
    EXPECT_THAT(layerIds(style), ElementsAre("grid", "land"));
}

TEST(ExportedLayers, AreDrawnWhereTheyHaveAWidthAndAnyAlpha) {
    const auto drawn = [](const RuleBuilder& rule) { return layerIds(exported({rule}, kHighway).style).size() > 2; };
    EXPECT_TRUE(drawn(rule("highway", "fill").color("#11223301")));
    EXPECT_FALSE(drawn(rule("highway", "fill").color("#11223300")));
    EXPECT_TRUE(drawn(rule("highway", "fill").weight("1")));
    EXPECT_FALSE(drawn(rule("highway", "fill").weight("0")));
}

TEST(ExportedLayers, HaveCasingsOfAnyAlpha) {
    const auto hasCasing = [](const char* color) {
        const Json style = exported({rule("highway", "stroke").color(color)}, kHighway).style;
        return !valueIn(style, "highway-casing", "line-color").is_null();
    };
    EXPECT_TRUE(hasCasing("#11223301"));
    EXPECT_FALSE(hasCasing("#11223300"));
}

TEST(ExportedLayers, HaveLinesOfOnePixelWhereNobodySaysMore) {
    const Json style = exported({}, R"({"type": "highway", "kind": "line", "source_layer": "roads"})").style;
    EXPECT_EQ(valueIn(style, "highway-line", "line-width"), 1);
}

TEST(ExportedLayers, HaveNoZoomsAtTheEndsOfAll) {
    const auto water = [](const std::string& levels, int offset) {
        return exported({}, R"({"type": "water", "kind": "area", "source_layer": "water", )" + levels + "}",
                        {.zoomOffset = offset})
            .style["layers"][2];
    };
    EXPECT_FALSE(water(R"("from": 1)", 1).contains("minzoom"));
    EXPECT_EQ(water(R"("from": 2)", 1)["minzoom"], 1);
    EXPECT_EQ(water(R"("to": 24)", 0)["maxzoom"], 24);
    EXPECT_EQ(water(R"("to": 0)", 1)["maxzoom"], 0);
}

TEST(ExportedLayers, HaveTheirLastLevel) {
    const Json style = exported({rule("water", "fill").color("#112233").level("9")},
                                R"({"type": "water", "kind": "area", "source_layer": "water", "from": 8, "to": 9})")
                           .style;
    EXPECT_EQ(valueIn(style, "water-fill", "fill-color"),
              Json::parse(R"(["step", ["zoom"], "#e8e4dc", 8, "#112233"])"));
}

TEST(ExportedLayers, AreDrawnAtTheirLevelsOnly) {
    const Json style =
        exported({}, R"({"type": "water", "kind": "area", "source_layer": "water", "from": 9, "to": 12})").style;
    EXPECT_EQ(style["layers"][2]["minzoom"], 8);
    EXPECT_EQ(style["layers"][2]["maxzoom"], 12);
}

TEST(ExportedLabel, HasNoTextWhereTheStyleHidesIt) {
    const ExportedStyle result = exported({rule("city", "labels.text.fill").visibility("off").level("9")}, kCity);
    EXPECT_EQ(valueIn(result.style, "city-label", "text-field"),
              Json::parse(R"(["step", ["zoom"], ["get", "name"], 8, "", 9, ["get", "name"]])"));
    EXPECT_THAT(codesOf(result.losses), ElementsAre(LossCode::HiddenText, LossCode::SpriteMissing));
}

TEST(ExportedLabel, HasTextFromOnePixelOn) {
    const Json style =
        exported({rule("city", "labels").fontsize("1"), rule("city", "labels").fontsize("0").level("9")}, kCity).style;
    EXPECT_EQ(valueIn(style, "city-label", "text-field"),
              Json::parse(R"(["step", ["zoom"], ["get", "name"], 8, "", 9, ["get", "name"]])"));
}

TEST(ExportedLabel, LosesItsPlaceWhereItsSizeChanges) {
    const std::initializer_list<RuleBuilder> oneSize = {rule("city", "labels").fontsize("9")};
    EXPECT_THAT(codesOf(exported(oneSize, kCity).losses), Not(Contains(LossCode::LabelSpacing)));
    const std::initializer_list<RuleBuilder> twoSizes = {rule("city", "labels").fontsize("9").level("9")};
    EXPECT_THAT(codesOf(exported(twoSizes, kCity).losses), Contains(LossCode::LabelSpacing));
}

TEST(ExportedLabel, LosesWeightAndTheWidthOfItsHalo) {
    const ExportedStyle result =
        exported({rule("city", "labels.text.fill").weight("3"), rule("city", "labels.text.stroke").weight("9")}, kCity);
    EXPECT_EQ(valueIn(result.style, "city-label", "text-font"), Json::array({"Sans Bold"}));
    EXPECT_EQ(valueIn(result.style, "city-label", "text-halo-width"), 3);
    EXPECT_THAT(codesOf(result.losses),
                ElementsAre(LossCode::Units, LossCode::TextWeight, LossCode::HaloCapped, LossCode::SpriteMissing));
}

TEST(ExportedBuilding, IsFlatAndLosesItsTopSurface) {
    const ExportedStyle result = exported({rule("building", "topsurface").color("#123456")}, kBuilding);
    EXPECT_THAT(layerIds(result.style), ElementsAre("grid", "land", "building-fill"));
    EXPECT_THAT(codesOf(result.losses), ElementsAre(LossCode::TopSurface));
}

TEST(ExportedBuilding, HasUnlitWallsAndARoofWhenRaised) {
    const ExportedStyle result =
        exported({rule("building", "fill").color("#11223380"), rule("building", "topsurface").color("#123456")},
                 kBuilding, {.isRaised = true});
    EXPECT_THAT(layerIds(result.style), ElementsAre("grid", "land", "building-walls", "building-roof"));
    EXPECT_EQ(valueIn(result.style, "building-walls", "fill-extrusion-color"), "#112233");
    EXPECT_EQ(valueIn(result.style, "building-walls", "fill-extrusion-opacity"), 0.502);
    EXPECT_EQ(valueIn(result.style, "building-roof", "fill-extrusion-color"), "#123456");
    EXPECT_EQ(valueIn(result.style, "building-roof", "fill-extrusion-base"), Json::parse(R"(["get", "h"])"));
    EXPECT_EQ(result.style["light"]["intensity"], 0);
    EXPECT_THAT(codesOf(result.losses), ElementsAre(LossCode::UnlitWalls));
}

TEST(ExportedBuilding, IsLeftOutWhereNothingOfItCanBeSeen) {
    const ExportedStyle result =
        exported({rule("building", "geometry").visibility("off")}, kBuilding, {.isRaised = true});
    EXPECT_THAT(layerIds(result.style), ElementsAre("grid", "land"));
}

// The style id 8 is that of an invisible water as well.
TEST(ExportedBuilding, HasTheOpacityOfWhatCanBeSeen) {
    const std::string mapping = mappingText([](int type) {
        if (type == 3) return std::vector<int>{7, 8};
        return type == 2 ? std::vector<int>{8} : std::vector<int>{};
    });
    const std::string style =
        styleOf({rule("water", "geometry").visibility("off"), rule("building", "fill").color("#11223380")});
    const ExportedStyle result = exportedStyle(*loadedText(mapping, style), legendOf(kBuilding), {.isRaised = true});
    EXPECT_EQ(valueIn(result.style, "building-walls", "fill-extrusion-opacity"), 0.502);
    EXPECT_THAT(codesOf(result.losses), Not(Contains(LossCode::WallOpacity)));
    EXPECT_EQ(result.style["layers"][2]["filter"], Json::parse(R"(["match", ["get", "s"], [8], false, true])"));
}

TEST(ExportLosses, NameTypesThatTheLegendLacks) {
    const ExportedStyle result =
        exported({rule("highway", "fill").color("#111111"), rule("water", "labels.text.fill").color("#111111"),
                  rule("city", "geometry").color("#111111"), rule("local", "all").visibility("off")},
                 kWater + "," + kCity);
    EXPECT_THAT(codesOf(result.losses),
                ElementsAre(LossCode::NotInLegend, LossCode::NoLabels, LossCode::NoShape, LossCode::SpriteMissing));
    EXPECT_EQ(result.losses.all().at(LossCode::NotInLegend).size(), 1U);
}

TEST(ExportedStyle, HasTheNameOfItsFile) {
    EXPECT_EQ(exported({}, kWater).style["name"], "style");
}

TEST(ExportOptions, ReplaceWhatTheLegendNames) {
    const Json byTemplate = exported({}, kCity, {.tiles = "https://example.org/{z}/{x}/{y}"}).style;
    EXPECT_EQ(byTemplate["sources"]["map"]["tiles"], Json::array({"https://example.org/{z}/{x}/{y}"}));
    const ExportedStyle result = exported({}, kCity, {.tiles = "tiles.json", .glyphs = "glyphs", .sprite = "sprite"});
    EXPECT_EQ(result.style["sources"]["map"]["url"], "tiles.json");
    EXPECT_EQ(result.style["glyphs"], "glyphs");
    EXPECT_EQ(result.style["sprite"], "sprite");
    EXPECT_THAT(result.losses.all(), IsEmpty());
}

TEST(ExportOptions, ReplaceTheUrlOfTheLegendByATemplate) {
    Legend legend = legendOf(kWater);
    legend.source = {{"type", "vector"}, {"url", "tiles.json"}, {"maxzoom", 14}};
    const auto study = loadedText(Mapping::standard(), "[]");
    EXPECT_EQ(exportedStyle(*study, legend, {.tiles = "{z}/{x}/{y}"}).style["sources"]["map"],
              Json({{"type", "vector"}, {"maxzoom", 14}, {"tiles", {"{z}/{x}/{y}"}}}));
    EXPECT_EQ(exportedStyle(*study, legend, {}).style["sources"]["map"], legend.source);
}

TEST(ExportedBuilding, HasNoFilterWhereFeaturesDoNotTellTheirStyleIds) {
    const Json style =
        exported({rule("building", "geometry").visibility("off").level("9")},
                 R"({"type": "building", "kind": "building", "source_layer": "b", "height": 9})", {.isRaised = true})
            .style;
    EXPECT_EQ(style["layers"][2]["id"], "building-walls");
    EXPECT_FALSE(style["layers"][2].contains("filter"));
}

TEST(ExportLosses, KnowLabelsOfTheCompanion) {
    const std::string label = R"({"type": "highwaylabel", "kind": "line_label", "source_layer": "roads"})";
    const auto codes = [](const std::string& layers) {
        return codesOf(exported({rule("highway", "labels.text.fill").color("#111111")}, layers).losses);
    };
    EXPECT_THAT(codes(kHighway), Contains(LossCode::NoLabels));
    EXPECT_THAT(codes(kHighway + "," + label), Not(Contains(LossCode::NoLabels)));
}

TEST(ExportLosses, HaveUnitsOfBordersAndOfTheWidthsOfLines) {
    const auto hasUnits = [](const RuleBuilder& rule, const std::string& layer) {
        return codesOf(exported({rule}, layer).losses) == std::vector{LossCode::Units};
    };
    EXPECT_TRUE(hasUnits(rule("water", "stroke").weight("2"), kWater));
    EXPECT_FALSE(hasUnits(rule("water", "fill").weight("2"), kWater));
    EXPECT_TRUE(hasUnits(rule("highway", "fill").weight("2"), kHighway));
    EXPECT_TRUE(hasUnits(rule("highway", "stroke").weight("2"), kHighway));
}

TEST(ExportedStyle, HasTheFontFacesOfItsLegendInsteadOfGlyphs) {
    Legend legend = legendOf(kCity);
    legend.fontFaces = {{"Sans", "sans.ttf"}};
    const ExportedStyle result = exportedStyle(*loadedText(Mapping::standard(), "[]"), legend, {});
    EXPECT_EQ(result.style["font-faces"], legend.fontFaces);
    EXPECT_FALSE(result.losses.all().contains(LossCode::GlyphsMissing));
}

TEST(LossPlaces, AreCountedBeyondTheMost) {
    const std::vector<std::string> places = {"a", "b", "c", "d"};
    EXPECT_EQ(placesText(places, 4), " (a; b; c; d)");
    EXPECT_EQ(placesText(places, 2), " (a; b; 2 more)");
    EXPECT_EQ(placesText({}, 2), "");
}

TEST(ExportOptions, MissUrlsThatNobodyNames) {
    const ExportedStyle result = exported({}, kCity);
    std::vector<LossCode> codes;
    for (const auto& [code, places] : result.losses.all()) codes.push_back(code);
    EXPECT_THAT(codes, UnorderedElementsAre(LossCode::TilesMissing, LossCode::GlyphsMissing, LossCode::SpriteMissing));
}

}  // namespace
}  // namespace customstyle_test
