// The elements: the parts of a feature that a rule can style.
#pragma once

#include <span>
#include <string_view>

namespace customstyle_tool {

struct Element {
    std::string_view path;
    std::string_view title;  ///< one line for the editor's list of proposals
};

/// Every element path that has a plain meaning.
std::span<const Element> elements();

/// The words that can end such a path: the component knows no others.
std::span<const char* const> elementWords();

/// Whether a word occurs in the usual paths.
bool isUsualWord(std::string_view word);

}  // namespace customstyle_tool
