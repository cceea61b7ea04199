// Arrays on the engine's heap.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "vi/vos/VMem.h"

namespace _orvik_vi {

/// Allocates an array of `count` zero-filled elements. The block starts with the 64-bit element count, the elements
/// follow.
/// @return the first element, owned by the caller until VDeleteArray, or null when there is no memory
template <typename T>
T* VNewArray(std::uint64_t count) {
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= alignof(std::uint64_t));
    if (count > (std::numeric_limits<std::size_t>::max() - sizeof(count)) / sizeof(T)) return nullptr;
    const std::size_t bytes = static_cast<std::size_t>(count) * sizeof(T);
    // The origin under which the engine's allocation reports list its arrays, on every platform.
    void* block = CVMem::Allocate(sizeof(count) + bytes, "../../../engine/dev/inc/vi/vos/VTempl", 83);
    if (block == nullptr) return nullptr;
    std::memcpy(block, &count, sizeof(count));
    void* elements = static_cast<char*>(block) + sizeof(count);
    std::memset(elements, 0, bytes);
    return static_cast<T*>(elements);
}

/// Releases an array that VNewArray made. Null is accepted and ignored.
template <typename T>
void VDeleteArray(T* first) {
    if (first != nullptr) CVMem::Deallocate(reinterpret_cast<char*>(first) - sizeof(std::uint64_t));
}

}  // namespace _orvik_vi
