// A host allocator that remembers what it was asked.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace customstyle_test {

struct HeapRequest {
    std::size_t size;
    std::string origin;
    int line;
    void* block;
};

/// The engine's heap goes through this allocator while it lives. Its blocks are full of 0xAA bytes.
class RecordingHeap {
public:
    RecordingHeap();
    ~RecordingHeap();
    RecordingHeap(const RecordingHeap&) = delete;
    RecordingHeap& operator=(const RecordingHeap&) = delete;

    /// From now on every request is answered with null, and recorded all the same.
    void refuse();

    /// What was asked for, oldest first, and the blocks that were given back.
    const std::vector<HeapRequest>& requests() const;
    const std::vector<void*>& released() const;
};

}  // namespace customstyle_test
