// Loading a map's two files with plain words for what goes wrong.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "CustomConfig.h"

namespace customstyle_tool {

/// Why the files could not be loaded: the file, the place where there is one, and the remedy.
struct LoadFailure {
    std::string text;
};

using LoadedMap = std::variant<std::unique_ptr<_orvik_framework::CustomConfig>, LoadFailure>;

/// Loads the file "CustomIndex" of a directory and a style file, and turns the renderer's questions on. The component's
/// log lines go where CVLog sends them.
/// @param mappingDirectory  with or without a trailing separator
LoadedMap loadMap(const std::string& mappingDirectory, const std::string& styleFile);

}  // namespace customstyle_tool
