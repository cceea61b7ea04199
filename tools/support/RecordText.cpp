#include "support/RecordText.h"

#include <fmt/format.h>

namespace customstyle_tool {
namespace {

using Style = _orvik_framework::tagCustomStyle;

template <typename Value>
struct NamedField {
    const char* name;
    Value Style::*value;
    int Style::*applies;
};

constexpr NamedField<std::uint64_t> kColors[] = {
    {"fill", &Style::m_fillColor, &Style::m_fillColorSet},
    {"stroke", &Style::m_borderColor, &Style::m_borderColorSet},
    {"top surface", &Style::m_topSurfaceColor, &Style::m_topSurfaceColorSet},
    {"text fill", &Style::m_textFillColor, &Style::m_textFillColorSet},
    {"text stroke", &Style::m_textStrokeColor, &Style::m_textStrokeColorSet},
};

constexpr NamedField<std::uint8_t> kSizes[] = {
    {"fill weight", &Style::m_fillWeight, &Style::m_fillWeightSet},
    {"stroke weight", &Style::m_borderWeight, &Style::m_borderWeightSet},
    {"text fill weight", &Style::m_textFillWeight, &Style::m_textFillWeightSet},
    {"text stroke weight", &Style::m_textStrokeWeight, &Style::m_textStrokeWeightSet},
    {"font size", &Style::m_fontSize, &Style::m_fontSizeSet},
};

}  // namespace

std::vector<FieldText> applyingFields(const Style& style) {
    std::vector<FieldText> fields;
    for (const auto& [name, value, applies] : kColors) {
        if (style.*applies == 1) fields.push_back({name, true, style.*value});
    }
    for (const auto& [name, value, applies] : kSizes) {
        if (style.*applies == 1) fields.push_back({name, false, style.*value});
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

std::string valueText(const FieldText& field) {
    return field.isColor ? colorText(field.value) : fmt::format("{}", field.value);
}

}  // namespace customstyle_tool
