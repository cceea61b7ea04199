#include "tools/minify/ShortValues.h"

#include <fmt/format.h>

#include <cstdint>

#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

std::string shortColor(const CustomConfig& component, const std::string& featureType, const std::string& value) {
    const int type = component.GetFeatureTypeId(featureType);
    const auto packed = [&](const std::string& text) {
        return static_cast<std::uint32_t>(component.CalculateColorValue(text.c_str(), type));
    };
    const std::string plain = rgbText(packed(value));
    return packed(plain) == packed(value) ? plain : fmt::format("{}{:02x}", plain, alphaOf(packed(value)));
}

// Weights and font sizes made only of digits are read the same way; other texts are refused.
std::string shortSize(const CustomConfig& component, const std::string& value) {
    return component.IsValueAllDigit(value) != 0 ? std::to_string(component.CalculateWeightValue(value.c_str()))
                                                 : value;
}

}  // namespace

std::string shortValue(const CustomConfig& component, const std::string& featureType, std::string_view styler,
                       const std::string& value) {
    std::string candidate = value;
    if (isOfKind(styler, StylerKind::Color)) candidate = shortColor(component, featureType, value);
    if (isOfKind(styler, StylerKind::Size)) candidate = shortSize(component, value);
    return candidate.size() <= value.size() ? candidate : value;
}

}  // namespace customstyle_tool
