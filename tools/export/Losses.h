// What a style loses on its way into another renderer's form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>
#include <string_view>

#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

enum class LossCode : std::uint8_t {
    Units,
    TextWeight,
    HaloCapped,
    HiddenText,
    LabelSpacing,
    TopSurface,
    UnlitWalls,
    WallOpacity,
    AreaWeight,
    GridUnderLand,
    IdsNotToldApart,
    NotInLegend,
    NoLabels,
    NoShape,
    TilesMissing,
    GlyphsMissing,
    SpriteMissing,
};

struct LossRow {
    std::string_view code;  ///< stable: "text-weight"
    std::string_view text;  ///< a sentence without full stop, with the remedy where there is one
};

/// In the order of LossCode.
std::span<const LossRow> lossRows();

/// The losses of one export.
class Losses {
public:
    /// Adds what is lost everywhere.
    void add(LossCode code) { m_places[code]; }
    void add(LossCode code, int featureType, std::size_t levelClass) { m_places[code][featureType].set(levelClass); }

    using Places = std::map<int, LevelSet>;  ///< levels by feature type

    /// By code; without places where it is lost everywhere.
    const std::map<LossCode, Places>& all() const { return m_places; }

private:
    std::map<LossCode, Places> m_places;
};

/// " (a; b; 2 more)" for the places where something is lost; empty without places.
/// @param most  how many are named
std::string placesText(std::span<const std::string> places, std::size_t most);

inline constexpr std::size_t kMostPlaces = 4;  ///< named in a line of text

/// A line for each loss, with the first few places.
/// @param file  precedes each line
std::string lossesText(const Losses& losses, std::string_view file);

/// {"code": "text (places)"}
nlohmann::ordered_json lossTexts(const Losses& losses);

/// [{"code": ..., "text": ..., "places": [{"feature_type": ..., "levels": [...]}]}]
nlohmann::ordered_json lossesJson(const Losses& losses);

}  // namespace customstyle_tool
