#include "tools/vocabulary/RecordText.h"

#include <fmt/format.h>

#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {
std::vector<FieldText> applyingFields(const tagCustomStyle& style) {
    std::vector<FieldText> fields;
    for (const StyleField& field : styleFields()) {
        const bool isValue = field.kind == FieldKind::Color || field.kind == FieldKind::Size;
        if (!isValue || !appliesIn(field, style)) continue;
        fields.push_back({field.name, field.kind == FieldKind::Color, valueOf(field, style)});
    }
    return fields;
}

std::string rgbText(std::uint64_t packedColor) {
    return fmt::format("#{:02x}{:02x}{:02x}", packedColor & 0xFF, packedColor >> 8 & 0xFF, packedColor >> 16 & 0xFF);
}

unsigned int alphaOf(std::uint64_t packedColor) {
    return static_cast<unsigned int>(packedColor >> 24 & 0xFF);
}

std::string colorText(std::uint64_t packedColor) {
    const unsigned int alpha = alphaOf(packedColor);
    return fmt::format("{} alpha {:02x}{}", rgbText(packedColor), alpha, alpha == 0 ? " (invisible)" : "");
}

std::string shortColorText(std::uint64_t packedColor) {
    const unsigned int alpha = alphaOf(packedColor);
    if (alpha == 0) return "invisible";
    return alpha == 0xFF ? rgbText(packedColor) : fmt::format("{}{:02x}", rgbText(packedColor), alpha);
}

std::string valueText(const FieldText& field) {
    return field.isColor ? colorText(field.value) : fmt::format("{}", field.value);
}

}  // namespace customstyle_tool
