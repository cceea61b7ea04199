// What the JSON that the tools print has in common.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// The name of a field as a member: "text_fill" for "text fill".
std::string memberName(std::string fieldName);

/// {"rgb": "#aadaff", "alpha": 255}
nlohmann::ordered_json colorJson(std::uint64_t packedColor);

/// [4, 5, 12, "other"]
nlohmann::ordered_json levelsJson(const LevelSet& levels);

}  // namespace customstyle_tool
