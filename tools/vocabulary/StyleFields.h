// The fields of a style record, as the tools name them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

using _orvik_framework::tagCustomStyle;

/// How a field is written and read by people.
enum class FieldKind { Color, Size, IconFlag, Mark };

/// The part of a feature that a field styles.
enum class FieldPart { Geometry, Text, Icon, None };

/// One field of a style record: a value with the flag that says whether it applies, the icon flag, or the customised
/// mark.
struct StyleField {
    const char* name;  ///< "fill", "text stroke weight", "icon", "customised"
    FieldKind kind;
    FieldPart part;
    std::variant<std::uint64_t tagCustomStyle::*, std::uint8_t tagCustomStyle::*, int tagCustomStyle::*> value;
    int tagCustomStyle::*applies;  ///< null for the icon flag and the mark, which always apply
};

/// All fields but the id: geometry before text, then the icon and the mark.
std::span<const StyleField> styleFields();

inline constexpr std::size_t kStyleFieldCount = 12;
inline constexpr std::size_t kIconField = 10;
inline constexpr std::size_t kMarkField = 11;

/// The index of a field in styleFields(), or kStyleFieldCount if no field has the name.
std::size_t fieldIndex(std::string_view name);

std::uint64_t valueOf(const StyleField& field, const tagCustomStyle& style);
bool appliesIn(const StyleField& field, const tagCustomStyle& style);

/// Stores a value, cut to the field's width.
void setValue(const StyleField& field, tagCustomStyle& style, std::uint64_t value);

}  // namespace customstyle_tool
