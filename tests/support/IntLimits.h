// The ends of int, which levels, types and lengths are tried with.
#pragma once

#include <limits>

namespace customstyle_test {

inline constexpr int kIntMin = std::numeric_limits<int>::min();
inline constexpr int kIntMax = std::numeric_limits<int>::max();

}  // namespace customstyle_test
