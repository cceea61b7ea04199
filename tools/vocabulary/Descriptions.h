// What the words of a style file mean, in the words of map makers.
#pragma once

#include <span>
#include <string_view>

namespace customstyle_tool {

/// A word of the style language and its meaning.
struct Description {
    const char* word;
    const char* title;
};

/// Every feature type, by id.
std::span<const Description> featureTypeDescriptions();

/// The title of a word, or an empty text.
std::string_view titleOf(std::span<const Description> descriptions, std::string_view word);

}  // namespace customstyle_tool
