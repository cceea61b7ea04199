// JSON that people read and compare.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace customstyle_tool {

/// A value as text that ends with a line end: what fits on one line is on one, all else has a line for each element
/// or member.
std::string jsonLines(const nlohmann::ordered_json& value);

}  // namespace customstyle_tool
