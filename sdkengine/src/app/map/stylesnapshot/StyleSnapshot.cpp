#include "customstyle/StyleSnapshot.h"

#include <algorithm>

#include "stylesnapshot/SnapshotBuilder.h"

namespace _orvik_framework {

StyleSnapshot::StyleSnapshot(const CustomConfig& config) {
    SnapshotBuilder(config, *this).build();
}

// Only a record that was changed by hand has an id other than the one it is stored under.
int StyleSnapshot::copyOwn(tagCustomStyle& style, const Cell& cell) const {
    if (cell.answer == kNoStyle) return -1;
    style = styleAt(cell);
    return kOwnRecord - cell.answer;
}

int StyleSnapshot::IsCustomBackRegionEnable(std::uint64_t& color, int level) const {
    const Level& answers = m_levels[levelClassOf(level)];
    if (g_zrsdk_custom_style_enable == 0 || answers.isLandSet == 0) return 0;
    color = answers.landColor;
    return 1;
}

int StyleSnapshot::IsCustomGridBackRegionEnable(std::uint64_t& color, int /*level*/) const {
    if (g_zrsdk_custom_style_enable == 0 || !m_gridColorSet) return 0;
    color = m_gridColor;
    return 1;
}

std::size_t StyleSnapshot::bytes() const {
    return sizeof *this + m_rows.bytes() + m_cells.capacity() * sizeof(Cell) + m_iconsHidden.capacity() * sizeof(int) +
           m_styles.capacity() * sizeof(tagCustomStyle) + m_levels.capacity() * sizeof(Level);
}

std::size_t StyleSnapshot::levelClassOf(int level) const {
    const auto found = std::ranges::lower_bound(m_levels.begin() + 1, m_levels.end(), level, {}, &Level::level);
    return found == m_levels.end() || found->level != level ? 0 : static_cast<std::size_t>(found - m_levels.begin());
}

}  // namespace _orvik_framework
