// The keys of the store, split into their parts.
#pragma once

#include <compare>
#include <cstdlib>
#include <optional>
#include <string>

namespace customstyle_tool {

struct StyleKey {
    int featureType;
    std::optional<int> level;  ///< none for all levels

    auto operator<=>(const StyleKey&) const = default;
};

/// @param key  a key of the component: "13" or "13:15"
inline StyleKey parsedKey(const std::string& key) {
    const std::size_t colon = key.find(':');
    const int featureType = std::stoi(key);
    if (colon == std::string::npos) return {featureType, {}};
    return {featureType, std::stoi(key.substr(colon + 1))};
}

}  // namespace customstyle_tool
