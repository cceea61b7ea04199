// What is wrong with the text of a colour, and what its author may have meant.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/check/FindingCodes.h"

namespace customstyle_tool {

/// Why a text is not a colour, and what to write.
struct ColorFault {
    Code code;
    std::string why;  ///< follows the quoted text: "has no #"
    std::string remedy;
    std::string replacement{};  ///< the colour that was certainly meant, as JSON; empty where it is not certain
};

/// What is wrong with a text; nothing where it is # and six or eight hexadecimal digits.
std::optional<ColorFault> colorFaultOf(std::string_view text);

}  // namespace customstyle_tool
