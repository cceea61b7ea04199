// How the store's maps hold style records.
#pragma once

#include <memory>

#include "customstyle/CustomConfig.h"
#include "customstyle/StoredRecords.h"
#include "vi/vos/VTempl.h"

namespace _orvik_framework {

struct RecordDeleter {
    void operator()(tagCustomStyle* record) const { _orvik_vi::VDeleteArray(record); }
};

/// Stores a copy of a record under its own id. A record already stored there is replaced but not freed, because a
/// caller may still hold it. Without memory for the copy nothing is stored.
inline void storeCopy(CVMapPtrToPtr& records, const tagCustomStyle& record) {
    std::unique_ptr<tagCustomStyle, RecordDeleter> copy(_orvik_vi::VNewArray<tagCustomStyle>(1));
    if (copy == nullptr) return;
    *copy = record;
    void*& place = records[storedKey(record.m_ID)];
    place = copy.release();
}

/// Frees every record and empties the map.
inline void releaseRecords(CVMapPtrToPtr& records) {
    for (const StoredRecord& entry : StoredRecords(records)) {
        // NOLINTNEXTLINE(clang-analyzer-unix.Malloc): each record stands in one map, and there once
        if (entry.record != nullptr) _orvik_vi::VDeleteArray(entry.record);
    }
    records.RemoveAll();
}

}  // namespace _orvik_framework
