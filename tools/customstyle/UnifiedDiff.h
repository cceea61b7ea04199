// Two texts compared line by line.
#pragma once

#include <string>
#include <string_view>

namespace customstyle_tool {

/// The difference between two texts in the unified format, as patch reads it; empty where they are equal.
/// @param path     of the file, as the head shows it
/// @param colored  with removed lines in red and added ones in green
std::string unifiedDiff(const std::string& path, std::string_view before, std::string_view after, bool colored);

}  // namespace customstyle_tool
