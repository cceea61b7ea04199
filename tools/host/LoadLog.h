// The component's own words about files that it refuses.
#pragma once

#include <string>

#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// The line that the component logs when it loads this mapping file from its directory. Empty where it logs none, and
/// for a text that is not a file.
std::string logOfMapping(const SourceFile& mapping);

/// The line that the component logs when it loads this style file over a mapping that is in order.
std::string logOfStyle(const SourceFile& style);

}  // namespace customstyle_tool
