// The JSON Schema of style files.
#pragma once

#include <nlohmann/json.hpp>

namespace customstyle_tool {

/// A JSON Schema, draft 2020-12, for editors: completes names and underlines what loading would log or drop. Made by
/// asking the component, so it says what this very version does.
nlohmann::ordered_json styleSchema();

}  // namespace customstyle_tool
