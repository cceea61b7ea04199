// The fields of a style record, written down for the tests: they do not take the word of the component or of the tools.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

#include "customstyle/CustomConfig.h"

namespace customstyle_test {

using _orvik_framework::tagCustomStyle;

enum class RecordPart { Geometry, Text };

/// A value of the record with the flag that says whether it applies.
struct RecordField {
    const char* member;  ///< without m_; its flag has the same name with Set
    const char* tools;   ///< what the tools print
    const char* brief;   ///< in tables of expected changes
    RecordPart part;     ///< what it styles
    std::variant<std::uint64_t tagCustomStyle::*, std::uint8_t tagCustomStyle::*> value;  ///< a colour or a size
    int tagCustomStyle::*applies;
};

/// In the order in which the tools list them. Besides, a record has its id, the icon's flag and the customised mark.
inline constexpr auto kRecordFields = std::to_array<RecordField>({
    {"fillColor", "fill", "fill", RecordPart::Geometry, &tagCustomStyle::m_fillColor, &tagCustomStyle::m_fillColorSet},
    {"borderColor", "stroke", "border", RecordPart::Geometry, &tagCustomStyle::m_borderColor,
     &tagCustomStyle::m_borderColorSet},
    {"topSurfaceColor", "top surface", "top", RecordPart::Geometry, &tagCustomStyle::m_topSurfaceColor,
     &tagCustomStyle::m_topSurfaceColorSet},
    {"textFillColor", "text fill", "text-fill", RecordPart::Text, &tagCustomStyle::m_textFillColor,
     &tagCustomStyle::m_textFillColorSet},
    {"textStrokeColor", "text stroke", "text-stroke", RecordPart::Text, &tagCustomStyle::m_textStrokeColor,
     &tagCustomStyle::m_textStrokeColorSet},
    {"fillWeight", "fill weight", "fill-weight", RecordPart::Geometry, &tagCustomStyle::m_fillWeight,
     &tagCustomStyle::m_fillWeightSet},
    {"borderWeight", "stroke weight", "border-weight", RecordPart::Geometry, &tagCustomStyle::m_borderWeight,
     &tagCustomStyle::m_borderWeightSet},
    {"textFillWeight", "text fill weight", "text-fill-weight", RecordPart::Text, &tagCustomStyle::m_textFillWeight,
     &tagCustomStyle::m_textFillWeightSet},
    {"textStrokeWeight", "text stroke weight", "text-stroke-weight", RecordPart::Text,
     &tagCustomStyle::m_textStrokeWeight, &tagCustomStyle::m_textStrokeWeightSet},
    {"fontSize", "font size", "size", RecordPart::Text, &tagCustomStyle::m_fontSize, &tagCustomStyle::m_fontSizeSet},
});

/// Stands for a value of any type where only its type matters.
struct AnyMember {
    template <typename Member>
    operator Member() const;  // NOLINT(google-explicit-constructor): it is meant to pass for any type
};

template <std::size_t... places>
constexpr bool hasMembers(std::index_sequence<places...>) {
    return requires {
        tagCustomStyle{(static_cast<void>(places), AnyMember{})...};
    };
}

/// The members that the table accounts for. A record with others does not compile.
inline constexpr std::size_t kRecordMembers = 2 * kRecordFields.size() + 3;
static_assert(hasMembers(std::make_index_sequence<kRecordMembers>()), "the table has a field that the record lacks");
static_assert(!hasMembers(std::make_index_sequence<kRecordMembers + 1>()), "the record has a field without a row here");

constexpr bool isSize(const RecordField& field) {
    return std::holds_alternative<std::uint8_t tagCustomStyle::*>(field.value);
}

inline std::uint64_t valueIn(const tagCustomStyle& record, const RecordField& field) {
    return std::visit([&](auto member) { return std::uint64_t{record.*member}; }, field.value);
}

/// Stores a value, cut to the field's width; its flag stays.
inline void setValueIn(tagCustomStyle& record, const RecordField& field, std::uint64_t value) {
    const auto store = [&](auto member) {
        record.*member = static_cast<std::remove_reference_t<decltype(record.*member)>>(value);
    };
    std::visit(store, field.value);
}

/// Tells the name, without m_, and the value of each member.
template <typename Tell>
void tellMembers(const tagCustomStyle& record, Tell tell) {
    tell("ID", static_cast<std::uint64_t>(record.m_ID));
    for (const RecordField& field : kRecordFields) {
        tell(field.member, valueIn(record, field));
        tell(std::string(field.member).append("Set"), static_cast<std::uint64_t>(record.*field.applies));
    }
    tell("iconHidden", static_cast<std::uint64_t>(record.m_iconHidden));
    tell("custom", static_cast<std::uint64_t>(record.m_custom));
}

/// Whether all members are equal; padding does not count.
inline bool areEqual(const tagCustomStyle& left, const tagCustomStyle& right) {
    const auto isEqual = [&](const RecordField& field) {
        return valueIn(left, field) == valueIn(right, field) && left.*field.applies == right.*field.applies;
    };
    return std::ranges::all_of(kRecordFields, isEqual) && left.m_ID == right.m_ID &&
           left.m_iconHidden == right.m_iconHidden && left.m_custom == right.m_custom;
}

}  // namespace customstyle_test
