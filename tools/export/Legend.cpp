#include "tools/export/Legend.h"

#include <algorithm>
#include <iterator>

namespace customstyle_tool {
namespace {

constexpr bool isShape(ShapeKind kind) {
    return !isLabelKind(kind);
}

constexpr bool isLine(ShapeKind kind) {
    return kind == ShapeKind::Line;
}

constexpr bool isBuilding(ShapeKind kind) {
    return kind == ShapeKind::Building;
}

// Colours are packed: alpha, blue, green, red from the highest byte down.
constexpr LookRow kLookRows[] = {
    {"fill", true, isShape, 0xffdce4e8},     {"stroke", true, isShape, 0},
    {"stroke_width", false, isShape, 0},     {"width", false, isLine, 1},
    {"walls", true, isBuilding, 0xffc0cbd3}, {"roof", true, isBuilding, 0xffd7e0e6},
    {"text", true, isLabelKind, 0xff3f464a}, {"halo", true, isLabelKind, 0xd9ffffff},
    {"halo_width", false, isLabelKind, 1.2}, {"text_size", false, isLabelKind, 12},
};
static_assert(std::size(kLookRows) == kLookKeyCount);

}  // namespace

std::span<const std::string> shapeKindNames() {
    static const std::vector<std::string> names = {"area", "line", "building", "label", "line_label"};
    return names;
}

std::span<const LookRow> lookRows() {
    return kLookRows;
}

double LevelValues::at(int level) const {
    const auto isLater = [](int wanted, const auto& step) { return wanted < step.first; };
    const auto next = std::upper_bound(m_steps.begin(), m_steps.end(), level, isLater);
    return next == m_steps.begin() ? m_steps.front().second : std::prev(next)->second;
}

Look::Look() {
    std::ranges::transform(kLookRows, m_values.begin(), [](const LookRow& row) { return LevelValues(row.value); });
}

}  // namespace customstyle_tool
