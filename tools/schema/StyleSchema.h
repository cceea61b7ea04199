// The JSON Schema of style files.
#pragma once

#include <nlohmann/json.hpp>

namespace customstyle_tool {

/// Which words a schema uses.
enum class SchemaWords {
    Standard,  ///< those of JSON Schema, so that a strict validator takes it as it is
    Editors,   ///< also messages, colour pickers and a new rule, as editors with VS Code's JSON service know them
};

/// A JSON Schema, draft 2020-12: completes names in editors and finds what loading would log or drop. Made by asking
/// the component, so it says what this very version does. Both forms accept the same styles.
nlohmann::ordered_json styleSchema(SchemaWords words);

}  // namespace customstyle_tool
