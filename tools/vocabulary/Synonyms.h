// Words that authors use for the names of styles.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace customstyle_tool {

/// The feature type that a word which names none may mean: a part of "road.highway", the type whose name starts with
/// the word, or one with that meaning. To be asked, not to be put in its place.
std::optional<std::string> meantFeatureType(std::string_view word);

/// The member of the stylers that a word which names none may mean.
std::optional<std::string> meantStyler(std::string_view word);

}  // namespace customstyle_tool
