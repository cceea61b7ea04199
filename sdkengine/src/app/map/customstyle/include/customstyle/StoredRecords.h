// StoredRecords: the records that one of the store's maps holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "customstyle/CustomConfig.h"

namespace [[gnu::visibility("default")]] _orvik_framework {

/// Key of a stored record: its id, sign-extended. Queries extend with zeros, so with 64-bit pointers a style id from
/// 2^31 on is stored but never found.
inline void* storedKey(int recordId) {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(recordId));
}

/// Key under which the renderer's style id is looked up.
inline void* queriedKey(unsigned int styleId) {
    return reinterpret_cast<void*>(static_cast<std::uintptr_t>(styleId));
}

/// The record under a key, or null. The store owns it.
inline tagCustomStyle* findRecord(const CVMapPtrToPtr& records, void* key) {
    void* record = nullptr;
    records.Lookup(key, record);
    return static_cast<tagCustomStyle*>(record);
}

/// An entry of a map.
struct StoredRecord {
    void* key = nullptr;
    tagCustomStyle* record = nullptr;  ///< owned by the store; null where the key has no record

    /// The key as a number, with the sign that storedKey gave it.
    std::intptr_t number() const { return reinterpret_cast<std::intptr_t>(key); }
    /// The key as an id of the mapping file.
    int id() const { return static_cast<int>(number()); }
    /// The key as a style id of the renderer.
    unsigned int styleId() const { return static_cast<unsigned int>(number()); }
};

/// The entries of a map, oldest first: `for (const auto& [key, record] : StoredRecords(map))`.
///
/// Borrows the map, which must not get new keys meanwhile.
class StoredRecords {
public:
    class Iterator {
    public:
        using iterator_concept = std::input_iterator_tag;
        using value_type = StoredRecord;
        using difference_type = std::ptrdiff_t;

        Iterator(const CVMapPtrToPtr& records, void* position) : m_records(&records), m_next(position) { read(); }

        const StoredRecord& operator*() const { return m_entry; }
        const StoredRecord* operator->() const { return &m_entry; }
        Iterator& operator++() {
            read();
            return *this;
        }
        void operator++(int) { read(); }
        friend bool operator==(const Iterator& it, std::default_sentinel_t) { return it.m_atEnd; }

    private:
        // The engine's map advances the position while it reads.
        void read() {
            m_atEnd = m_next == nullptr;
            if (m_atEnd) return;
            void* record = nullptr;
            m_records->GetNextAssoc(m_next, m_entry.key, record);
            m_entry.record = static_cast<tagCustomStyle*>(record);
        }

        const CVMapPtrToPtr* m_records;
        void* m_next;
        StoredRecord m_entry;
        bool m_atEnd = false;
    };

    explicit StoredRecords(const CVMapPtrToPtr& records) : m_records(&records) {}

    Iterator begin() const { return {*m_records, m_records->GetStartPosition()}; }
    std::default_sentinel_t end() const { return {}; }

    /// The oldest entry; of an empty map one without key and record.
    StoredRecord first() const { return *begin(); }

private:
    const CVMapPtrToPtr* m_records;
};

}  // namespace _orvik_framework
