// The walk that every record writer takes.
#pragma once

#include "CustomConfig.h"
#include "model/RecordStorage.h"
#include "model/StyleKey.h"

namespace _orvik_framework {

/// Which records a writer changes: those of one feature type, at all levels or at one.
struct StyleScope {
    int featureType;
    int allLevels;
    int level;
};

/// Registers the scope's key and hands each of its records to `write(tagCustomStyle&)`, which changes fields and
/// answers whether the record counts as customised.
///
/// Where an all-levels record exists, each write to a level starts from it: two rules for one level do not add up.
template <typename Write>
void walkRecords(CustomConfig& config, const StyleScope& scope, Write write) {
    char styleKey[kStyleKeyCapacity] = {};
    config.UpdateCustomStyleMap(styleKey, scope.featureType, scope.allLevels, scope.level);
    const CVMapPtrToPtr* slot = findSlot(config, StyleKeyWords(styleKey));
    if (slot == nullptr) return;  // refused: the store has no room for the key

    const CVMapPtrToPtr* allLevelsSlot =
        scope.allLevels == 0 ? findSlot(config, StyleKeys(scope.featureType, scope.level).ofType()) : nullptr;
    forEachRecord(*slot, [&](void* key, tagCustomStyle& record) {
        const tagCustomStyle* start = allLevelsSlot == nullptr ? nullptr : findRecord(*allLevelsSlot, key);
        if (start != nullptr) record = *start;
        record.m_custom = write(record) ? 1 : 0;
    });
}

}  // namespace _orvik_framework
