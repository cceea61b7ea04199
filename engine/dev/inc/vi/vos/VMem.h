// CVMem: the engine's heap.
#pragma once

#include <cstddef>

namespace [[gnu::visibility("default")]] _orvik_vi {

/// Heap blocks with accounts. All functions may be called from any thread.
class CVMem {
public:
    /// A host's own allocator. It receives the caller's origin file and line, may return null, and must align each
    /// block for any fundamental type. `size` includes the few bytes of accounts that CVMem keeps in front of each
    /// block.
    using AllocateFunction = void* (*)(std::size_t size, const char* origin, int line);
    using ReleaseFunction = void (*)(void* block);

    /// Allocates `size` bytes of undefined content; for 0 bytes it returns a block as well.
    /// @param origin  the file of the caller, a text of static storage
    /// @return the block, owned by the caller until Deallocate, or null when there is no memory
    static void* Allocate(std::size_t size, const char* origin, int line);

    /// Releases a block. Null is accepted and ignored.
    static void Deallocate(void* block);

    /// Blocks that are allocated and not released yet, and the bytes that their callers asked for.
    static std::size_t GetOutstandingBlocks();
    static std::size_t GetOutstandingBytes();

    /// Installs the host's allocator; two nulls bring back the built-in one. A block must be released by the pair that
    /// allocated it, so a pair is exchanged for an incompatible one only while no block is outstanding.
    static void SetHostAllocator(AllocateFunction allocate, ReleaseFunction release);
};

}  // namespace _orvik_vi
