#include "vi/vos/VMem.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace _orvik_vi {
namespace {

// Precedes each block and keeps what follows aligned.
struct alignas(std::max_align_t) BlockHeader {
    std::size_t size;
};

void* allocateByDefault(std::size_t size, const char*, int) {
    return std::malloc(size);
}
void releaseByDefault(void* block) {
    std::free(block);
}

std::atomic<CVMem::AllocateFunction> g_allocate = allocateByDefault;
std::atomic<CVMem::ReleaseFunction> g_release = releaseByDefault;
std::atomic<std::size_t> g_outstandingBlocks = 0;
std::atomic<std::size_t> g_outstandingBytes = 0;

}  // namespace

void* CVMem::Allocate(std::size_t size, const char* origin, int line) {
    if (size > std::numeric_limits<std::size_t>::max() - sizeof(BlockHeader)) return nullptr;
    void* memory = g_allocate.load()(sizeof(BlockHeader) + size, origin, line);
    if (memory == nullptr) return nullptr;
    BlockHeader* header = new (memory) BlockHeader{size};
    g_outstandingBlocks += 1;
    g_outstandingBytes += size;
    return header + 1;
}

void CVMem::Deallocate(void* block) {
    if (block == nullptr) return;
    BlockHeader* header = static_cast<BlockHeader*>(block) - 1;
    g_outstandingBlocks -= 1;
    g_outstandingBytes -= header->size;
    g_release.load()(header);
}

std::size_t CVMem::GetOutstandingBlocks() {
    return g_outstandingBlocks;
}

std::size_t CVMem::GetOutstandingBytes() {
    return g_outstandingBytes;
}

void CVMem::SetHostAllocator(AllocateFunction allocate, ReleaseFunction release) {
    g_allocate = allocate == nullptr ? allocateByDefault : allocate;
    g_release = release == nullptr ? releaseByDefault : release;
}

}  // namespace _orvik_vi
