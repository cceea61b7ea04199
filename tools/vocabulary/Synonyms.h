// Words that authors use for the names of styles. The meaning is suggested ("did you mean"), never substituted.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace customstyle_tool {

/// The feature type that a word which names none may mean: a part of "road.highway", the type whose name starts with
/// the word, or one with that meaning, one letter wrong included.
std::optional<std::string> meantFeatureType(std::string_view word);

/// The feature type that a word which names none may mean, by its meaning or its spelling.
std::optional<std::string> likelyFeatureType(std::string_view word);

/// What to say about a word that names no feature type: "; did you mean "water"?", or where to find all names.
std::string featureTypeHint(std::string_view word);

/// The member of the stylers that a word which names none may mean.
std::optional<std::string> meantStyler(std::string_view word);

/// The member of a rule that a word which names none may mean: "featureType" for "layer".
std::optional<std::string> meantRuleMember(std::string_view word);

/// The element that a path which names none may mean: "labels.text.stroke" for "halo".
/// @param elements  the elements that can be meant
std::optional<std::string> meantElement(std::string_view path, std::span<const std::string> elements);

/// "on" or "off", where a word such as "true" or "hidden" may mean that.
std::optional<std::string> meantVisibility(std::string_view word);

}  // namespace customstyle_tool
