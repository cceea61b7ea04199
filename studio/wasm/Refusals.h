// The component's own words about texts that it refuses.
#pragma once

#include <string>

#include "tools/json/SourceFile.h"

namespace customstyle_studio {

/// The line that the component logs when it refuses a style or a mapping file.
std::string refusalOfStyle(const customstyle_tool::SourceFile& style);
std::string refusalOfMapping(const customstyle_tool::SourceFile& mapping);

}  // namespace customstyle_studio
