// Checks a style file: everything that the component refuses, drops or changes in it.
#pragma once

#include <string_view>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/replay/ProvenEffects.h"
#include "tools/support/SourceFile.h"

namespace customstyle_tool {

struct CheckOptions {
    bool effects = false;  ///< also what is shown on request only
    Progress progress{};   ///< hears of the proofs
};

/// All findings of a style file, sorted.
///
/// @param file     has to outlive the findings
/// @param mapping  text of a mapping file that the component accepts: what is proven is proven for its style ids
///
/// Takes over the process's log meanwhile.
std::vector<Finding> checkStyle(const SourceFile& file, std::string_view mapping, const CheckOptions& options = {});

}  // namespace customstyle_tool
