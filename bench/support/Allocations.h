// Counts heap allocations.
#pragma once

#include <cstddef>

namespace customstyle_bench {

/// Starts to count. The program that links this has an operator new of its own, which costs a little more.
void countAllocations();

/// Allocations by operator new and by the engine's heap since counting started.
std::size_t allocationCount();

}  // namespace customstyle_bench
