// StoreImage: all that rules can change in a store, as a value.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "customstyle/StoredRecords.h"

namespace customstyle_tool {

/// One customised record with the style id under which it is filed.
struct ImageRecord {
    int styleId;
    _orvik_framework::tagCustomStyle style;
};

/// A copy of the content of a store: records by style key, registered levels, grid colour, hidden icons.
/// Stores with equal images give equal answers, because the renderer's questions read nothing else.
class StoreImage {
public:
    explicit StoreImage(const _orvik_framework::CustomConfig& config);

    /// Field by field; padding does not count.
    bool operator==(const StoreImage& other) const;

private:
    void addSlot(const std::string& key, const _orvik_framework::CVMapPtrToPtr& slot);

    std::map<std::string, std::vector<ImageRecord>> m_slots;  // in the order of the slot
    std::map<std::string, int> m_effectLevels;
    std::uint64_t m_gridColor;
    bool m_gridColorSet;
    bool m_allIconsHidden;
};

/// Whether two records agree in every field but the id.
bool sameFields(const _orvik_framework::tagCustomStyle& left, const _orvik_framework::tagCustomStyle& right);

/// Calls `visit(int styleId, tagCustomStyle& record)` for each record of a slot, in its order; keys without one are
/// skipped.
template <typename Visit>
void forEachSlotRecord(const _orvik_framework::CVMapPtrToPtr& slot, Visit visit) {
    for (const auto& entry : _orvik_framework::StoredRecords(slot)) {
        if (entry.record != nullptr) visit(entry.id(), *entry.record);
    }
}

}  // namespace customstyle_tool
