// What became of the writes into one record.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "tools/study/Explanation.h"
#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// A visit of a step to a record.
struct Visit {
    std::size_t step;
    const RecordTouch* touch;
};

/// The value that a step would leave in a field of the visited record if there was no style for all levels, none where
/// it does not write the field.
using IntendedValue = std::function<std::optional<std::uint64_t>(const Visit& visit, std::size_t field)>;

/// The two records of a feature type that a level can see for one style id.
struct RecordVisits {
    int featureType;
    std::optional<int> level;   ///< of the record in effect: none for that of all levels
    std::vector<Visit> visits;  ///< to the record in effect; to that of all levels also where a level's is in effect
};

/// Follows one field from step to step.
///
/// @return its value in the record in effect with the write that stands there, and all other writes with what ended
///         them: overwritten, reset, or shut out. Whether the record answers is not looked at.
History fieldHistory(const RecordVisits& record, std::size_t field, const IntendedValue& intended);

/// The last step that visited the record in effect, if any.
std::optional<std::size_t> lastStepOn(const RecordVisits& record);

}  // namespace customstyle_tool
