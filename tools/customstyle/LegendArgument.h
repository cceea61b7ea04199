// Legends, as commands take them.
#pragma once

#include <optional>
#include <string>

#include "tools/customstyle/Command.h"
#include "tools/export/Legend.h"

namespace customstyle_tool {

/// --legend LEGEND
Option legendOption(std::string& legend);

/// --zoom-offset N, one digit
Option zoomOffsetOption(std::string& zoomOffset);

/// Reads a built-in legend, or a file; none after a complaint.
std::optional<Legend> legendOrComplain(const std::string& name);

}  // namespace customstyle_tool
