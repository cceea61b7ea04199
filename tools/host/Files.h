// Reading files with plain words for what goes wrong.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// Why a path is not a regular file or pipe that can be read; nothing if it is. The path "-" is standard input.
/// @param what  what the file is meant to be, as the failure calls it: "style file"
std::optional<ReadFailure> problemOfFile(const std::string& path, const char* what);

/// The system's words for errno.
std::string lastError();

/// Appends what a descriptor has, to its end or to the first piece that makes the text longer than `most` bytes. False
/// with errno when the system cannot read on.
bool readAll(int descriptor, std::string& text, std::size_t most = std::string::npos);

/// Reads a regular file, a pipe or, for the path "-", standard input whole; that one only once in a process.
std::variant<std::unique_ptr<SourceFile>, ReadFailure> readSource(const std::string& path, const char* what);

}  // namespace customstyle_tool
