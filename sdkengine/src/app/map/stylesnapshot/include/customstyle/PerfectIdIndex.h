// PerfectIdIndex: a fixed table from style ids to numbers without collisions.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace [[gnu::visibility("default")]] _orvik_framework {

/// Finds the number of an id with two loads and one comparison, whatever the ids are.
///
/// A displacement for each small bucket of ids steers every id to a cell of its own (hash and displace; Belazzougui,
/// Botelho and Dietzfelbinger, "Hash, displace, and compress", 2009). Ids that are not in the table have the number 0.
class PerfectIdIndex {
public:
    struct Entry {
        std::uint32_t id;
        std::uint32_t number;
    };

    /// A table without ids.
    PerfectIdIndex() : PerfectIdIndex(std::span<const Entry>()) {}

    /// @param entries  each id once
    explicit PerfectIdIndex(std::span<const Entry> entries);

    std::uint32_t find(std::uint32_t id) const {
        const std::uint64_t hash = hashOf(id);
        const Entry& entry = m_cells[cellOf(hash, m_displacements[bucketOf(hash)])];
        return entry.id == id ? entry.number : 0;
    }

    /// Memory beyond the object itself.
    std::size_t bytes() const {
        return m_cells.capacity() * sizeof(Entry) + m_displacements.capacity() * sizeof(std::uint16_t);
    }

    /// Memory that a table of this many entries takes; only rarely is it more, and that in tables of few entries.
    static std::size_t bytesFor(std::size_t entryCount) {
        return cellsFor(entryCount) * sizeof(Entry) + bucketsFor(entryCount) * sizeof(std::uint16_t);
    }

private:
    static constexpr std::size_t kIdsPerBucket = 4;

    // Two rounds of multiplication and folding, because one leaves neighbouring ids in step.
    std::uint64_t hashOf(std::uint32_t id) const {
        const std::uint64_t spread = (id + std::uint64_t{1}) * m_multiplier;
        return (spread ^ spread >> 32) * 0xC2B2AE3D27D4EB4F;
    }
    std::size_t bucketOf(std::uint64_t hash) const { return static_cast<std::size_t>(hash >> 44) & m_bucketMask; }
    std::size_t cellOf(std::uint64_t hash, std::uint16_t displacement) const {
        return static_cast<std::size_t>(hash + displacement * (hash >> 32 | 1)) & m_cellMask;
    }

    static std::size_t cellsFor(std::size_t entryCount) {
        return std::bit_ceil(std::max<std::size_t>(entryCount + entryCount / 4, 1));
    }
    static std::size_t bucketsFor(std::size_t entryCount) {
        return std::bit_ceil(std::max<std::size_t>(entryCount / kIdsPerBucket, 1));
    }

    bool placeAll(std::span<const Entry> entries);
    bool placeBucket(std::size_t bucket, std::span<const Entry> entries, std::vector<bool>& taken);

    std::vector<Entry> m_cells;
    std::vector<std::uint16_t> m_displacements;
    std::uint64_t m_multiplier = 1;  // odd; which one makes the hash
    std::uint32_t m_cellMask = 0;
    std::uint32_t m_bucketMask = 0;
};

}  // namespace _orvik_framework
