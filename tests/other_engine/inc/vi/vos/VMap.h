// CVMapPtrToPtr of another engine: a sorted list, walked from the largest key down. It needs its block size, and
// records what it gets.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

namespace [[gnu::visibility("default")]] _orvik_vi {

class CVMapPtrToPtr {
public:
    explicit CVMapPtrToPtr(int blockSize) : m_blockSize(blockSize) {}
    CVMapPtrToPtr(const CVMapPtrToPtr&) = delete;
    CVMapPtrToPtr& operator=(const CVMapPtrToPtr&) = delete;

    int blockSize() const { return m_blockSize; }

    void* GetStartPosition() const { return m_entries.empty() ? nullptr : const_cast<Entry*>(&m_entries.back()); }
    void GetNextAssoc(void*& position, void*& key, void*& value) const;
    int Lookup(void* key, void*& value) const;
    void*& operator[](void* key);
    void RemoveAll() { m_entries.clear(); }

private:
    using Entry = std::pair<void*, void*>;

    std::vector<Entry> m_entries;
    int m_blockSize;
};

}  // namespace _orvik_vi
