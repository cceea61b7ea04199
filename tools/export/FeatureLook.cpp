#include "tools/export/FeatureLook.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {
namespace {

constexpr std::uint64_t kInvisible = 0;

std::optional<std::uint64_t> valueIn(const Answer& answer, std::string_view field) {
    return fieldIn(answer, fieldIndex(field));
}

double sizeIn(const Answer& answer, std::string_view field, double otherwise) {
    const auto value = valueIn(answer, field);
    return value ? static_cast<double>(*value) : otherwise;
}

bool isInvisible(const std::optional<std::uint64_t>& color) {
    return color && alphaOf(*color) == 0;
}

// A border that only the style colours has no width in the look.
double borderWidth(const Legend& legend, const LegendLayer& layer, const Answer& answer, int level) {
    const double width = layer.look.number(LookKey::StrokeWidth, level);
    return sizeIn(answer, "stroke weight", width == 0 && valueIn(answer, "stroke") ? legend.border : width);
}

}  // namespace

AreaLook areaLook(const Legend& legend, const LegendLayer& layer, const Answer& answer, int level) {
    const auto fill = valueIn(answer, "fill");
    const std::uint64_t stroke = fill ? kInvisible : layer.look.color(LookKey::Stroke, level);
    return {fill.value_or(layer.look.color(LookKey::Fill, level)), valueIn(answer, "stroke").value_or(stroke),
            borderWidth(legend, layer, answer, level)};
}

BuildingLook buildingLook(const LegendLayer& layer, const Answer& answer, int level) {
    const auto fill = valueIn(answer, "fill");
    const std::uint64_t roof = fill.value_or(layer.look.color(LookKey::Roof, level));
    return {fill.value_or(layer.look.color(LookKey::Walls, level)), valueIn(answer, "top surface").value_or(roof)};
}

LineLook lineLook(const Legend& legend, const LegendLayer& layer, const Answer& answer, int level) {
    const auto fill = valueIn(answer, "fill");
    const std::uint64_t stroke = isInvisible(fill) ? kInvisible : layer.look.color(LookKey::Stroke, level);
    return {fill.value_or(layer.look.color(LookKey::Fill, level)), valueIn(answer, "stroke").value_or(stroke),
            sizeIn(answer, "fill weight", layer.look.number(LookKey::Width, level)),
            borderWidth(legend, layer, answer, level)};
}

LabelLook labelLook(const LegendLayer& layer, const Answer& answer, int level) {
    const auto fill = valueIn(answer, "text fill");
    const auto stroke = valueIn(answer, "text stroke");
    const double size = sizeIn(answer, "font size", layer.look.number(LookKey::TextSize, level));
    const double halo = sizeIn(answer, "text stroke weight", layer.look.number(LookKey::HaloWidth, level));
    const bool isHidden = isInvisible(fill) && (!stroke || isInvisible(stroke));
    return {.color = fill.value_or(layer.look.color(LookKey::Text, level)),
            .halo = stroke.value_or(layer.look.color(LookKey::Halo, level)),
            .size = size,
            .haloWidth = std::min(size * kWidestHalo, halo),
            .isBold = valueIn(answer, "text fill weight").value_or(0) >= kBoldFrom,
            .hasText = !isHidden && size > 0,
            .hasIcon = !answer.iconHidden};
}

}  // namespace customstyle_tool
