// The value of an expression of a map style for one feature at one zoom.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace customstyle_tool {

using MapJson = nlohmann::ordered_json;

/// A feature that is fully known: it has these properties and no others.
struct Feature {
    std::string geometry{};  ///< "Point", "LineString" or "Polygon"
    std::map<std::string, MapJson> properties{};
};

/// A value: a JSON value, or a colour.
struct MapValue {
    MapJson json{};
    std::optional<std::uint64_t> color{};  ///< packed

    bool operator==(const MapValue&) const = default;
};

/// Red, green and blue from 0 to 255, alpha from 0 to 1, as the component packs them.
std::uint64_t packedRgba(double red, double green, double blue, double alpha);

/// A colour as style sheets write it: #rgb, #rgba, #rrggbb, #rrggbbaa, rgb(), rgba(), hsl(), hsla(), and a few names.
std::optional<std::uint64_t> cssColorIn(const std::string& text);

/// The value of an expression, of a function with stops, or of a plain value. Nothing where it is not understood: there
/// is no guessing.
std::optional<MapValue> valueOf(const MapJson& expression, const Feature& feature, double zoom);

/// Whether a feature passes a filter, written as an expression or in the older form; null passes all. Nothing where the
/// filter is not understood.
std::optional<bool> passes(const MapJson& filter, const Feature& feature, double zoom);

}  // namespace customstyle_tool
