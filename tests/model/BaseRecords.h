// Base records as a mapping file would make them, one at a time.
#pragma once

#include <cstdint>

#include "customstyle/CustomConfig.h"
#include "tests/support/RecordTable.h"
#include "vi/vos/VTempl.h"

namespace customstyle_test {

/// Key of a style id in the store's record maps.
inline void* recordKey(int styleId) {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(styleId));
}

/// Adds the base record of a style id to a feature type; the store owns it.
inline _orvik_framework::tagCustomStyle& addBaseRecord(_orvik_framework::CustomConfig& config, int featureType,
                                                       int styleId) {
    auto* record = _orvik_vi::VNewArray<_orvik_framework::tagCustomStyle>(1);
    record->m_ID = styleId;
    config.m_typeStyleMaps[featureType][recordKey(styleId)] = record;
    return *record;
}

/// A record in which every member has a value of its own, and colours use all of their bits.
inline _orvik_framework::tagCustomStyle fullRecord(int styleId) {
    _orvik_framework::tagCustomStyle record{};
    record.m_ID = styleId;
    int number = 100;
    for (const RecordField& field : kRecordFields) {
        setValueIn(record, field, 0x1122334455667700 + static_cast<std::uint64_t>(++number));
        record.*field.applies = ++number;
    }
    record.m_iconHidden = ++number;
    record.m_custom = ++number;
    return record;
}

}  // namespace customstyle_test
