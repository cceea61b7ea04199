// Rules and mappings that are well formed, decided by the bytes of an input.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "fuzz/support/FuzzInput.h"
#include "tests/model_check/StyleModel.h"

namespace customstyle_fuzz {

/// The style ids of the feature types 0 to 71, up to three each, from -2 to 21.
std::vector<std::vector<int>> styleIdsFrom(FuzzInput& input);

enum class Slots {
    Enough,    ///< a rule for each decision
    MayRunOut  ///< now and then a rule at each level of many types, too
};

/// Calls `apply` for the rules of up to 200 decisions.
void rulesFrom(FuzzInput& input, Slots slots, const std::function<void(const customstyle_test::model::Rule&)>& apply);

/// The text of a mapping file with a list for each feature type.
std::string mappingText(const std::vector<std::vector<int>>& styleIds);

}  // namespace customstyle_fuzz
