#include "vi/vos/VMap.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

namespace _orvik_vi {
namespace {

// Twice as many cells still have a 32-bit number.
constexpr std::uint32_t kMostEntries = std::uint32_t{1} << 30;

constexpr std::size_t kMoreBytesThanAnyHeapHas = std::numeric_limits<std::ptrdiff_t>::max();

}  // namespace

void*& CVMapPtrToPtr::operator[](void* key) {
    if (const Entry* known = find(key)) return m_entries[static_cast<std::size_t>(known - m_entries.get())].value;
    if (m_count == m_capacity) grow();
    Entry& added = m_entries[m_count++];
    added = {key, nullptr};
    enterInIndex(m_count);
    return added.value;
}

void CVMapPtrToPtr::RemoveAll() {
    m_entries.reset();
    m_index.reset();
    m_count = m_capacity = m_indexSize = 0;
}

void CVMapPtrToPtr::grow() {
    const bool full = m_capacity == kMostEntries;
    const std::uint32_t capacity = std::min(std::max(m_blockSize, 2 * m_capacity), kMostEntries);
    const std::uint32_t indexSize = std::bit_ceil(2 * capacity);
    // A full map fails as operator new does, also in builds without exceptions.
    const std::size_t wanted = full ? kMoreBytesThanAnyHeapHas / sizeof(Entry) : capacity;
    auto entries = std::make_unique_for_overwrite<Entry[]>(wanted);
    auto index = std::make_unique<std::uint32_t[]>(indexSize);

    std::copy_n(m_entries.get(), m_count, entries.get());
    m_entries = std::move(entries);
    m_index = std::move(index);
    m_capacity = capacity;
    m_indexSize = indexSize;
    for (std::uint32_t ordinal = 1; ordinal <= m_count; ++ordinal) enterInIndex(ordinal);
}

void CVMapPtrToPtr::enterInIndex(std::uint32_t ordinal) {
    std::uint32_t probe = firstProbe(m_entries[ordinal - 1].key);
    while (m_index[probe] != 0) probe = (probe + 1) & indexMask();
    m_index[probe] = ordinal;
}

}  // namespace _orvik_vi
