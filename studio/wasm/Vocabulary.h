// The words of the style language for an editor that completes them.
#pragma once

#include <string>

namespace customstyle_studio {

/// {"types": [{"word", "title"}], "elements": [...], "stylers": [...], "takes": [{"types", "styler", "elements"}]}.
/// "takes" tells on which element paths a styler works, found by asking the component.
std::string vocabularyJson();

}  // namespace customstyle_studio
