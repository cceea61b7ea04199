// The keys of a store and what is filed under them, to look at them and to take them back.
#pragma once

#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

bool hasSlot(const _orvik_framework::CustomConfig& config, const std::string& key);

/// The records of a key; null where it has no slot.
_orvik_framework::CVMapPtrToPtr* slotOf(const _orvik_framework::CustomConfig& config, const std::string& key);

/// The keys of a store in the order in which they were first seen.
std::vector<std::string> keysInOrder(const _orvik_framework::CustomConfig& config);

/// Gives a key its slot, as a rule does that addresses it.
void addKey(_orvik_framework::CustomConfig& config, const std::string& key);

/// Takes back the last keys of a store.
/// @param usedSlots  how many slots were used before they were added
void forgetKeys(_orvik_framework::CustomConfig& config, const std::vector<std::string>& keys, int usedSlots);

/// Takes back all that rules have done. A new store would take longer: most of it is tables of names.
void forgetStyles(_orvik_framework::CustomConfig& config);

}  // namespace customstyle_tool
