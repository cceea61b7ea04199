// Minifying a style, with proof.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tools/json/SourceFile.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// A style made small.
struct Minified {
    std::string text;
    std::size_t rules;
    bool isComplete;  ///< false when the style was too long to look for everything that could go
};

/// The shortest style found whose answers are those of `style`: all style ids, all 19 level classes, all four
/// questions, asked of the component before the text is given out.
///
/// Silences the process's log and turns the renderer's questions on meanwhile.
///
/// @param mapping  text of a mapping file that the component accepts: the answers stay the same on this map. Without
///                 it, they stay the same on every map.
Minified minified(const StyleSource& style, const std::optional<std::string>& mapping);

}  // namespace customstyle_tool
