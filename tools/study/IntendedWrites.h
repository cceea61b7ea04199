// IntendedWrites: what a styler writes where nothing stands in its way.
#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "tools/study/RecordHistory.h"
#include "tools/study/SingleRules.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// A styler for one level begins each of its writes from the style for all levels, and so may lose a value that it has
/// just written itself. This finds such values: the styler is applied to a store without other styles.
class IntendedWrites {
public:
    /// @param mapping  text of a mapping file with the style ids to be asked for
    /// @param rules  has to outlive this
    IntendedWrites(std::string_view mapping, const std::vector<SingleRule>& rules);

    /// The value that the step of a visit writes into a field of the record, none where it leaves the field alone.
    std::optional<std::uint64_t> value(const Visit& visit, std::size_t field);

private:
    // The store after the step over records marked in two ways: what bears both marks was not written.
    struct Outcome {
        StoreImage first;
        StoreImage second;
    };

    const Outcome& outcomeOf(std::size_t step);
    StoreImage applyOver(std::size_t step, std::uint64_t mark) const;

    Tree m_mapping;
    const std::vector<SingleRule>& m_rules;
    std::map<std::size_t, Outcome> m_outcomes;
};

}  // namespace customstyle_tool
