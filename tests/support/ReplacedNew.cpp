#include "tests/support/ReplacedNew.h"

#include <cstdlib>
#include <new>

namespace {

customstyle_test::NewGuard g_guard = nullptr;

void* allocate(std::size_t size) noexcept {
    const bool isGranted = g_guard == nullptr || g_guard();
    return isGranted ? std::malloc(size == 0 ? 1 : size) : nullptr;
}

void* allocateOrThrow(std::size_t size) {
    void* block = allocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

}  // namespace

void* operator new(std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new[](std::size_t size) {
    return allocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}

namespace customstyle_test {

void setNewGuard(NewGuard guard) {
    g_guard = guard;
}

}  // namespace customstyle_test
