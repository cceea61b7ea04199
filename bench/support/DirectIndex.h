// The direct index record[level][id]: the yardstick of the snapshot.
#pragma once

#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_bench {

/// The answers for each style id up to the largest one, at levels 4 to 21. It takes the level and the global switch as
/// they are: the one must lie in the range, the other must not be 0.
class DirectIndex {
public:
    static constexpr int kLowestLevel = 4;
    static constexpr int kHighestLevel = 21;

    /// @param styleIds  the ids that can have a style
    DirectIndex(const _orvik_framework::CustomConfig& config, const std::vector<unsigned int>& styleIds);

    /// CustomConfig::GetStyleFromConfig.
    int getStyle(_orvik_framework::tagCustomStyle& style, unsigned int styleId, int level) const {
        const std::vector<Answer>& answers = m_answers[static_cast<std::size_t>(level - kLowestLevel)];
        if (styleId >= answers.size()) return -1;
        const Answer& answer = answers[styleId];
        if (answer.featureType < 0) return -1;
        style = answer.style;
        return answer.featureType;
    }

    std::size_t bytes() const;

private:
    struct Answer {
        _orvik_framework::tagCustomStyle style{};
        int featureType = -1;  // -1 where there is no style
    };

    std::vector<std::vector<Answer>> m_answers;  // by level, by style id
};

}  // namespace customstyle_bench
