// The background of the land, for the class and for its compiled form.
#pragma once

#include "customstyle/CustomConfig.h"
#include "customstyle/StoredRecords.h"
#include "customstyle/model/StyleKey.h"
#include "customstyle/queries/EffectiveStyles.h"

namespace _orvik_framework {

/// The record whose fill is the background of the land at a level, or null. The land has one background, so its first
/// record decides; the others are not consulted even when that one is not customised.
inline const tagCustomStyle* landBackground(const CustomConfig& config, int level) {
    const tagCustomStyle* first =
        effectiveRecord(config, StyleKeys(EMAPCUSTOMSTYLE_LAND, level),
                        [](const CVMapPtrToPtr& records) { return StoredRecords(records).first().record; });
    return first != nullptr && first->m_custom != 0 ? first : nullptr;
}

}  // namespace _orvik_framework
