#include "tests/support/RecordingHeap.h"

#include <cstdlib>
#include <cstring>

#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

bool g_refuses = false;
std::vector<HeapRequest> g_requests;
std::vector<void*> g_released;

void* allocate(std::size_t size, const char* origin, int line) {
    void* block = g_refuses ? nullptr : std::malloc(size);
    if (block != nullptr) std::memset(block, 0xAA, size);
    g_requests.push_back({size, origin, line, block});
    return block;
}

void release(void* block) {
    g_released.push_back(block);
    std::free(block);
}

}  // namespace

RecordingHeap::RecordingHeap() {
    g_refuses = false;
    g_requests.clear();
    g_released.clear();
    _orvik_vi::CVMem::SetHostAllocator(allocate, release);
}

RecordingHeap::~RecordingHeap() {
    _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr);
}

void RecordingHeap::refuse() {
    g_refuses = true;
}

const std::vector<HeapRequest>& RecordingHeap::requests() const {
    return g_requests;
}

const std::vector<void*>& RecordingHeap::released() const {
    return g_released;
}

}  // namespace customstyle_test
