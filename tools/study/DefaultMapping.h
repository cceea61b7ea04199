// A mapping for authors who have no mapping file at hand.
#pragma once

#include <string>

namespace customstyle_tool {

/// The one style id of a feature type in the default mapping.
constexpr unsigned int defaultStyleId(int featureType) {
    return 1000 + static_cast<unsigned int>(featureType);
}

/// The text of a mapping file in which each feature type 0 to 71 has one style id of its own.
std::string defaultMapping();

}  // namespace customstyle_tool
