// Writing files so that no reader ever sees half of one.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace customstyle_tool {

/// Writes a file whole or not at all: into a new file beside it, which reaches the disk and then takes its place.
///
/// An existing file keeps its permissions, and its owner where the system allows it. A symbolic link stays; the file
/// that it points to is replaced. Other hard links of the file keep the old content.
///
/// @param isStillWanted  asked when the new file is on the disk and only has to take its place; "false" drops it
/// @return nothing, or why the file could not be written, in one sentence with its path; then it is as it was
std::optional<std::string> writeWhole(const std::string& path, std::string_view content,
                                      const std::function<bool()>& isStillWanted = {});

}  // namespace customstyle_tool
