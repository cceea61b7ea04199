// The fields of a style record that the element types name.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "customstyle/CustomConfig.h"
#include "customstyle/styling/ElementWord.h"
#include "customstyle/styling/ShortList.h"

namespace _orvik_framework {

/// A value of the record and the flag that says whether it applies; they are never written apart.
template <typename Value>
struct Field {
    Value tagCustomStyle::*value;
    int tagCustomStyle::*applies;
};
using ColorField = Field<std::uint64_t>;
using SizeField = Field<std::uint8_t>;

inline constexpr ColorField kFillColor{&tagCustomStyle::m_fillColor, &tagCustomStyle::m_fillColorSet};
inline constexpr ColorField kBorderColor{&tagCustomStyle::m_borderColor, &tagCustomStyle::m_borderColorSet};
inline constexpr ColorField kTopSurfaceColor{&tagCustomStyle::m_topSurfaceColor, &tagCustomStyle::m_topSurfaceColorSet};
inline constexpr ColorField kTextFillColor{&tagCustomStyle::m_textFillColor, &tagCustomStyle::m_textFillColorSet};
inline constexpr ColorField kTextStrokeColor{&tagCustomStyle::m_textStrokeColor, &tagCustomStyle::m_textStrokeColorSet};
inline constexpr SizeField kFillWeight{&tagCustomStyle::m_fillWeight, &tagCustomStyle::m_fillWeightSet};
inline constexpr SizeField kBorderWeight{&tagCustomStyle::m_borderWeight, &tagCustomStyle::m_borderWeightSet};
inline constexpr SizeField kTextFillWeight{&tagCustomStyle::m_textFillWeight, &tagCustomStyle::m_textFillWeightSet};
inline constexpr SizeField kTextStrokeWeight{&tagCustomStyle::m_textStrokeWeight,
                                             &tagCustomStyle::m_textStrokeWeightSet};
inline constexpr SizeField kFontSize{&tagCustomStyle::m_fontSize, &tagCustomStyle::m_fontSizeSet};

/// The fields that one element type names.
template <typename FieldType>
using Fields = ShortList<FieldType, 3>;
using ColorFields = Fields<ColorField>;
using SizeFields = Fields<SizeField>;

/// A row of a writer's table: the element type and the fields that it names.
template <typename FieldType>
struct ElementFields {
    ElementWord element;
    Fields<FieldType> fields;
};

/// The fields that an element type names in a writer's table, none where the writer does not know it.
template <typename FieldType, std::size_t RowCount>
Fields<FieldType> fieldsOf(const ElementFields<FieldType> (&table)[RowCount], const CVString& elementType) {
    const auto named = [&](const ElementFields<FieldType>& row) { return isWord(elementType, row.element); };
    const auto row = std::ranges::find_if(table, named);
    return row == std::end(table) ? Fields<FieldType>() : row->fields;
}

/// Sets every field to the value. Returns whether there were any fields, that is, whether the record is customised now.
template <typename Value>
bool writeFields(tagCustomStyle& record, const Fields<Field<Value>>& fields, Value value) {
    for (const Field<Value>& field : fields) {
        record.*field.value = value;
        record.*field.applies = 1;
    }
    return !fields.empty();
}

}  // namespace _orvik_framework
