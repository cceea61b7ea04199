// StyleIdIndex: a fixed table from style ids to numbers that suits how maps number their styles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "customstyle/PerfectIdIndex.h"

namespace [[gnu::visibility("default")]] _orvik_framework {

/// Finds the number of an id, whatever the ids are: any 32-bit values, one, none or many.
///
/// Authors number styles in clusters, so most ids are found in pages: the upper bits of the id choose a page, its
/// distance from the page's first id a byte. Ids that would cost more memory there than in a hash table, and numbers
/// above 255, are in a PerfectIdIndex beside the pages. Ids that are in neither have the number 0.
class StyleIdIndex {
public:
    using Entry = PerfectIdIndex::Entry;

    /// A table without ids.
    StyleIdIndex() = default;

    /// Takes at most as much memory as a PerfectIdIndex of the same entries, but for one page and the object.
    /// @param entries  each id once, in any order
    explicit StyleIdIndex(std::vector<Entry> entries);

    std::uint32_t find(std::uint32_t id) const {
        const Page& page = m_pages[id >> m_pageBits & m_pageMask];
        const std::uint32_t place = id - page.firstId;
        return place < page.size ? m_numbers[page.start + place] : findOther(id);
    }

    /// Memory beyond the object itself.
    std::size_t bytes() const {
        return m_pages.capacity() * sizeof(Page) + m_numbers.capacity() * sizeof m_numbers[0] +
               (m_others.empty() ? 0 : sizeof(PerfectIdIndex) + m_others[0].bytes());
    }

private:
    friend class StyleIdPager;

    // The ids of one region of the id space, from its first used one to its last.
    struct Page {
        std::uint32_t firstId = 0;
        std::uint32_t size = 0;
        std::uint32_t start = 0;  // in m_numbers
    };

    std::uint32_t findOther(std::uint32_t id) const { return m_others.empty() ? 0 : m_others[0].find(id); }

    std::uint32_t m_pageBits = 0;
    std::uint32_t m_pageMask = 0;
    std::vector<Page> m_pages = std::vector<Page>(1);
    std::vector<std::uint8_t> m_numbers;
    std::vector<PerfectIdIndex> m_others;  // one where there are such ids
};

}  // namespace _orvik_framework
