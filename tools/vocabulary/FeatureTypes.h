// The feature types as the component knows them.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// A component without styles, for questions about feature types and values. All callers share one.
const _orvik_framework::CustomConfig& catalogue();

/// The names of all feature types, in the order of their ids.
std::span<const std::string> featureTypeNames();

/// The same without "all": the types that a mapping lists.
std::span<const std::string> mappedTypeNames();

/// The text of a mapping file.
/// @param idsOf  returns the style ids of a feature type, 0 to 71
std::string mappingText(const std::function<std::vector<int>(int featureType)>& idsOf);

}  // namespace customstyle_tool
