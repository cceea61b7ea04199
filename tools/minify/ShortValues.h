// The shortest spelling of a styler's value.
#pragma once

#include <string>
#include <string_view>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// A value that is not longer, and that the component reads in the same way.
std::string shortValue(const _orvik_framework::CustomConfig& component, const std::string& featureType,
                       std::string_view styler, const std::string& value);

}  // namespace customstyle_tool
