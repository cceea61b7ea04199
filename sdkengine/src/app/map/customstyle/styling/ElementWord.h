// The words that element types are made of.
#pragma once

#include <string>
#include <string_view>

#include "vi/vos/VString.h"

namespace _orvik_framework {

/// A word as the engine's texts hold it.
using ElementWord = std::u16string_view;

/// Whether an element type is a word of a table.
inline bool isWord(const _orvik_vi::CVString& elementType, ElementWord word) {
    const char16_t* const text = elementType;
    return ElementWord(text, static_cast<std::size_t>(elementType.GetLength())) == word;
}

}  // namespace _orvik_framework
