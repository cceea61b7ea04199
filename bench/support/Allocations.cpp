#include "bench/support/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include "vi/vos/VMem.h"

namespace {

std::atomic<std::size_t> g_allocations = 0;

void* countedAllocation(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    const std::size_t padded = (size + alignment - 1) / alignment * alignment;
    void* block = alignment <= alignof(std::max_align_t) ? std::malloc(size == 0 ? 1 : size)
                                                         : std::aligned_alloc(alignment, padded);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void* countedHeapAllocation(std::size_t size, const char*, int) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size);
}

}  // namespace

void* operator new(std::size_t size) {
    return countedAllocation(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return countedAllocation(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    std::free(block);
}

namespace customstyle_bench {

void countAllocations() {
    _orvik_vi::CVMem::SetHostAllocator(countedHeapAllocation, std::free);
    g_allocations = 0;
}

std::size_t allocationCount() {
    return g_allocations.load(std::memory_order_relaxed);
}

}  // namespace customstyle_bench
