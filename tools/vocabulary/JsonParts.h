// What the JSON that the tools print has in common.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "customstyle/CustomConfig.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// As text, in one line or in lines with this indent. Texts of files need not be UTF-8: each bad byte becomes a
/// replacement character.
std::string jsonText(const nlohmann::ordered_json& json, int indent = -1);

/// The name of a field as a member: "text_fill" for "text fill".
std::string memberName(std::string fieldName);

/// {"rgb": "#aadaff", "alpha": 255}
nlohmann::ordered_json colorJson(std::uint64_t packedColor);

/// The values that apply: {"fill": {"rgb": "#aadaff", "alpha": 255}, "font_size": 24}
nlohmann::ordered_json styleJson(const _orvik_framework::tagCustomStyle& style);

/// [4, 5, 12, "other"]
nlohmann::ordered_json levelsJson(const LevelSet& levels);

}  // namespace customstyle_tool
