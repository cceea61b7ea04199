// "Did you mean": the name that an author had in mind.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace customstyle_tool {

/// The candidate nearest to a word: the one that differs only in case, blanks, dashes and underscores, else
/// the first of those with the fewest letters wrong, at most one in three. None if nothing is near.
std::optional<std::string> likelyName(std::string_view word, std::span<const std::string> candidates);

/// "; did you mean "fill"?", or nothing.
std::string didYouMean(const std::optional<std::string>& name);

/// "fill, stroke or icon".
std::string eitherOf(const std::vector<std::string>& names);

/// What is wrong with a word that is not one of these: names the nearest, or all of them if they are few.
/// @param what  as in "unknown WHAT"
std::string unknownWord(const std::string& what, const std::string& word, const std::vector<std::string>& known);

/// The number of letters to insert, take away, replace or swap with their neighbour to get from one word to the other.
std::size_t spellingDistance(std::string_view left, std::string_view right);

}  // namespace customstyle_tool
