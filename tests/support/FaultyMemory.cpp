#include "tests/support/FaultyMemory.h"

#include <cstdlib>

#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVMem;

std::size_t g_successesLeft = 0;
bool g_hasFailed = false;

void* allocate(std::size_t size, const char*, int) {
    if (!g_hasFailed && g_successesLeft == 0) {
        g_hasFailed = true;
        return nullptr;
    }
    if (g_successesLeft > 0) --g_successesLeft;
    return std::malloc(size);
}

void release(void* block) {
    std::free(block);
}

}  // namespace

FaultyMemory::FaultyMemory(std::size_t successes) {
    g_successesLeft = successes;
    g_hasFailed = false;
    CVMem::SetHostAllocator(allocate, release);
}

FaultyMemory::~FaultyMemory() {
    CVMem::SetHostAllocator(nullptr, nullptr);
}

bool FaultyMemory::hasFailed() const {
    return g_hasFailed;
}

MemoryAccounts::MemoryAccounts() : m_blocks(CVMem::GetOutstandingBlocks()), m_bytes(CVMem::GetOutstandingBytes()) {}

std::ptrdiff_t MemoryAccounts::blocks() const {
    return static_cast<std::ptrdiff_t>(CVMem::GetOutstandingBlocks() - m_blocks);
}

std::ptrdiff_t MemoryAccounts::bytes() const {
    return static_cast<std::ptrdiff_t>(CVMem::GetOutstandingBytes() - m_bytes);
}

}  // namespace customstyle_test
