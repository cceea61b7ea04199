// Loading two files, and the least that loading them can cost.
#pragma once

#include <string>

#include "customstyle/CustomConfig.h"

namespace customstyle_bench {

struct MapPaths {
    std::string mappingDirectory;  ///< with its trailing separator
    std::string styleFile;
};

/// Loads both files into the store. Ends the program when they are refused or when a rule leaves a log line.
void init(_orvik_framework::CustomConfig& config, const MapPaths& paths);

/// Reads both files, parses them and deletes the trees, one file after the other. Ends the program when a file cannot
/// be read or is not JSON.
void readParseDelete(const MapPaths& paths);

/// Writes a file.
void writeFile(const std::string& path, const std::string& content);

}  // namespace customstyle_bench
