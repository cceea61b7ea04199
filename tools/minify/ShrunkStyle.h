// A style made small part by part.
#pragma once

#include <string>
#include <vector>

#include "tools/minify/MinimalRule.h"
#include "tools/study/Spread.h"

namespace customstyle_tool {

struct ShrunkStyle {
    std::vector<MinimalRule> rules;
    bool isComplete;  ///< false when the style was too long to try everything
};

/// The rules in fewer words, with the same answers on a map. Shrinking the result again changes nothing.
///
/// The rules are split into parts that do not touch each other. Parts whose answers depend on each other form clusters,
/// which are spread. The component has to be guarded, see ComponentGuard.
ShrunkStyle shrunkStyle(const std::vector<MinimalRule>& rules, const std::string& mapping, const Spread& spread);

}  // namespace customstyle_tool
