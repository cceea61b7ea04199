// Failing allocations and the accounts of the engine's heap.
#pragma once

#include <cstddef>

namespace customstyle_test {

/// While it lives, one allocation of the engine's heap fails: the one after `successes` successful ones.
class FaultyMemory {
public:
    explicit FaultyMemory(std::size_t successes);
    ~FaultyMemory();
    FaultyMemory(const FaultyMemory&) = delete;
    FaultyMemory& operator=(const FaultyMemory&) = delete;

    /// Whether the failing allocation has been reached.
    bool hasFailed() const;
};

/// Blocks and bytes of the engine's heap that are allocated since its construction and not yet freed.
class MemoryAccounts {
public:
    MemoryAccounts();
    std::ptrdiff_t blocks() const;
    std::ptrdiff_t bytes() const;

private:
    std::size_t m_blocks;
    std::size_t m_bytes;
};

}  // namespace customstyle_test
