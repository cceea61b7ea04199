// What a map style loses on its way into a style file.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "tools/export/Losses.h"

namespace customstyle_tool {

enum class ImportLoss : std::uint8_t {
    NotUnderstood,
    NoCounterpart,
    BetweenZooms,
    Rounded,
    FeaturesDiffer,
    ShapesDiffer,
    MoreLayers,
    LayerUnused,
    LegendFilter,
    NotKept,
};

/// In the order of ImportLoss.
std::span<const LossRow> importLossRows();

/// The losses of one import.
class ImportLosses {
public:
    void add(ImportLoss loss) { m_places[loss]; }
    /// @param place  "layer road: line-dasharray", or "highway fill at level 12"
    void add(ImportLoss loss, std::string place) { m_places[loss].insert(std::move(place)); }

    bool has(ImportLoss loss) const { return m_places.contains(loss); }

    /// A line for each loss, with the first few places.
    /// @param file  precedes each line
    std::string text(std::string_view file) const;

    /// [{"code": ..., "text": ..., "places": ["..."]}]
    nlohmann::ordered_json json() const;

private:
    std::map<ImportLoss, std::set<std::string>> m_places;
};

}  // namespace customstyle_tool
