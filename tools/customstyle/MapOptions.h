// The options of the subcommands that load a map.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

struct MapOptions {
    std::string mappingDirectory;
    std::string styleFile;
};

/// Adds --mapping and --style.
void addMapOptions(CLI::App& command, MapOptions& options);

/// Loads the map and hands it to `use`. Where it cannot be loaded, says why on standard error.
/// @return kGood or kFinding
int withLoadedMap(const MapOptions& options, const std::function<void(const _orvik_framework::CustomConfig&)>& use);

}  // namespace customstyle_tool
