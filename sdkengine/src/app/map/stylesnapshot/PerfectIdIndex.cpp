#include "customstyle/PerfectIdIndex.h"

#include <algorithm>
#include <limits>

namespace _orvik_framework {
namespace {

// Buckets that are filled by chance have far fewer ids; to try one that is filled on purpose takes seconds.
constexpr std::size_t kFullestBucket = 64;

}  // namespace

PerfectIdIndex::PerfectIdIndex(std::span<const Entry> entries) {
    const std::size_t bucketCount = bucketsFor(entries.size());
    m_bucketMask = static_cast<std::uint32_t>(bucketCount - 1);
    m_displacements.assign(bucketCount, 0);
    // At least a fifth of the cells stays free, so the first hash is nearly always enough for many ids. Those that it
    // does not tell apart, by chance or on purpose, are scattered by another.
    constexpr int kHashesPerSize = 16;
    for (std::size_t cellCount = cellsFor(entries.size());; cellCount *= 2) {
        m_cellMask = static_cast<std::uint32_t>(cellCount - 1);
        for (int hash = 0; hash < kHashesPerSize; ++hash) {
            m_multiplier *= 0x9E3779B97F4A7C15;
            m_cells.assign(cellCount, Entry{});
            if (placeAll(entries)) return;
        }
    }
}

bool PerfectIdIndex::placeAll(std::span<const Entry> entries) {
    std::vector<std::vector<Entry>> buckets(m_displacements.size());
    for (const Entry& entry : entries) {
        std::vector<Entry>& bucket = buckets[bucketOf(hashOf(entry.id))];
        bucket.push_back(entry);
        if (bucket.size() > kFullestBucket) return false;
    }

    std::vector<std::size_t> order(buckets.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    // Full buckets are the hardest to place and go first, while there is room.
    std::ranges::stable_sort(order,
                             [&](std::size_t a, std::size_t b) { return buckets[a].size() > buckets[b].size(); });

    std::vector<bool> taken(m_cells.size());
    return std::ranges::all_of(order, [&](std::size_t bucket) { return placeBucket(bucket, buckets[bucket], taken); });
}

bool PerfectIdIndex::placeBucket(std::size_t bucket, std::span<const Entry> entries, std::vector<bool>& taken) {
    // After as many displacements as there are cells, the same cells repeat.
    const std::uint32_t last = std::min<std::uint32_t>(m_cellMask, std::numeric_limits<std::uint16_t>::max());
    std::vector<std::size_t> cells;
    for (std::uint32_t displacement = 0; displacement <= last; ++displacement) {
        cells.clear();
        for (const Entry& entry : entries) {
            const std::size_t cell = cellOf(hashOf(entry.id), static_cast<std::uint16_t>(displacement));
            if (taken[cell] || std::ranges::find(cells, cell) != cells.end()) break;
            cells.push_back(cell);
        }
        if (cells.size() < entries.size()) continue;
        m_displacements[bucket] = static_cast<std::uint16_t>(displacement);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            taken[cells[i]] = true;
            m_cells[cells[i]] = entries[i];
        }
        return true;
    }
    return false;
}

}  // namespace _orvik_framework
