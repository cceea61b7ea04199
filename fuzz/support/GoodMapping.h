// A mapping that the component accepts.
#pragma once

#include <string>

namespace customstyle_fuzz {

/// Two style ids for each feature type, one of them shared with a neighbour.
const std::string& goodMapping();

}  // namespace customstyle_fuzz
