#include "tools/import/LegendFeatures.h"

#include <algorithm>
#include <string>
#include <utility>

namespace customstyle_tool {
namespace {

constexpr std::size_t kMostFeatures = 64;
constexpr double kAnyZoom = 14;

using Features = std::vector<Feature>;

const char* geometryOf(ShapeKind kind) {
    switch (kind) {
        case ShapeKind::Line:
        case ShapeKind::LineLabel:
            return "LineString";
        case ShapeKind::Label:
            return "Point";
        case ShapeKind::Area:
        case ShapeKind::Building:
            break;
    }
    return "Polygon";
}

// "class" of ["get", "class"]; empty for anything else.
std::string propertyIn(const MapJson& json) {
    const bool isGet = json.is_array() && json.size() == 2 && json[0] == "get" && json[1].is_string();
    return isGet ? json[1].get<std::string>() : "";
}

Features withValue(const Features& features, const std::string& property, const MapJson& value) {
    Features made = features;
    for (Feature& feature : made) feature.properties[property] = value;
    return made;
}

void append(Features& features, Features more) {
    for (Feature& feature : more) {
        if (features.size() < kMostFeatures) features.push_back(std::move(feature));
    }
}

Features narrowed(const Features& features, const MapJson& filter);

Features narrowedByMatch(const Features& features, const MapJson& filter) {
    const std::string property = propertyIn(filter[1]);
    if (property.empty() || filter.size() != 5 || filter[3] != true) return features;
    if (!filter[2].is_array()) return withValue(features, property, filter[2]);
    Features made;
    for (const MapJson& value : filter[2]) append(made, withValue(features, property, value));
    return made;
}

Features narrowedByAny(const Features& features, const MapJson& filter) {
    Features made;
    for (std::size_t i = 1; i < filter.size(); ++i) append(made, narrowed(features, filter[i]));
    return made;
}

// The features with what a filter asks for. What it does not state as values stays open and is checked at the end.
Features narrowed(const Features& features, const MapJson& filter) {
    if (!filter.is_array() || filter.size() < 2) return features;
    const bool names = filter[0] == "==" || filter[0] == "<=" || filter[0] == ">=";
    if (names && filter.size() == 3 && !propertyIn(filter[1]).empty() && !filter[2].is_array()) {
        return withValue(features, propertyIn(filter[1]), filter[2]);
    }
    if (filter[0] == "match") return narrowedByMatch(features, filter);
    if (filter[0] == "any") return narrowedByAny(features, filter);
    if (filter[0] != "all") return features;
    Features made = features;
    for (std::size_t i = 1; i < filter.size(); ++i) made = narrowed(made, filter[i]);
    return made;
}

}  // namespace

std::vector<Feature> featuresOf(const LegendLayer& layer) {
    Features features = narrowed({Feature{geometryOf(layer.kind), {}}}, layer.filter);
    std::erase_if(features, [&](const Feature& feature) { return passes(layer.filter, feature, kAnyZoom) != true; });
    return features;
}

std::vector<Feature> withStyleIds(const std::vector<Feature>& features, const LegendLayer& layer,
                                  const std::vector<unsigned int>& styleIds) {
    if (layer.idProperty.empty() || styleIds.empty()) return features;
    Features made;
    for (const unsigned int id : styleIds) {
        const Features each = withValue(features, layer.idProperty, id);
        made.insert(made.end(), each.begin(), each.end());
    }
    return made;
}

}  // namespace customstyle_tool
