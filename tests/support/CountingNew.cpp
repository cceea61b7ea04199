#include "support/CountingNew.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t g_calls = 0;
bool g_fails = false;

void* allocate(std::size_t size) noexcept {
    ++g_calls;
    return g_fails ? nullptr : std::malloc(size == 0 ? 1 : size);
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

NewCalls::NewCalls() : m_before(g_calls) {}

std::size_t NewCalls::count() const {
    return g_calls - m_before;
}

NoMemory::NoMemory() {
    g_fails = true;
}

NoMemory::~NoMemory() {
    g_fails = false;
}

}  // namespace customstyle_test
