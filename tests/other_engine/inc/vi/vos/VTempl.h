// Arrays of another engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "vi/vos/VMem.h"

namespace _orvik_vi {

template <typename T>
T* VNewArray(std::uint64_t count) {
    const auto size = static_cast<std::size_t>(sizeof(count) + count * sizeof(T));
    void* block = CVMem::Allocate(size, "", 0);
    if (block == nullptr) return nullptr;
    std::memset(block, 0, size);
    return reinterpret_cast<T*>(static_cast<std::uint64_t*>(block) + 1);
}

template <typename T>
void VDeleteArray(T* first) {
    if (first != nullptr) CVMem::Deallocate(reinterpret_cast<std::uint64_t*>(first) - 1);
}

}  // namespace _orvik_vi
