// The walk that every record writer takes.
#pragma once

#include "customstyle/CustomConfig.h"
#include "customstyle/StoredRecords.h"
#include "customstyle/model/KeyRegistration.h"
#include "customstyle/model/StyleKey.h"

namespace _orvik_framework {

/// Registers the scope's key and hands each of its records to `write(tagCustomStyle&)`, which changes fields and
/// returns whether the record counts as customised.
///
/// Where an all-levels record exists, each write to a level starts from it: two rules for one level do not add up.
template <typename Write>
void walkRecords(CustomConfig& config, const StyleScope& scope, Write write) {
    const StyleKeys keys(scope.featureType, scope.level);
    const CVMapPtrToPtr* slot = registerKey(config, keys, scope);
    if (slot == nullptr) return;  // refused: the store has no room for the key

    const CVMapPtrToPtr* allLevelsSlot = scope.allLevels == 0 ? findSlot(config, keys.ofType()) : nullptr;
    for (const auto& [key, record] : StoredRecords(*slot)) {
        if (record == nullptr) continue;
        const tagCustomStyle* start = allLevelsSlot == nullptr ? nullptr : findRecord(*allLevelsSlot, key);
        if (start != nullptr) *record = *start;
        record->m_custom = 0;  // also for a reader of the record while `write` logs
        if (write(*record)) record->m_custom = 1;
    }
}

}  // namespace _orvik_framework
