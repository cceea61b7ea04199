// CVMapPtrToPtr: the engine's hash map from pointer-sized key to pointer-sized value.
#pragma once

#include <cstdint>
#include <memory>

namespace [[gnu::visibility("default")]] _orvik_vi {

/// Hash map of pointer-sized keys and values. It borrows both: it never reads or frees what they point to.
///
/// Iteration follows the order in which the keys were first inserted, on every host and in every run. A map that never
/// held an entry owns no memory. There is no removal of a single key.
class CVMapPtrToPtr {
public:
    /// @param blockSize  entries for which the first insertion makes room; later growth doubles. Below 1 counts as 1.
    explicit CVMapPtrToPtr(int blockSize = 10) noexcept
        : m_blockSize(blockSize < 1 ? 1 : static_cast<std::uint32_t>(blockSize)) {}

    CVMapPtrToPtr(const CVMapPtrToPtr&) = delete;
    CVMapPtrToPtr& operator=(const CVMapPtrToPtr&) = delete;

    /// Number of keys.
    int GetCount() const { return static_cast<int>(m_count); }

    /// Position of the oldest entry, null for an empty map. Inserting a new key invalidates it.
    void* GetStartPosition() const { return m_count == 0 ? nullptr : m_entries.get(); }

    /// Reads the entry at `position` and moves `position` to the next entry, or to null after the last one.
    /// @param position  from GetStartPosition or an earlier call, not null
    void GetNextAssoc(void*& position, void*& key, void*& value) const {
        Entry* entry = static_cast<Entry*>(position);
        key = entry->key;
        value = entry->value;
        ++entry;
        position = entry == m_entries.get() + m_count ? nullptr : entry;
    }

    /// Finds the value of a key.
    /// @param value  receives the value; untouched when the key is absent
    /// @return whether the key is present
    bool Lookup(void* key, void*& value) const {
        const Entry* entry = find(key);
        if (entry == nullptr) return false;
        value = entry->value;
        return true;
    }

    /// The value of a key; an absent key is inserted with a null value. The reference is valid until the next
    /// insertion. Throws std::bad_alloc when there is no memory for a new key; the map is then as it was.
    void*& operator[](void* key);

    /// Removes every entry and releases all memory.
    void RemoveAll();

private:
    struct Entry {
        void* key;
        void* value;
    };

    // Multiplication by 2^64 divided by the golden ratio spreads neighbouring ids over the upper bits (Knuth, The Art
    // of Computer Programming, volume 3, section 6.4).
    std::uint32_t firstProbe(void* key) const {
        const std::uint64_t spread = reinterpret_cast<std::uintptr_t>(key) * std::uint64_t{0x9E3779B97F4A7C15};
        return static_cast<std::uint32_t>(spread >> 32) & indexMask();
    }

    std::uint32_t indexMask() const { return m_indexSize - 1; }

    // The index is at most half full, so each probe sequence meets an empty cell.
    const Entry* find(void* key) const {
        if (m_count == 0) return nullptr;
        for (std::uint32_t probe = firstProbe(key);; probe = (probe + 1) & indexMask()) {
            const std::uint32_t ordinal = m_index[probe];
            if (ordinal == 0) return nullptr;
            if (m_entries[ordinal - 1].key == key) return &m_entries[ordinal - 1];
        }
    }

    void grow();
    void enterInIndex(std::uint32_t ordinal);

    std::unique_ptr<Entry[]> m_entries;        // in insertion order
    std::unique_ptr<std::uint32_t[]> m_index;  // open addressing; a cell holds the number of an entry, from 1, or 0
    std::uint32_t m_count = 0;
    std::uint32_t m_capacity = 0;   // entries that m_entries has room for
    std::uint32_t m_indexSize = 0;  // cells of m_index, a power of two
    std::uint32_t m_blockSize;
};

}  // namespace _orvik_vi
