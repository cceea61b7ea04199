// Numbers in texts.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace customstyle_tool {

/// The whole number that a text is; none for any other text, and for a number that the type cannot hold.
template <typename Number>
std::optional<Number> numberIn(std::string_view text, int base = 10) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return number;
}

}  // namespace customstyle_tool
