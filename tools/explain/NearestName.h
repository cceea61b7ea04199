// "Did you mean": the name that somebody probably wanted to write.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace customstyle_tool {

/// The name that needs the fewest changed, missing or additional characters; the first of several.
/// None where more than a third of what was written, and more than one character, would have to change.
std::optional<std::string> nearestName(std::string_view written, std::span<const std::string> names);

/// "; did you mean "fill"?", or nothing.
std::string didYouMean(const std::optional<std::string>& name);

}  // namespace customstyle_tool
