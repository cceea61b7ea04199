// Toml: the one way to read a TOML file.
#pragma once

#include <toml++/toml.h>

#include <string>
#include <variant>

#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Why a text is not TOML, or not TOML that is accepted here.
struct TomlProblem {
    TextRange range;
    std::string what;
};

/// The table of a file. Besides faults, it refuses keys that nest deeper than any file here needs: their tables could
/// not be released without running out of stack.
std::variant<toml::table, TomlProblem> readToml(const SourceFile& file);

/// The bytes of a region of the file.
TextRange rangeOf(const SourceFile& file, const toml::source_region& region);

}  // namespace customstyle_tool
