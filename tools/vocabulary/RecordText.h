// A style record in words.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// One value of a style record that applies.
struct FieldText {
    const char* name;  ///< "fill", "text stroke weight"; JSON output writes it with underscores
    bool isColor;
    std::uint64_t value;  ///< packed colour, weight or size
};

/// The values that apply, geometry before text; the icon flag is not among them.
std::vector<FieldText> applyingFields(const _orvik_framework::tagCustomStyle& style);

/// "#rrggbb" of a packed colour.
std::string rgbText(std::uint64_t packedColor);

/// Alpha of a packed colour, 0 to 255.
unsigned int alphaOf(std::uint64_t packedColor);

/// A colour with its alpha in hexadecimal: "#aadaff alpha 80"; "#000000 alpha 00 (invisible)".
std::string colorText(std::uint64_t packedColor);

/// A colour as a style file writes it, "#aadaff" or "#aadaff80", and "invisible" for a fully transparent one.
std::string shortColorText(std::uint64_t packedColor);

/// The value as people read it: a colour or a number.
std::string valueText(const FieldText& field);

}  // namespace customstyle_tool
