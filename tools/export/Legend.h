// Legend: which features of vector tiles belong to which feature type, and how they look where a style says nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace customstyle_tool {

using LegendJson = nlohmann::ordered_json;

/// How the features of a legend layer are drawn.
enum class ShapeKind : std::uint8_t { Area, Line, Building, Label, LineLabel };

/// "area", "line", "building", "label", "line_label", in the order of ShapeKind.
std::span<const std::string> shapeKindNames();

constexpr bool isLabelKind(ShapeKind kind) {
    return kind == ShapeKind::Label || kind == ShapeKind::LineLabel;
}

/// The values of a look.
enum class LookKey : std::uint8_t {
    Fill,
    Stroke,
    StrokeWidth,
    Width,
    Walls,
    Roof,
    Text,
    Halo,
    HaloWidth,
    TextSize,
};
inline constexpr std::size_t kLookKeyCount = 10;

struct LookRow {
    std::string_view name;  ///< in legend files
    bool isColor;
    bool (*appliesTo)(ShapeKind);
    double value;  ///< where a legend has none: pixels, or a packed colour
};

/// In the order of LookKey.
std::span<const LookRow> lookRows();

/// A value that may change with the level: each applies from its level on, the first one also below its level.
class LevelValues {
public:
    explicit LevelValues(double value = 0) : m_steps{{0, value}} {}
    /// @param steps  levels with their values, ascending; at least one
    explicit LevelValues(std::vector<std::pair<int, double>> steps) : m_steps(std::move(steps)) {}

    double at(int level) const;

private:
    std::vector<std::pair<int, double>> m_steps;
};

/// How a feature looks where the style says nothing.
class Look {
public:
    Look();

    void set(LookKey key, LevelValues values) { m_values[static_cast<std::size_t>(key)] = std::move(values); }
    double number(LookKey key, int level) const { return m_values[static_cast<std::size_t>(key)].at(level); }
    /// Packed as the component packs colours.
    std::uint64_t color(LookKey key, int level) const { return static_cast<std::uint64_t>(number(key, level)); }

private:
    std::array<LevelValues, kLookKeyCount> m_values;
};

/// Tile features that belong to one feature type.
struct LegendLayer {
    int featureType = 0;
    ShapeKind kind = ShapeKind::Area;
    std::string name{};  ///< distinguishes layers of one type; may be empty
    std::string sourceLayer{};
    LegendJson filter{};              ///< null for all features
    std::string idProperty{};         ///< the property that holds the style id; may be empty
    std::vector<unsigned int> ids{};  ///< the style ids of the features; empty for those of the type in the mapping
    std::optional<int> firstLevel{};  ///< from which level on the features are drawn
    std::optional<int> lastLevel{};   ///< up to which level they are drawn
    LegendJson icon{};                ///< name of an icon, or an expression for it; null for none
    LegendJson text{};                ///< an expression; null for the legend's
    LegendJson height{}, base{};      ///< of buildings in metres: numbers or expressions
    Look look{};
};

// NOLINTNEXTLINE(bugprone-exception-escape): the JSON library moves its values without exceptions
struct Legend {
    std::string name{};
    LegendJson source{};  ///< as it goes into the style
    LegendJson glyphs{};  ///< null for none, as the next two
    LegendJson sprite{};
    LegendJson fontFaces{};
    LegendJson text{};  ///< an expression for the text of labels
    std::vector<std::string> regularFont{}, boldFont{};
    double border = 0.6;  ///< width in pixels of a border that the style colours and the look does not draw
    std::uint64_t land = 0, grid = 0;   ///< packed background colours
    std::vector<LegendLayer> layers{};  ///< from bottom to top
};

}  // namespace customstyle_tool
