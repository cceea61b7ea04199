// Reading files with plain words for what goes wrong.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Why a path is not a regular file or pipe that can be read; nothing if it is. The path "-" is standard input.
/// @param what  what the file is meant to be, as the failure calls it: "style file"
std::optional<ReadFailure> problemOfFile(const std::string& path, const char* what);

/// Reads a regular file, a pipe or, for the path "-", standard input whole; that one only once in a process.
std::variant<std::unique_ptr<SourceFile>, ReadFailure> readSource(const std::string& path, const char* what);

}  // namespace customstyle_tool
