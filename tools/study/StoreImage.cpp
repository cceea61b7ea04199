#include "tools/study/StoreImage.h"

#include <algorithm>
#include <cstring>

#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

StoreImage::StoreImage(const CustomConfig& config)
    : m_effectLevels(config.m_styleEffectLevels.begin(), config.m_styleEffectLevels.end()),
      m_gridColor(config.m_gridColor),
      m_gridColorSet(config.m_gridColorSet != 0),
      m_allIconsHidden(config.m_allIconsHidden != 0) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) addSlot(key, *slot);
}

void StoreImage::addSlot(const std::string& key, const _orvik_framework::CVMapPtrToPtr& slot) {
    std::vector<ImageRecord>& records = m_slots[key];
    forEachSlotRecord(slot, [&](int styleId, const tagCustomStyle& record) { records.push_back({styleId, record}); });
}

bool StoreImage::operator==(const StoreImage& other) const {
    const auto sameRecord = [](const ImageRecord& left, const ImageRecord& right) {
        return left.styleId == right.styleId && sameFields(left.style, right.style);
    };
    const auto sameSlot = [&](const auto& left, const auto& right) {
        return left.first == right.first && std::ranges::equal(left.second, right.second, sameRecord);
    };
    return m_effectLevels == other.m_effectLevels && m_gridColor == other.m_gridColor &&
           m_gridColorSet == other.m_gridColorSet && m_allIconsHidden == other.m_allIconsHidden &&
           std::ranges::equal(m_slots, other.m_slots, sameSlot);
}

bool sameFields(const tagCustomStyle& left, const tagCustomStyle& right) {
    // Equal bytes are common and quick to detect; padding may differ.
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison,cert-exp42-c,cert-flp37-c)
    if (std::memcmp(&left, &right, sizeof left) == 0) return true;
    return std::ranges::all_of(styleFields(), [&](const StyleField& field) {
        const bool sameFlag = field.applies == nullptr || left.*field.applies == right.*field.applies;
        return sameFlag && valueOf(field, left) == valueOf(field, right);
    });
}

}  // namespace customstyle_tool
