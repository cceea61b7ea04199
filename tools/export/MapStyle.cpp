#include "tools/export/MapStyle.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/export/CssColor.h"
#include "tools/export/LevelExpression.h"
#include "tools/export/LossFinding.h"
#include "tools/export/MapLayers.h"

namespace customstyle_tool {
namespace {

using Json = LegendJson;

constexpr int kStyleVersion = 8;

// "night" of "styles/night.json".
std::string nameOf(std::string_view path) {
    path.remove_prefix(path.find_last_of("/\\") + 1);
    return std::string(path.substr(0, path.find_last_of('.')));
}

class StyleMaker {
public:
    StyleMaker(const StyleStudy& study, const Legend& legend, const ExportOptions& options)
        : m_study(study), m_legend(legend), m_options(options) {}

    ExportedStyle make() {
        Json layers = backgrounds();
        addLayers(layers);
        findMissingLayers(m_study, m_legend, m_losses);
        Json style = head();
        style["metadata"]["customstyle:losses"] = lossTexts(m_losses);
        style["layers"] = std::move(layers);
        return {std::move(style), std::move(m_losses)};
    }

private:
    Json head() {
        Json style = {{"version", kStyleVersion},
                      {"name", nameOf(m_study.source().file().path())},
                      {"metadata", {{"customstyle:legend", m_legend.name}}}};
        if (m_options.isRaised) style["light"] = {{"anchor", "viewport"}, {"intensity", 0}};
        style["sources"][kSourceName] = source();
        addIfAny(style, "glyphs", m_options.glyphs ? Json(*m_options.glyphs) : m_legend.glyphs, LossCode::GlyphsMissing,
                 hasText());
        addIfAny(style, "sprite", m_options.sprite ? Json(*m_options.sprite) : m_legend.sprite, LossCode::SpriteMissing,
                 hasIcons());
        if (!m_legend.fontFaces.is_null()) style["font-faces"] = m_legend.fontFaces;
        return style;
    }

    void addIfAny(Json& style, const char* member, const Json& value, LossCode missing, bool isNeeded) {
        if (!value.is_null()) {
            style[member] = value;
        } else if (isNeeded) {
            m_losses.add(missing);
        }
    }

    bool hasText() const {
        return m_legend.fontFaces.is_null() &&
               std::ranges::any_of(m_legend.layers, [](const LegendLayer& layer) { return isLabelKind(layer.kind); });
    }

    bool hasIcons() const {
        return std::ranges::any_of(m_legend.layers, [](const LegendLayer& layer) { return !layer.icon.is_null(); });
    }

    Json source() {
        Json source = m_legend.source;
        if (m_options.tiles) {
            const bool isTemplate = m_options.tiles->find("{z}") != std::string::npos;
            source.erase("url");
            source.erase("tiles");
            source[isTemplate ? "tiles" : "url"] =
                isTemplate ? Json::array({*m_options.tiles}) : Json(*m_options.tiles);
        }
        if (!source.contains("url") && !source.contains("tiles")) m_losses.add(LossCode::TilesMissing);
        return source;
    }

    Json backgrounds() {
        Json layers = Json::array();
        const auto color = [this](auto askColor, std::uint64_t otherwise) {
            return steppedOver(zoomRangeOf({}, m_options.zoomOffset), [&, askColor](int level) {
                return Json(cssColor(askColor(m_study.config(), level).value_or(otherwise)));
            });
        };
        layers.push_back(background("grid", color(gridColor, m_legend.grid)));
        layers.push_back(background("land", color(landColor, m_legend.land)));
        if (gridColor(m_study.config(), 0)) m_losses.add(LossCode::GridUnderLand);
        return layers;
    }

    static Json background(const char* type, Json color) {
        return {{"id", type},
                {"type", "background"},
                {"metadata", {{"customstyle:type", type}, {"customstyle:part", "background"}}},
                {"paint", {{"background-color", std::move(color)}}}};
    }

    // The casings of neighbouring lines lie below all of them.
    void addLayers(Json& layers) {
        std::vector<Json> run;
        for (const LegendLayer& layer : m_legend.layers) {
            const LayerContext context{m_legend, layer, LayerAnswers(m_study, layer),
                                       zoomRangeOf(layer, m_options.zoomOffset)};
            findLayerLosses(context, m_options.isRaised, m_losses);
            MapLayers made = mapLayersOf(context, m_options.isRaised, m_losses);
            append(made.below, layers);  // of lines only
            run.insert(run.end(), made.layers.begin(), made.layers.end());
            if (layer.kind != ShapeKind::Line) append(run, layers);
        }
        append(run, layers);
    }

    static void append(std::vector<Json>& more, Json& layers) {
        for (Json& layer : more) layers.push_back(std::move(layer));
        more.clear();
    }

    const StyleStudy& m_study;
    const Legend& m_legend;
    const ExportOptions& m_options;
    Losses m_losses;
};

}  // namespace

ExportedStyle exportedStyle(const StyleStudy& study, const Legend& legend, const ExportOptions& options) {
    return StyleMaker(study, legend, options).make();
}

}  // namespace customstyle_tool
