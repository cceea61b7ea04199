#include "tools/vocabulary/StyleFields.h"

#include <algorithm>
#include <iterator>

namespace customstyle_tool {
namespace {

using Style = tagCustomStyle;

constexpr StyleField kFields[] = {
    {"fill", FieldKind::Color, FieldPart::Geometry, &Style::m_fillColor, &Style::m_fillColorSet},
    {"stroke", FieldKind::Color, FieldPart::Geometry, &Style::m_borderColor, &Style::m_borderColorSet},
    {"top surface", FieldKind::Color, FieldPart::Geometry, &Style::m_topSurfaceColor, &Style::m_topSurfaceColorSet},
    {"text fill", FieldKind::Color, FieldPart::Text, &Style::m_textFillColor, &Style::m_textFillColorSet},
    {"text stroke", FieldKind::Color, FieldPart::Text, &Style::m_textStrokeColor, &Style::m_textStrokeColorSet},
    {"fill weight", FieldKind::Size, FieldPart::Geometry, &Style::m_fillWeight, &Style::m_fillWeightSet},
    {"stroke weight", FieldKind::Size, FieldPart::Geometry, &Style::m_borderWeight, &Style::m_borderWeightSet},
    {"text fill weight", FieldKind::Size, FieldPart::Text, &Style::m_textFillWeight, &Style::m_textFillWeightSet},
    {"text stroke weight", FieldKind::Size, FieldPart::Text, &Style::m_textStrokeWeight, &Style::m_textStrokeWeightSet},
    {"font size", FieldKind::Size, FieldPart::Text, &Style::m_fontSize, &Style::m_fontSizeSet},
    {"icon", FieldKind::IconFlag, FieldPart::Icon, &Style::m_iconHidden, nullptr},
    {"customised", FieldKind::Mark, FieldPart::None, &Style::m_custom, nullptr},
};
static_assert(std::size(kFields) == kStyleFieldCount);
static_assert(kFields[kIconField].kind == FieldKind::IconFlag && kFields[kMarkField].kind == FieldKind::Mark);

}  // namespace

std::span<const StyleField> styleFields() {
    return kFields;
}

std::size_t fieldIndex(std::string_view name) {
    const auto found =
        std::ranges::find(kFields, name, [](const StyleField& field) { return std::string_view(field.name); });
    return static_cast<std::size_t>(found - std::begin(kFields));
}

std::uint64_t valueOf(const StyleField& field, const Style& style) {
    return std::visit([&](auto member) { return static_cast<std::uint64_t>(style.*member); }, field.value);
}

bool appliesIn(const StyleField& field, const Style& style) {
    return field.applies == nullptr || style.*field.applies == 1;
}

void setValue(const StyleField& field, Style& style, std::uint64_t value) {
    std::visit(
        [&](auto member) {
            auto& place = style.*member;
            place = static_cast<std::remove_reference_t<decltype(place)>>(value);
        },
        field.value);
}

}  // namespace customstyle_tool
