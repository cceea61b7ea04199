#include "CustomConfig.h"
#include "queries/EffectiveStyles.h"

namespace _orvik_framework {
namespace {

const tagCustomStyle* firstRecord(const CVMapPtrToPtr& records) {
    void* position = records.GetStartPosition();
    if (position == nullptr) return nullptr;
    void* key = nullptr;
    void* record = nullptr;
    records.GetNextAssoc(position, key, record);
    return static_cast<const tagCustomStyle*>(record);
}

}  // namespace

int CustomConfig::IsCustomBackRegionEnable(std::uint64_t& colour, int level) const {
    if (g_zrsdk_custom_style_enable == 0) return 0;
    const CVMapPtrToPtr* records = effectiveRecords(*this, EMAPCUSTOMSTYLE_LAND, level);
    // The land has one background, so one record speaks for it.
    const tagCustomStyle* record = records == nullptr ? nullptr : firstRecord(*records);
    if (record == nullptr || record->m_custom == 0) return 0;
    colour = record->m_fillColor;
    return 1;
}

int CustomConfig::IsCustomGridBackRegionEnable(std::uint64_t& colour, int /*level*/) const {
    if (g_zrsdk_custom_style_enable == 0 || m_gridColorSet == 0) return 0;
    colour = m_gridColor;
    return 1;
}

}  // namespace _orvik_framework
