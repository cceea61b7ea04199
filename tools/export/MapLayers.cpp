#include "tools/export/MapLayers.h"

#include <algorithm>
#include <string>
#include <utility>

#include "tools/export/CssColor.h"
#include "tools/export/FeatureLook.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

using Json = LegendJson;

constexpr double kRoofHeight = 0.2;  // metres; a roof of no height would lie inside the walls' own top

// Builds the layers of one legend layer.
class LayerMaker {
public:
    LayerMaker(const LayerContext& context, bool isRaised, Losses& losses)
        : m_context(context), m_layer(context.layer), m_isRaised(isRaised), m_losses(losses) {}

    MapLayers make() {
        switch (m_layer.kind) {
            case ShapeKind::Area:
                addArea();
                break;
            case ShapeKind::Line:
                addLine();
                break;
            case ShapeKind::Building:
                m_isRaised ? addRaised() : addArea();
                break;
            case ShapeKind::Label:
            case ShapeKind::LineLabel:
                addLabel();
                break;
        }
        return std::move(m_made);
    }

private:
    // --- areas ---

    AreaLook area(const Answer& answer, int level) const { return areaLook(m_context.legend, m_layer, answer, level); }

    void addArea() {
        if (isAny([this](const Answer& answer, int level) { return alphaOf(area(answer, level).fill) != 0; })) {
            Json fill = layer("fill", "fill");
            fill["paint"]["fill-color"] =
                color([this](const Answer& answer, int level) { return area(answer, level).fill; });
            m_made.layers.push_back(std::move(fill));
        }
        if (!isAny([this](const Answer& answer, int level) { return area(answer, level).isOutlined(); })) return;
        Json outline = layer("outline", "line");
        outline["paint"]["line-color"] =
            color([this](const Answer& answer, int level) { return area(answer, level).stroke; });
        outline["paint"]["line-width"] =
            number([this](const Answer& answer, int level) { return area(answer, level).strokeWidth; });
        m_made.layers.push_back(std::move(outline));
    }

    // --- lines ---

    LineLook line(const Answer& answer, int level) const { return lineLook(m_context.legend, m_layer, answer, level); }

    void addLine() {
        const Json width = number([this](const Answer& answer, int level) { return line(answer, level).width; });
        if (isAny([this](const Answer& answer, int level) { return line(answer, level).isOutlined(); })) {
            Json casing = lineLayer("casing");
            casing["paint"]["line-color"] =
                color([this](const Answer& answer, int level) { return line(answer, level).stroke; });
            casing["paint"]["line-gap-width"] = width;
            casing["paint"]["line-width"] =
                number([this](const Answer& answer, int level) { return line(answer, level).strokeWidth; });
            m_made.below.push_back(std::move(casing));
        }
        if (!isAny([this](const Answer& answer, int level) { return line(answer, level).isDrawn(); })) return;
        Json drawn = lineLayer("line");
        drawn["paint"]["line-color"] =
            color([this](const Answer& answer, int level) { return line(answer, level).fill; });
        drawn["paint"]["line-width"] = width;
        m_made.layers.push_back(std::move(drawn));
    }

    Json lineLayer(const char* part) const {
        Json json = layer(part, "line");
        json["layout"] = {{"line-cap", "round"}, {"line-join", "round"}};
        return json;
    }

    // --- buildings ---

    void addRaised() {
        addExtrusion("walls", &BuildingLook::walls, m_layer.base.is_null() ? Json(0) : m_layer.base, m_layer.height);
        addExtrusion("roof", &BuildingLook::roof, m_layer.height, Json::array({"+", m_layer.height, kRoofHeight}));
    }

    void addExtrusion(const char* part, std::uint64_t BuildingLook::*colorOf, const Json& base, const Json& height) {
        const auto colorAt = [this, colorOf](const Answer& answer, int level) {
            return buildingLook(m_layer, answer, level).*colorOf;
        };
        if (!isAny([&](const Answer& answer, int level) { return alphaOf(colorAt(answer, level)) != 0; })) return;
        Json walls = layer(part, "fill-extrusion");
        addVisibleFilter(walls, colorAt);
        // Opaque: the alpha of a layer of walls is its opacity.
        walls["paint"] = {{"fill-extrusion-color", value([&](const Answer& answer, int level) {
                               return Json(cssColor(colorAt(answer, level) | kOpaque));
                           })},
                          {"fill-extrusion-base", base},
                          {"fill-extrusion-height", height},
                          {"fill-extrusion-opacity", opacity(colorAt)},
                          {"fill-extrusion-vertical-gradient", false}};
        m_made.layers.push_back(std::move(walls));
    }

    // What is invisible for some style ids only is filtered out.
    template <typename ColorAt>
    void addVisibleFilter(Json& json, ColorAt colorAt) {
        if (m_layer.idProperty.empty()) return;
        const Json isVisible =
            value([&](const Answer& answer, int level) { return Json(alphaOf(colorAt(answer, level)) != 0); });
        if (isVisible.is_boolean()) return;
        json["filter"] = json.contains("filter") ? Json::array({"all", json["filter"], isVisible}) : isVisible;
    }

    // What is filtered out does not affect the opacity of the others.
    template <typename ColorAt>
    Json opacity(ColorAt colorAt) {
        const auto isVisible = [&](const Answer& answer, int level) { return alphaOf(colorAt(answer, level)) != 0; };
        const auto alpha = [&](const Answer& answer, int level) {
            const bool isLeftOut =
                !m_layer.idProperty.empty() && !isVisible(answer, level) && isAnyAt(level, isVisible);
            return isLeftOut ? Json() : numberJson(cssAlpha(colorAt(answer, level)));
        };
        return levelExpressionOf(m_context, alpha, LossCode::WallOpacity, m_losses);
    }

    // --- labels ---

    LabelLook label(const Answer& answer, int level) const { return labelLook(m_layer, answer, level); }

    void addLabel() {
        const bool hasIcon = !m_layer.icon.is_null();
        const auto isShown = [&](const Answer& answer, int level) {
            const LabelLook look = label(answer, level);
            return look.hasText || (hasIcon && look.hasIcon);
        };
        if (!isAny(isShown)) return;
        const bool isAlong = m_layer.kind == ShapeKind::LineLabel;
        Json symbol = layer(isAlong ? "along" : "label", "symbol");
        symbol["layout"] = labelLayout();
        if (isAlong) symbol["layout"].update({{"symbol-placement", "line"}, {"symbol-spacing", 350}});
        if (hasIcon) addIcon(symbol["layout"]);
        symbol["paint"] = labelPaint();
        m_made.layers.push_back(std::move(symbol));
    }

    // One font needs no expression.
    Json font() {
        const Legend& legend = m_context.legend;
        Json font = value([&](const Answer& answer, int level) {
            return Json::array({"literal", label(answer, level).isBold ? legend.boldFont : legend.regularFont});
        });
        return font[0] == "literal" ? std::move(font[1]) : font;
    }

    Json labelLayout() {
        const Json& text = m_layer.text.is_null() ? m_context.legend.text : m_layer.text;
        Json size = number([this](const Answer& answer, int level) { return label(answer, level).size; });
        if (size.is_array()) m_losses.add(LossCode::LabelSpacing);
        return {{"text-field", value([&](const Answer& answer, int level) {
                     return label(answer, level).hasText ? text : Json("");
                 })},
                {"text-font", font()},
                {"text-size", std::move(size)},
                {"text-max-width", 8},
                {"text-padding", 3}};
    }

    void addIcon(Json& layout) {
        layout["icon-image"] = value(
            [this](const Answer& answer, int level) { return label(answer, level).hasIcon ? m_layer.icon : Json(""); });
        layout.update(
            {{"icon-padding", 1}, {"text-anchor", "top"}, {"text-offset", {0, 0.7}}, {"text-optional", true}});
    }

    Json labelPaint() {
        return {
            {"text-color", color([this](const Answer& answer, int level) { return label(answer, level).color; })},
            {"text-halo-color", color([this](const Answer& answer, int level) { return label(answer, level).halo; })},
            {"text-halo-width",
             number([this](const Answer& answer, int level) { return label(answer, level).haloWidth; })}};
    }

    // --- all ---

    Json layer(const std::string& part, const char* type) const {
        const std::string featureType = catalogue().GetFeatureTypeName(m_layer.featureType);
        const std::string name = m_layer.name.empty() ? "" : "-" + m_layer.name;
        Json json = {{"id", featureType + name + "-" + part},
                     {"type", type},
                     {"metadata", {{"customstyle:type", featureType}, {"customstyle:part", part}}},
                     {"source", kSourceName},
                     {"source-layer", m_layer.sourceLayer}};
        const ZoomRange& zooms = m_context.zooms;
        if (m_layer.firstLevel && *m_layer.firstLevel > zooms.offset)
            json["minzoom"] = zooms.zoomOf(*m_layer.firstLevel);
        if (m_layer.lastLevel) json["maxzoom"] = std::clamp(zooms.zoomOf(*m_layer.lastLevel + 1), 0, 24);
        if (!m_layer.filter.is_null()) json["filter"] = m_layer.filter;
        return json;
    }

    Json value(const ValueOf& valueOf) { return expressionOf(m_context, valueOf, m_losses); }

    template <typename ColorAt>
    Json color(ColorAt colorAt) {
        return value([&](const Answer& answer, int level) { return Json(cssColor(colorAt(answer, level))); });
    }

    template <typename NumberAt>
    Json number(NumberAt numberAt) {
        return value([&](const Answer& answer, int level) { return numberJson(numberAt(answer, level)); });
    }

    // Whole numbers as such: 3, not 3.0.
    static Json numberJson(double number) {
        const int whole = static_cast<int>(number);
        return whole == number ? Json(whole) : Json(number);
    }

    // Whether something holds for some style id, at a level or at any.
    template <typename Holds>
    bool isAnyAt(int level, Holds holds) const {
        const auto holdsFor = [&](const AnswerGroup& group) { return holds(group.answer, level); };
        return std::ranges::any_of(m_context.answers.at(level), holdsFor);
    }

    template <typename Holds>
    bool isAny(Holds holds) const {
        for (int level = m_context.zooms.firstLevel; level <= m_context.zooms.lastLevel; ++level) {
            if (isAnyAt(level, holds)) return true;
        }
        return false;
    }

    const LayerContext& m_context;
    const LegendLayer& m_layer;
    bool m_isRaised;
    Losses& m_losses;
    MapLayers m_made;
};

}  // namespace

MapLayers mapLayersOf(const LayerContext& context, bool isRaised, Losses& losses) {
    return LayerMaker(context, isRaised, losses).make();
}

}  // namespace customstyle_tool
