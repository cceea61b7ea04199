// Minifying a style, with proof.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/study/Spread.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// How far a style was made small. Any form beyond the returned one was not proven to have the same effect, or was
/// longer.
enum class Thoroughness : std::uint8_t {
    Full,       ///< everything was tried
    ManyRules,  ///< not everything was tried, because of the number of rules
    EachRule,   ///< only each rule by itself
    Blanks,     ///< only blanks are gone
    Nothing,    ///< the style is as it was
};

/// A style made small.
struct Minified {
    std::string text;
    std::size_t rules;
    Thoroughness thoroughness;
};

/// The shortest style found whose answers are those of `style`: all style ids, all 19 level classes, all four
/// questions, checked with the component before the text is returned.
///
/// Takes the component's log and switch over meanwhile, see ComponentGuard.
///
/// @param mapping  text of a mapping file that the component accepts: the answers stay the same on this map. Without
///                 it, they stay the same on every map.
Minified minified(const StyleSource& style, const std::optional<std::string>& mapping, const Spread& spread = {});

}  // namespace customstyle_tool
