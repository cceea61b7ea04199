// The stylers: what a rule can give an element.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace customstyle_tool {

/// What a styler's text says.
enum class StylerKind : std::uint8_t {
    Color,       ///< #RRGGBB or #RRGGBBAA
    Visibility,  ///< "on" or "off"
    Size,        ///< digits, 0 to 255
};

struct Styler {
    std::string_view name;
    StylerKind kind;
    std::string_view example;  ///< a value that the component accepts
    std::string_view title;    ///< one line for the editor's list of proposals
};

/// In the order in which the component acts on them.
std::span<const Styler> stylers();

/// Null if there is none.
const Styler* stylerNamed(std::string_view name);

/// Whether there is a styler with the name and it is of this kind.
bool isOfKind(std::string_view name, StylerKind kind);

/// The member of the stylers that names the one zoom level of a rule; it styles nothing.
inline constexpr std::string_view kLevelMember = "level";
inline constexpr std::string_view kLevelTitle =
    "The only zoom level at which the rule applies, as a string; without it, all levels";

/// The names of the stylers, and the same with the level: every member that the component looks at.
std::span<const std::string> stylerNames();
std::span<const std::string> stylerMembers();

}  // namespace customstyle_tool
