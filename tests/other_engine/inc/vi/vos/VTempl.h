// Arrays of another engine.
#pragma once

#include <cstdint>
#include <cstring>

#include "vi/vos/VMem.h"

namespace _orvik_vi {

template <typename T>
T* VNewArray(std::uint64_t count) {
    void* block = CVMem::Allocate(sizeof(count) + count * sizeof(T), "", 0);
    if (block == nullptr) return nullptr;
    std::memset(block, 0, sizeof(count) + count * sizeof(T));
    return reinterpret_cast<T*>(static_cast<std::uint64_t*>(block) + 1);
}

template <typename T>
void VDeleteArray(T* first) {
    if (first != nullptr) CVMem::Deallocate(reinterpret_cast<std::uint64_t*>(first) - 1);
}

}  // namespace _orvik_vi
