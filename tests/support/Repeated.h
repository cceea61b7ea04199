// Long and deep texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace customstyle_test {

inline std::string repeated(std::string_view part, std::size_t times) {
    std::string text;
    text.reserve(part.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += part;
    return text;
}

/// "[[1]]", for example, is nested("[", "1", "]", 2).
inline std::string nested(std::string_view opening, std::string_view inside, std::string_view closing,
                          std::size_t depth) {
    return repeated(opening, depth).append(inside) + repeated(closing, depth);
}

}  // namespace customstyle_test
