// Checks a mapping file: everything that the component refuses, drops or changes in it.
#pragma once

#include <vector>

#include "tools/check/Finding.h"
#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// All findings of a mapping file, sorted.
/// @param effects  whether to include what is shown only on request
std::vector<Finding> checkMapping(const SourceFile& file, bool effects = false, const RefusalLog& refusalLog = {});

}  // namespace customstyle_tool
