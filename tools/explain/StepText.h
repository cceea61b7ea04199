// A step of a replay in the author's own words.
#pragma once

#include <optional>
#include <string>

#include "tools/json/SourceFile.h"
#include "tools/study/Explanation.h"
#include "tools/study/StyleSource.h"
#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// Where a styler is written and what it says.
struct StylerNote {
    std::size_t rule;  ///< from 1, as people count
    std::string file;
    LinePosition position;
    std::string styler;  ///< "color"
    std::string value;   ///< as written in the file, quotes included
    std::string featureType;
    std::string elementType;
    std::optional<std::string> level;  ///< as written in the file, quotes included; none where the component reads none
    std::string variable{};            ///< "$road, day.toml:3:8", where the value is that of a variable; else empty
};

StylerNote noteOf(const StyleSource& style, const ReplayStep& step);

/// "rule 3, night.json:12:34: color "#ff0000" on highway labels.text.fill at level "15"".
std::string stylerText(const StylerNote& note);

/// The feature type whose records a write changed, where it is not the rule's own: its companion label type.
std::optional<int> companionOf(const StylerNote& note, const Write& write);

}  // namespace customstyle_tool
