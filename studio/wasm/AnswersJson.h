// Everything that the renderer can learn, as JSON.
#pragma once

#include <string>

#include "customstyle/CustomConfig.h"

namespace customstyle_studio {

/// The answers for every style id of the mapping in all 19 level classes: levels 4 to 21, then all other levels.
///
/// "records" holds each answer once; "styles" names for each style id the record of each class. "land" and "grid" are
/// the background colours, null where they are not customised. Expects a map whose questions are enabled.
std::string answersJson(const _orvik_framework::CustomConfig& config);

}  // namespace customstyle_studio
