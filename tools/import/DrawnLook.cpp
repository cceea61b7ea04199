#include "tools/import/DrawnLook.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

constexpr std::uint64_t kInvisible = 0;
constexpr double kHighestSize = 255;

constexpr RulePart kParts[] = {{"geometry.fill", "color", "fill"},
                               {"geometry.fill", "weight", "fill weight"},
                               {"geometry.stroke", "color", "stroke"},
                               {"geometry.stroke", "weight", "stroke weight"},
                               {"geometry.topsurface", "color", "top surface"},
                               {"labels.text.fill", "color", "text fill"},
                               {"labels.text.fill", "fontsize", "font size"},
                               {"labels.text.stroke", "color", "text stroke"},
                               {"labels.text.stroke", "weight", "text stroke weight"},
                               {"labels.icon", "visibility", "icon"}};
static_assert(std::size(kParts) == kRulePartCount);

// The place of a part by the record's field.
std::size_t rulePartOf(std::string_view field) {
    return static_cast<std::size_t>(std::ranges::find(kParts, field, &RulePart::field) - std::begin(kParts));
}

// Reads the look of one feature from the layers that draw it.
class LookReader {
public:
    LookReader(const LegendLayer& legend, const std::vector<MapLayer*>& layers, int level, const Scene& scene)
        : m_legend(legend), m_level(level), m_scene(scene) {
        for (MapLayer* layer : layers) {
            if (!draws(*layer, scene)) continue;
            layer->isUsed = true;
            m_layers.push_back(layer);
        }
    }

    DrawnLook read() {
        switch (m_legend.kind) {
            case ShapeKind::Line:
                readLine();
                break;
            case ShapeKind::Label:
            case ShapeKind::LineLabel:
                readLabel();
                break;
            case ShapeKind::Area:
            case ShapeKind::Building:
                readArea();
                break;
        }
        return m_look;
    }

private:
    std::vector<const MapLayer*> ofType(std::string_view type) const {
        std::vector<const MapLayer*> found;
        for (const MapLayer* layer : m_layers) {
            if (layer->type == type) found.push_back(layer);
        }
        return found;
    }

    void set(std::string_view field, std::optional<std::uint64_t> value) { m_look[rulePartOf(field)] = value; }

    void setSize(std::string_view field, std::optional<double> size) {
        if (!size) return;
        const double whole = *size > 0 ? std::clamp(std::round(*size), 1.0, kHighestSize) : 0;
        if (std::abs(whole - *size) > 1e-6) m_scene.losses.add(ImportLoss::Rounded, place(field));
        set(field, static_cast<std::uint64_t>(whole));
    }

    std::string place(std::string_view field) const {
        return std::string(catalogue().GetFeatureTypeName(m_legend.featureType)) + " " + std::string(field);
    }

    void noteMore(std::size_t count, std::size_t wanted) const {
        if (count > wanted)
            m_scene.losses.add(ImportLoss::MoreLayers, catalogue().GetFeatureTypeName(m_legend.featureType));
    }

    void readArea() {
        const auto fills = ofType("fill");
        const auto walls = ofType("fill-extrusion");
        noteMore(fills.size() + (fills.empty() ? 0 : walls.size()), 1);
        if (!fills.empty()) {
            set("fill", colorOf(*fills.back(), "fill-color", "fill-opacity", m_scene));
        } else if (!walls.empty()) {
            set("fill", colorOf(*walls.front(), "fill-extrusion-color", "fill-extrusion-opacity", m_scene));
            if (walls.size() > 1)
                set("top surface", colorOf(*walls.back(), "fill-extrusion-color", "fill-extrusion-opacity", m_scene));
        } else {
            set("fill", kInvisible);
        }
        const auto outlines = ofType("line");
        noteMore(outlines.size(), 1);
        if (outlines.empty()) return;
        set("stroke", colorOf(*outlines.back(), "line-color", "line-opacity", m_scene));
        setSize("stroke weight", numberOf(*outlines.back(), "line-width", 1, m_scene));
    }

    void readLine() {
        std::vector<const MapLayer*> lines;
        std::vector<const MapLayer*> casings;
        for (const MapLayer* layer : ofType("line")) (isCasing(*layer) ? casings : lines).push_back(layer);
        if (lines.empty()) {
            set("fill", kInvisible);
            if (casings.empty()) return set("stroke", kInvisible);
        }
        std::optional<double> width;
        if (!lines.empty()) {
            width = numberOf(*lines.back(), "line-width", 1, m_scene);
            set("fill", colorOf(*lines.back(), "line-color", "line-opacity", m_scene));
            setSize("fill weight", width);
        }
        casings.empty() ? readLineBelow(lines, width) : readCasing(casings, lines);
    }

    bool isCasing(const MapLayer& layer) const { return numberOf(layer, "line-gap-width", 0, m_scene).value_or(0) > 0; }

    void readCasing(const std::vector<const MapLayer*>& casings, const std::vector<const MapLayer*>& lines) {
        noteMore(casings.size(), 1);
        noteMore(lines.size(), 1);
        setStroke(*casings.back(), numberOf(*casings.back(), "line-width", 1, m_scene));
    }

    // A wider line below another is its border.
    void readLineBelow(const std::vector<const MapLayer*>& lines, std::optional<double> width) {
        noteMore(lines.size(), 2);
        const auto wider =
            lines.size() < 2 ? std::nullopt : numberOf(*lines[lines.size() - 2], "line-width", 1, m_scene);
        if (width && wider && *wider > *width) return setStroke(*lines[lines.size() - 2], (*wider - *width) / 2);
        const bool isDrawnOtherwise = alphaOf(m_legend.look.color(LookKey::Stroke, m_level)) > 0 &&
                                      m_legend.look.number(LookKey::StrokeWidth, m_level) > 0;
        if (isDrawnOtherwise) set("stroke", kInvisible);
    }

    void setStroke(const MapLayer& casing, std::optional<double> width) {
        set("stroke", colorOf(casing, "line-color", "line-opacity", m_scene));
        setSize("stroke weight", width);
    }

    bool isEmpty(const MapLayer& layer, const char* property) const {
        const auto value = layer.properties.find(property);
        if (value == layer.properties.end()) return true;
        const auto known = valueOf(*value, m_scene.feature, m_scene.zoom);
        return known && known->json.is_string() && known->json.get_ref<const std::string&>().empty();
    }

    void readLabel() {
        const auto labels = ofType("symbol");
        noteMore(labels.size(), 1);
        const bool hasText = !labels.empty() && !isEmpty(*labels.back(), "text-field");
        const bool hasIcon = !labels.empty() && !isEmpty(*labels.back(), "icon-image");
        if (!m_legend.icon.is_null() && !hasIcon) set("icon", 1);
        if (!hasText) {
            set("text fill", kInvisible);
            return set("text stroke", kInvisible);
        }
        set("text fill", colorOf(*labels.back(), "text-color", "text-opacity", m_scene));
        setSize("font size", numberOf(*labels.back(), "text-size", 16, m_scene));
        readHalo(*labels.back());
    }

    void readHalo(const MapLayer& label) {
        const auto width = numberOf(label, "text-halo-width", 0, m_scene);
        const auto color = colorOf(label, "text-halo-color", "text-opacity", m_scene, kInvisible);
        if (!width || !color) return;
        const bool isDrawn = *width > 0 && alphaOf(*color) > 0;
        set("text stroke", isDrawn ? *color : kInvisible);
        if (isDrawn) setSize("text stroke weight", width);
    }

    const LegendLayer& m_legend;
    int m_level;
    Scene m_scene;
    std::vector<const MapLayer*> m_layers;
    DrawnLook m_look{};
};

}  // namespace

std::span<const RulePart> ruleParts() {
    return kParts;
}

DrawnLook drawnLook(const LegendLayer& legend, const std::vector<MapLayer*>& layers, int level, const Scene& scene) {
    return LookReader(legend, layers, level, scene).read();
}

}  // namespace customstyle_tool
