// What the words of a style file mean, in the words of map makers.
#pragma once

#include <span>
#include <string_view>

namespace customstyle_tool {

/// A word of the style language and what it stands for.
struct Description {
    const char* word;
    const char* title;
};

/// Every feature type, by id.
std::span<const Description> featureTypeDescriptions();

/// The element paths that are worth proposing to an author.
std::span<const Description> elementDescriptions();

/// The last words that an element path can have.
std::span<const char* const> elementWords();

/// The members of "stylers".
std::span<const Description> stylerDescriptions();

/// The title of a word, or the empty text.
std::string_view titleOf(std::span<const Description> descriptions, std::string_view word);

}  // namespace customstyle_tool
