// How the store's maps hold style records.
#pragma once

#include <cstdint>
#include <memory>

#include "customstyle/CustomConfig.h"
#include "vi/vos/VTempl.h"

namespace _orvik_framework {

/// Key of a stored record. Sign-extended here, zero-extended in queries: with 64-bit pointers a style id from 2^31 on
/// is never found.
inline void* storedKey(int recordId) {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(recordId));
}

/// Key under which the renderer's style id is looked up.
inline void* queriedKey(unsigned int styleId) {
    return reinterpret_cast<void*>(static_cast<std::uintptr_t>(styleId));
}

/// The record under a key, or null.
inline tagCustomStyle* findRecord(const CVMapPtrToPtr& records, void* key) {
    void* record = nullptr;
    records.Lookup(key, record);
    return static_cast<tagCustomStyle*>(record);
}

/// Calls `visit(void* key, tagCustomStyle& record)` for each record that is present, oldest first.
template <typename Visit>
void forEachRecord(const CVMapPtrToPtr& records, Visit visit) {
    for (void* position = records.GetStartPosition(); position != nullptr;) {
        void* key = nullptr;
        void* record = nullptr;
        records.GetNextAssoc(position, key, record);
        if (record == nullptr) continue;
        visit(key, *static_cast<tagCustomStyle*>(record));
    }
}

struct RecordDeleter {
    void operator()(tagCustomStyle* record) const { _orvik_vi::VDeleteArray(record); }
};

/// Stores a copy of a record under its own id. A record already stored there is replaced but not freed: somebody may
/// still hold it. Without memory for the copy nothing is stored.
inline void storeCopy(CVMapPtrToPtr& records, const tagCustomStyle& record) {
    std::unique_ptr<tagCustomStyle, RecordDeleter> copy(_orvik_vi::VNewArray<tagCustomStyle>(1));
    if (copy == nullptr) return;
    *copy = record;
    void*& place = records[storedKey(record.m_ID)];
    place = copy.release();
}

/// Frees every record and empties the map.
inline void releaseRecords(CVMapPtrToPtr& records) {
    forEachRecord(records, [](void*, tagCustomStyle& record) { _orvik_vi::VDeleteArray(&record); });
    records.RemoveAll();
}

}  // namespace _orvik_framework
