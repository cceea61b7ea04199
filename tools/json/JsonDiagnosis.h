// Finds out why a text cannot be read further, and where a person should look.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "tools/json/JsonDocument.h"
#include "tools/json/JsonError.h"

namespace customstyle_tool {

/// Where a reader cannot continue.
struct StuckPlace {
    std::string_view text;                   ///< the part that is read: up to the first NUL, if any
    bool isCutByNul;                         ///< whether a NUL ends the text, and not the end of the file
    std::size_t at;                          ///< the byte that does not fit, never a blank, or the size of the text
    std::optional<std::size_t> openBracket;  ///< the innermost list or object that is still open
    TextRange lastToken;                     ///< the last name or value that was read; empty if there is none
};

/// A value is missing.
JsonError whyNoValue(const StuckPlace& place);

/// The name of a member is missing.
JsonError whyNoName(const StuckPlace& place);

/// The colon after a name is missing.
JsonError whyNoColon(const StuckPlace& place);

/// A string that starts here has no closing quote.
JsonError whyNoClosingQuote(const StuckPlace& place);

/// Neither a comma nor the right bracket follows a value.
JsonError whyNoComma(const StuckPlace& place);

}  // namespace customstyle_tool
