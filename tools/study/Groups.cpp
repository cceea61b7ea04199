#include "tools/study/Groups.h"

#include <algorithm>
#include <numeric>

namespace customstyle_tool {

Groups::Groups(std::size_t count) : m_lower(count) {
    std::iota(m_lower.begin(), m_lower.end(), std::size_t{0});
}

void Groups::join(std::size_t left, std::size_t right) {
    const auto [lower, higher] = std::minmax({groupOf(left), groupOf(right)});
    m_lower[higher] = lower;
}

std::size_t Groups::groupOf(std::size_t thing) const {
    while (m_lower[thing] != thing) thing = m_lower[thing];
    return thing;
}

}  // namespace customstyle_tool
