#include "customstyle/StyleSnapshot.h"

#include <algorithm>

#include "stylesnapshot/SnapshotBuilder.h"

namespace _orvik_framework {

StyleSnapshot::StyleSnapshot(const CustomConfig& config) {
    SnapshotBuilder(config, *this).build();
}

int StyleSnapshot::IsCustomBackRegionEnable(std::uint64_t& colour, int level) const {
    const Background& background = m_landBackgrounds[levelClassOf(level)];
    if (g_zrsdk_custom_style_enable == 0 || background.isSet == 0) return 0;
    colour = background.color;
    return 1;
}

int StyleSnapshot::IsCustomGridBackRegionEnable(std::uint64_t& colour, int /*level*/) const {
    if (g_zrsdk_custom_style_enable == 0 || !m_gridColorSet) return 0;
    colour = m_gridColor;
    return 1;
}

std::size_t StyleSnapshot::bytes() const {
    return sizeof *this + m_rowStarts.bytes() + m_cells.capacity() * sizeof(Cell) +
           m_iconsHidden.capacity() * sizeof(int) + m_styles.capacity() * sizeof(tagCustomStyle) +
           m_sparseLevels.capacity() * sizeof(SparseLevel) + m_landBackgrounds.capacity() * sizeof(Background);
}

std::size_t StyleSnapshot::sparseLevelClassOf(int level) const {
    const auto found = std::ranges::lower_bound(m_sparseLevels, level, {}, &SparseLevel::level);
    return found == m_sparseLevels.end() || found->level != level ? 0 : found->levelClass;
}

}  // namespace _orvik_framework
