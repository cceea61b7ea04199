// What a call changed in a store, as a short text.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "customstyle/CustomConfig.h"

namespace customstyle_test {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

/// A record whose fields hold values that no rule writes, so that every write shows: another value in each field, 9 in
/// each flag.
tagCustomStyle markedRecord(int styleId);

/// A store with the test mapping, whose base records are marked records.
std::unique_ptr<CustomConfig> markedStore();

/// The keys that a call registered in a marked store, in the order of their slots, with what happened to their records:
/// "13+ fill border, 28-". "+" means m_custom 1 and "-" m_custom 0; then the values that became `value` while
/// their flags became 1, and the icon flag as it is now ("icon=0"). "72 empty" is a key without records. At the end
/// "grid" when the grid got the colour `value`, and "every-icon" when all icons were hidden. Whatever else changed
/// stands there at length.
///
/// @param keySuffix  what all keys are expected to end with: "" or ":15"; it is left out
std::string changesIn(const CustomConfig& store, std::uint64_t value, const std::string& keySuffix = "");

}  // namespace customstyle_test
