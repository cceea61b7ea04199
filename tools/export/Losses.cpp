#include "tools/export/Losses.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <vector>

#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

constexpr LossRow kLossRows[] = {
    {"units", "weights and font sizes have no unit; they are written as pixels"},
    {"text-weight", "MapLibre has no text weights; from 2 on the bold font is used, below 2 the regular one"},
    {"halo-capped",
     "MapLibre draws a halo of at most a quarter of the font size; wider text strokes are narrowed to that"},
    {"hidden-text", "hidden text is left out and reserves no space, so other labels may appear there"},
    {"label-spacing", "MapLibre spaces labels by the font size of the next level"},
    {"top-surface", "flat buildings have no top surface; write --raised for walls and roofs"},
    {"unlit-walls",
     "walls have exactly the style's colour, because the light is turned off; a renderer may shade them"},
    {"wall-opacity", "MapLibre has one opacity for all walls or roofs of a layer; it is that of most style ids"},
    {"area-weight", "areas have no fill weight"},
    {"grid-under-land",
     "MapLibre has no grid; its colour is drawn under the land and is visible where the land is transparent"},
    {"ids-not-told-apart", "these tiles do not distinguish the style ids of a type; all get the style of most of them"},
    {"not-in-legend", "the legend has no features of these types; add layers for them to a legend of your own"},
    {"no-labels", "the legend has no labels of these types, so their text is not drawn"},
    {"no-shape", "the legend has only labels of these types, so their fill and stroke are not drawn"},
    {"tiles-missing", "the legend names no tiles; write --tiles URL"},
    {"glyphs-missing", "the legend names no glyphs for text; write --glyphs URL"},
    {"sprite-missing", "the legend names icons but no sprite that holds them; write --sprite URL"},
};
static_assert(std::size(kLossRows) == static_cast<std::size_t>(LossCode::SpriteMissing) + 1);

std::vector<std::string> placesIn(const Losses::Places& places) {
    std::vector<std::string> texts;
    for (const auto& [featureType, levels] : places) {
        texts.push_back(fmt::format("{} at {}", catalogue().GetFeatureTypeName(featureType), levelsText(levels)));
    }
    return texts;
}

}  // namespace

std::span<const LossRow> lossRows() {
    return kLossRows;
}

std::string placesText(std::span<const std::string> places, std::size_t most) {
    if (places.empty()) return "";
    std::vector<std::string> parts(places.begin(),
                                   places.begin() + static_cast<std::ptrdiff_t>(std::min(most, places.size())));
    if (most < places.size()) parts.push_back(fmt::format("{} more", places.size() - most));
    return fmt::format(" ({})", fmt::join(parts, "; "));
}

std::string lossesText(const Losses& losses, std::string_view file) {
    std::string text;
    for (const auto& [code, places] : losses.all()) {
        const LossRow& row = kLossRows[static_cast<std::size_t>(code)];
        text += fmt::format("{}: {}: {}{}\n", file, row.code, row.text, placesText(placesIn(places), kMostPlaces));
    }
    return text;
}

Json lossTexts(const Losses& losses) {
    Json texts = Json::object();
    for (const auto& [code, places] : losses.all()) {
        const LossRow& row = kLossRows[static_cast<std::size_t>(code)];
        texts[std::string(row.code)] = fmt::format("{}{}", row.text, placesText(placesIn(places), places.size()));
    }
    return texts;
}

Json lossesJson(const Losses& losses) {
    Json list = Json::array();
    for (const auto& [code, places] : losses.all()) {
        const LossRow& row = kLossRows[static_cast<std::size_t>(code)];
        Json where = Json::array();
        for (const auto& [featureType, levels] : places) {
            where.push_back(
                {{"feature_type", catalogue().GetFeatureTypeName(featureType)}, {"levels", levelsJson(levels)}});
        }
        list.push_back({{"code", row.code}, {"text", row.text}, {"places", where}});
    }
    return list;
}

}  // namespace customstyle_tool
