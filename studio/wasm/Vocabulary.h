// The words of the style language for an editor that completes them.
#pragma once

#include <string>

namespace customstyle_studio {

/// {"types": [{"word", "title"}], "elements": [...], "stylers": [...]}
std::string vocabularyJson();

/// {"takes": [{"types", "styler", "value", "elements"}]}: on which element paths a styler works, found by asking the
/// component for all of them, which takes most of a second.
std::string takesJson();

}  // namespace customstyle_studio
