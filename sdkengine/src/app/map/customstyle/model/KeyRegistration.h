// Registration of style keys: how styles enter the store.
#pragma once

#include "customstyle/CustomConfig.h"
#include "customstyle/model/StyleKey.h"

namespace _orvik_framework {

/// Which records a rule changes: those of one feature type, at all levels or at one.
struct StyleScope {
    int featureType;
    int allLevels;
    int level;
};

/// Registers the key of a scope, given with the keys of its type and level. On first sight the key gets a slot with
/// copies of the type's base records.
/// @return the slot, or null where the key is refused: there is no such type, or no slot is free
CVMapPtrToPtr* registerKey(CustomConfig& config, const StyleKeys& keys, const StyleScope& scope);

}  // namespace _orvik_framework
