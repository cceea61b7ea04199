// The limits of int, as levels, types and lengths.
#pragma once

#include <limits>

namespace customstyle_test {

inline constexpr int kIntMin = std::numeric_limits<int>::min();
inline constexpr int kIntMax = std::numeric_limits<int>::max();

}  // namespace customstyle_test
