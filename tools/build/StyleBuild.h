// Builds a style from a palette, a base, overlays and rules.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Whether a path names a build file: it ends with ".toml".
bool isBuildFile(std::string_view path);

/// A style that was built.
struct BuiltStyle {
    std::unique_ptr<SourceFile> file;   ///< a laid out style file with the path of the build file; its places lead back
    std::vector<std::string> warnings;  ///< unused names of the palette that look like one that is used
};

/// Why a style could not be built: a sentence for each reason, with file, position and remedy.
using BuildProblems = std::vector<std::string>;

/// Builds what a build file says. Its rules are those of the base, of the overlays in their order, and its own. Where
/// several palettes set a name, an overlay wins over the base, and the build file over both; then each variable
/// "$name" among the stylers is replaced.
std::variant<BuiltStyle, BuildProblems> builtStyle(const std::string& path);

}  // namespace customstyle_tool
