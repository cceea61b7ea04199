// Whether expectations hold.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/expectations/Expectations.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// Equal answers that are not as expected.
struct ExpectationFailure {
    const Expectation* expectation;
    std::optional<std::uint64_t> value;  ///< what the component answers; none: not customised
    LevelSet levels;
    std::vector<unsigned int> styleIds;  ///< ascending; empty for backgrounds
};

/// Asks the component for every style id and level of each expectation. The global switch has to be on.
/// @return failures in the order of the expectations, which have to outlive them
std::vector<ExpectationFailure> failuresOf(std::span<const Expectation> expectations, const StyleStudy& style);

/// For each failure what was expected, what is, and the explanation of the first such answer.
std::string failuresText(std::span<const ExpectationFailure> failures, const SourceFile& file, const StyleStudy& style,
                         Swatches swatches);

}  // namespace customstyle_tool
