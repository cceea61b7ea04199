#include "hostile/FailingHeaps.h"

#include <cstdlib>
#include <new>

#include "vi/vos/VJson.h"
#include "vi/vos/VMem.h"

namespace {

bool g_isArmed = false;
bool g_failsOn = false;
bool g_hasFailed = false;
std::size_t g_successesLeft = 0;
std::ptrdiff_t g_jsonBlocks = 0;

bool isGranted() {
    if (!g_isArmed) return true;
    if (g_hasFailed) return !g_failsOn;
    if (g_successesLeft == 0) return !(g_hasFailed = true);
    --g_successesLeft;
    return true;
}

void* allocate(std::size_t size) {
    return isGranted() ? std::malloc(size == 0 ? 1 : size) : nullptr;
}

void* allocateOrThrow(std::size_t size) {
    void* block = allocate(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void* allocateForEngine(std::size_t size, const char*, int) {
    return allocate(size);
}

void* allocateForJson(std::size_t size) {
    void* block = allocate(size);
    if (block != nullptr) ++g_jsonBlocks;
    return block;
}

void releaseOfJson(void* block) {
    if (block != nullptr) --g_jsonBlocks;
    std::free(block);
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

FailingHeaps::FailingHeaps(std::size_t successes, Failures failures) {
    cJSON_Hooks hooks{allocateForJson, releaseOfJson};
    cJSON_InitHooks(&hooks);
    _orvik_vi::CVMem::SetHostAllocator(allocateForEngine, std::free);
    g_failsOn = failures == Failures::AllFurther;
    g_hasFailed = false;
    g_successesLeft = successes;
    g_isArmed = true;
}

FailingHeaps::~FailingHeaps() {
    g_isArmed = false;
    _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr);
    cJSON_InitHooks(nullptr);
}

bool FailingHeaps::hasFailed() const {
    return g_hasFailed;
}

std::ptrdiff_t outstandingJsonBlocks() {
    return g_jsonBlocks;
}

}  // namespace customstyle_test
