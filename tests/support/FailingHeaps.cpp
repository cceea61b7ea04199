#include "tests/support/FailingHeaps.h"

#include <cstdlib>

#include "tests/support/ReplacedNew.h"
#include "vi/vos/VJson.h"
#include "vi/vos/VMem.h"

namespace {

bool g_failsOn = false;
bool g_hasFailed = false;
std::size_t g_successesLeft = 0;
std::ptrdiff_t g_jsonBlocks = 0;

bool isGranted() {
    if (g_hasFailed) return !g_failsOn;
    if (g_successesLeft == 0) return !(g_hasFailed = true);
    --g_successesLeft;
    return true;
}

void* allocateForEngine(std::size_t size, const char*, int) {
    return isGranted() ? std::malloc(size) : nullptr;
}

void* allocateForJson(std::size_t size) {
    void* block = isGranted() ? std::malloc(size) : nullptr;
    if (block != nullptr) ++g_jsonBlocks;
    return block;
}

void releaseOfJson(void* block) {
    if (block != nullptr) --g_jsonBlocks;
    std::free(block);
}

}  // namespace

namespace customstyle_test {

FailingHeaps::FailingHeaps(std::size_t successes, Failures failures) {
    g_failsOn = failures == Failures::AllFurther;
    g_hasFailed = false;
    g_successesLeft = successes;
    cJSON_Hooks hooks{allocateForJson, releaseOfJson};
    cJSON_InitHooks(&hooks);
    _orvik_vi::CVMem::SetHostAllocator(allocateForEngine, std::free);
    setNewGuard(isGranted);
}

FailingHeaps::~FailingHeaps() {
    setNewGuard(nullptr);
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
