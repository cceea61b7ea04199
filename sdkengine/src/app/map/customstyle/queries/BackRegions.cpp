#include "customstyle/queries/BackRegions.h"

#include "customstyle/CustomConfig.h"

namespace _orvik_framework {

int CustomConfig::IsCustomBackRegionEnable(std::uint64_t& color, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return 0;
    const tagCustomStyle* record = landBackground(*this, level);
    if (record == nullptr) return 0;
    color = record->m_fillColor;
    return 1;
}

int CustomConfig::IsCustomGridBackRegionEnable(std::uint64_t& color, int /*level*/) const {
    if (g_zrsdk_custom_style_enable == 0 || m_gridColorSet == 0) return 0;
    color = m_gridColor;
    return 1;
}

}  // namespace _orvik_framework
