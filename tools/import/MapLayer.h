// The layers of a map style, and what they look like.
#pragma once

#include <string>
#include <vector>

#include "tools/import/Expression.h"
#include "tools/import/ImportLosses.h"

namespace customstyle_tool {

struct MapLayer {
    std::string id;
    std::string type;  ///< "fill", "line", "symbol", "fill-extrusion", "background"
    std::string sourceLayer;
    std::string featureType;  ///< whose layer it is, where customstyle export has said so
    double minZoom = 0;
    double maxZoom = 25;
    MapJson filter;
    MapJson properties;   ///< paint and layout
    bool isUsed = false;  ///< whether anything was taken from it
};

/// The visible layers of a map style, from bottom to top.
std::vector<MapLayer> layersOf(const MapJson& mapStyle);

/// Where values are asked for, and where losses are noted.
struct Scene {
    const Feature& feature;
    double zoom;
    ImportLosses& losses;
};

/// Whether a layer draws a feature at a zoom. A filter that is not understood is a loss, and draws nothing.
bool draws(const MapLayer& layer, const Scene& scene);

/// The value of a property; the default where the layer has none. Nothing, and a loss, where it is not understood.
std::optional<MapValue> propertyOf(const MapLayer& layer, const char* name, const MapValue& otherwise,
                                   const Scene& scene);

inline constexpr std::uint64_t kBlack = 0xff000000;

/// A colour with the opacity of the layer in its alpha.
/// @param color      the name of its property, such as "line-color"
/// @param opacity    the name of its opacity's; texts and their halos share one
/// @param otherwise  the packed colour where the layer has none
std::optional<std::uint64_t> colorOf(const MapLayer& layer, const char* color, const char* opacity, const Scene& scene,
                                     std::uint64_t otherwise = kBlack);

std::optional<double> numberOf(const MapLayer& layer, const char* name, double otherwise, const Scene& scene);

/// Notes the properties of a layer that are never asked for.
void findWithoutCounterpart(const MapLayer& layer, ImportLosses& losses);

}  // namespace customstyle_tool
