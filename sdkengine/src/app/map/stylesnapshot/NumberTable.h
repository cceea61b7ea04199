// NumberTable: finds the number of a thing that was seen before.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace _orvik_framework {

/// A hash table of numbers; what they stand for is stored elsewhere.
class NumberTable {
public:
    static constexpr std::uint32_t kNone = 0xffffffff;

    /// Makes room for this many numbers in an empty table.
    void reserve(std::size_t count) { m_cells.assign(std::bit_ceil(2 * count + 1), {}); }

    /// The number for which `isIt(number)` holds among those entered under `hash`, or else `next`, which is entered.
    template <typename IsIt>
    std::uint32_t findOrEnter(std::uint32_t hash, std::uint32_t next, IsIt isIt) {
        if (2 * m_count >= m_cells.size()) grow();  // half of the cells stay free
        Cell* cell = firstCellOf(hash);
        while (cell->number != kNone && (cell->hash != hash || !isIt(cell->number))) cell = cellAfter(cell);
        if (cell->number == kNone) {
            *cell = {hash, next};
            ++m_count;
        }
        return cell->number;
    }

private:
    struct Cell {
        std::uint32_t hash = 0;
        std::uint32_t number = kNone;
    };

    static constexpr std::size_t kFirstCount = 64;

    Cell* firstCellOf(std::uint32_t hash) { return &m_cells[hash & (m_cells.size() - 1)]; }
    Cell* cellAfter(Cell* cell) { return cell == &m_cells.back() ? m_cells.data() : cell + 1; }

    void grow() {
        const std::vector<Cell> old = std::move(m_cells);
        reserve(std::max(kFirstCount, 2 * m_count));
        for (const Cell& moved : old) {
            if (moved.number == kNone) continue;
            Cell* cell = firstCellOf(moved.hash);
            while (cell->number != kNone) cell = cellAfter(cell);
            *cell = moved;
        }
    }

    std::vector<Cell> m_cells;
    std::size_t m_count = 0;
};

/// Mixes a value into a hash (multiplication by 2^64 divided by the golden ratio; Knuth, The Art of Computer
/// Programming, volume 3, section 6.4).
inline std::uint32_t mixed(std::uint32_t hash, std::uint64_t value) {
    const std::uint64_t product = ((std::uint64_t{hash} + 1) ^ value) * 0x9E3779B97F4A7C15;
    return static_cast<std::uint32_t>(product >> 32 ^ product >> 15);
}

}  // namespace _orvik_framework
