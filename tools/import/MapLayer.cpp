#include "tools/import/MapLayer.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace customstyle_tool {
namespace {

constexpr double kEndOfLevel = 0.99;  // of a zoom

// Properties that are read, and those that no rule can set because the legend decides, such as where a text stands.
constexpr std::string_view kKnownProperties[] = {"background-color",
                                                 "background-opacity",
                                                 "fill-color",
                                                 "fill-opacity",
                                                 "fill-antialias",
                                                 "line-color",
                                                 "line-opacity",
                                                 "line-width",
                                                 "line-gap-width",
                                                 "text-color",
                                                 "text-opacity",
                                                 "text-halo-color",
                                                 "text-halo-width",
                                                 "text-size",
                                                 "text-field",
                                                 "icon-image",
                                                 "fill-extrusion-opacity",
                                                 "fill-extrusion-color",
                                                 "visibility",
                                                 "symbol-placement",
                                                 "icon-padding",
                                                 "fill-extrusion-height",
                                                 "fill-extrusion-base",
                                                 "text-max-width",
                                                 "text-padding",
                                                 "text-anchor",
                                                 "text-offset",
                                                 "text-optional",
                                                 "symbol-spacing"};

std::string textIn(const MapJson& object, const char* name) {
    const auto member = object.find(name);
    return member != object.end() && member->is_string() ? member->get<std::string>() : std::string();
}

double numberIn(const MapJson& object, const char* name, double otherwise) {
    const auto member = object.find(name);
    return member != object.end() && member->is_number() ? member->get<double>() : otherwise;
}

std::string featureTypeIn(const MapJson& json) {
    const auto metadata = json.find("metadata");
    return metadata != json.end() && metadata->is_object() ? textIn(*metadata, "customstyle:type") : std::string();
}

MapLayer layerOf(const MapJson& json) {
    MapLayer layer{.id = textIn(json, "id"),
                   .type = textIn(json, "type"),
                   .sourceLayer = textIn(json, "source-layer"),
                   .featureType = featureTypeIn(json),
                   .minZoom = numberIn(json, "minzoom", 0),
                   .maxZoom = numberIn(json, "maxzoom", 25),
                   .filter = json.contains("filter") ? json["filter"] : MapJson(),
                   .properties = MapJson::object()};
    for (const char* group : {"layout", "paint"}) {
        const auto members = json.find(group);
        if (members != json.end() && members->is_object()) layer.properties.update(*members);
    }
    return layer;
}

std::string placeOf(const MapLayer& layer, std::string_view what) {
    return "layer " + layer.id + ": " + std::string(what);
}

}  // namespace

std::vector<MapLayer> layersOf(const MapJson& mapStyle) {
    std::vector<MapLayer> layers;
    const auto list = mapStyle.find("layers");
    if (list == mapStyle.end() || !list->is_array()) return layers;
    for (const MapJson& json : *list) {
        if (!json.is_object()) continue;
        MapLayer layer = layerOf(json);
        if (textIn(layer.properties, "visibility") != "none") layers.push_back(std::move(layer));
    }
    return layers;
}

bool draws(const MapLayer& layer, const Scene& scene) {
    if (scene.zoom < layer.minZoom || scene.zoom >= layer.maxZoom) return false;
    const auto passed = passes(layer.filter, scene.feature, scene.zoom);
    if (!passed) scene.losses.add(ImportLoss::NotUnderstood, placeOf(layer, "filter"));
    return passed.value_or(false);
}

std::optional<MapValue> propertyOf(const MapLayer& layer, const char* name, const MapValue& otherwise,
                                   const Scene& scene) {
    const auto property = layer.properties.find(name);
    if (property == layer.properties.end()) return otherwise;
    auto value = valueOf(*property, scene.feature, scene.zoom);
    if (!value || (value->json.is_null() && !value->color)) {
        scene.losses.add(ImportLoss::NotUnderstood, placeOf(layer, name));
        return {};
    }
    if (property->is_structured() && valueOf(*property, scene.feature, scene.zoom + kEndOfLevel) != value) {
        scene.losses.add(ImportLoss::BetweenZooms, placeOf(layer, name));
    }
    return value;
}

std::optional<std::uint64_t> colorOf(const MapLayer& layer, const char* color, const char* opacity, const Scene& scene,
                                     std::uint64_t otherwise) {
    const auto value = propertyOf(layer, color, {nullptr, otherwise}, scene);
    const auto share = numberOf(layer, opacity, 1, scene);
    if (!value || !share) return {};
    if (!value->color) scene.losses.add(ImportLoss::NotUnderstood, placeOf(layer, color));
    if (!value->color) return {};
    const auto alpha = std::lround(static_cast<double>(*value->color >> 24 & 0xff) * std::clamp(*share, 0.0, 1.0));
    return (*value->color & 0xffffff) | static_cast<std::uint64_t>(alpha) << 24;
}

std::optional<double> numberOf(const MapLayer& layer, const char* name, double otherwise, const Scene& scene) {
    const auto value = propertyOf(layer, name, {otherwise, {}}, scene);
    if (value && !value->json.is_number()) scene.losses.add(ImportLoss::NotUnderstood, placeOf(layer, name));
    return value && value->json.is_number() ? std::optional(value->json.get<double>()) : std::nullopt;
}

void findWithoutCounterpart(const MapLayer& layer, ImportLosses& losses) {
    for (const auto& [name, value] : layer.properties.items()) {
        if (std::ranges::find(kKnownProperties, name) == std::end(kKnownProperties)) {
            losses.add(ImportLoss::NoCounterpart, name);
        }
    }
}

}  // namespace customstyle_tool
