#include "bench/support/DirectIndex.h"

#include <algorithm>

namespace customstyle_bench {

DirectIndex::DirectIndex(const _orvik_framework::CustomConfig& config, const std::vector<unsigned int>& styleIds) {
    const std::size_t end = styleIds.empty() ? 0 : *std::ranges::max_element(styleIds) + std::size_t{1};
    for (int level = kLowestLevel; level <= kHighestLevel; ++level) {
        std::vector<Answer>& answers = m_answers.emplace_back(end);
        for (const unsigned int id : styleIds) {
            answers[id].featureType = config.GetStyleFromConfig(answers[id].style, id, level);
        }
    }
}

std::size_t DirectIndex::bytes() const {
    return m_answers.empty() ? 0 : m_answers.size() * m_answers.front().size() * sizeof(Answer);
}

}  // namespace customstyle_bench
