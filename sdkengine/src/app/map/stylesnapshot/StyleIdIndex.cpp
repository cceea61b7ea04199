#include "customstyle/StyleIdIndex.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

namespace _orvik_framework {
namespace {

using Entries = std::vector<StyleIdIndex::Entry>;

// Ids come type by type, in ascending runs: merging few runs is faster than sorting.
void sortById(Entries& entries) {
    std::vector<Entries::iterator> bounds{entries.begin()};
    for (auto i = entries.begin(); i != entries.end(); ++i) {
        if (i != entries.begin() && i->id < (i - 1)->id) bounds.push_back(i);
    }
    bounds.push_back(entries.end());
    while (bounds.size() > 2) {
        std::vector<Entries::iterator> merged{bounds.front()};
        for (std::size_t run = 0; run + 1 < bounds.size(); run += 2) {
            const auto end = bounds[std::min(run + 2, bounds.size() - 1)];
            std::ranges::inplace_merge(bounds[run], bounds[run + 1], end, {}, &StyleIdIndex::Entry::id);
            merged.push_back(end);
        }
        bounds = std::move(merged);
    }
}

}  // namespace

/// Decides which ids are in pages, and how large the pages are, and fills an index accordingly.
class __attribute__((visibility("hidden"))) StyleIdPager {
public:
    using Entry = StyleIdIndex::Entry;

    /// @param entries  ascending by id; they outlive the pager
    explicit StyleIdPager(std::span<const Entry> entries) : m_entries(entries) {}

    void fill(StyleIdIndex& index);

private:
    // Neighbouring entries whose ids agree in their upper bits.
    struct Region {
        std::uint32_t firstId;
        std::uint32_t lastId;
        std::size_t firstEntry;
        std::size_t entryCount;
        bool fitsPage;  // each number fits into a byte

        std::size_t idSpan() const { return std::size_t{lastId} - firstId + 1; }
    };

    struct Layout {
        std::uint32_t pageBits = 0;  // a page covers up to 2^pageBits ids
        std::size_t pageCount = 1;
        std::size_t pagedEntries = 0;
        std::size_t numberCount = 0;
        std::size_t bytes = 0;
    };

    static constexpr std::size_t kNoRegion = std::numeric_limits<std::size_t>::max();
    static constexpr std::uint32_t kLowestPageBits = 5;
    static constexpr std::uint32_t kHighestPageBits = 10;

    static std::size_t hashedBytes(std::size_t entryCount) {
        return entryCount == 0 ? 0 : sizeof(PerfectIdIndex) + PerfectIdIndex::bytesFor(entryCount);
    }

    static std::size_t pageOf(const Region& region, const Layout& layout) {
        return region.firstId >> layout.pageBits & (layout.pageCount - 1);
    }

    Layout bestLayout();
    void improve(Layout& best, std::uint32_t pageBits);
    void findRegions(std::uint32_t pageBits);
    void mergeRegions(std::uint32_t pageBits);
    void chooseOwners(const Layout& layout);
    void measure(Layout& layout);
    void enterPage(StyleIdIndex& index, StyleIdIndex::Page& page, const Region& region) const;

    std::span<const Entry> m_entries;
    std::vector<Region> m_regions;
    std::vector<std::size_t> m_owners;  // by page: a region, or none
};

void StyleIdPager::fill(StyleIdIndex& index) {
    const Layout layout = bestLayout();
    findRegions(layout.pageBits);
    chooseOwners(layout);
    index.m_pageBits = layout.pageBits;
    index.m_pageMask = static_cast<std::uint32_t>(layout.pageCount - 1);
    index.m_pages.assign(layout.pageCount, {});
    index.m_numbers.reserve(layout.numberCount);
    std::vector<Entry> others;
    others.reserve(m_entries.size() - layout.pagedEntries);
    for (std::size_t i = 0; i < m_regions.size(); ++i) {
        const Region& region = m_regions[i];
        const std::size_t page = pageOf(region, layout);
        if (layout.pagedEntries != 0 && m_owners[page] == i) {
            enterPage(index, index.m_pages[page], region);
        } else {
            const auto entries = m_entries.subspan(region.firstEntry, region.entryCount);
            others.insert(others.end(), entries.begin(), entries.end());
        }
    }
    if (!others.empty()) index.m_others.emplace_back(others);
}

// As many ids as possible in pages, within the memory that all of them would take in a hash table.
StyleIdPager::Layout StyleIdPager::bestLayout() {
    Layout best;
    findRegions(kLowestPageBits);
    for (std::uint32_t pageBits = kLowestPageBits; pageBits <= kHighestPageBits; ++pageBits) {
        mergeRegions(pageBits);
        improve(best, pageBits);
    }
    return best;
}

void StyleIdPager::improve(Layout& best, std::uint32_t pageBits) {
    const std::size_t limit = PerfectIdIndex::bytesFor(m_entries.size());
    Layout layout;
    layout.pageBits = pageBits;
    layout.pageCount = std::max<std::size_t>(std::bit_ceil(m_regions.size()) / 2, 1);
    // More pages separate regions that would have to share one.
    for (; layout.pageCount * sizeof(StyleIdIndex::Page) < limit; layout.pageCount *= 2) {
        measure(layout);
        const bool isBetter = layout.pagedEntries != best.pagedEntries ? layout.pagedEntries > best.pagedEntries
                                                                       : layout.bytes < best.bytes;
        if (layout.bytes <= limit && isBetter) best = layout;
        if (layout.pagedEntries == m_entries.size()) return;
    }
}

void StyleIdPager::findRegions(std::uint32_t pageBits) {
    m_regions.clear();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const auto [id, number] = m_entries[i];
        if (m_regions.empty() || (m_regions.back().lastId ^ id) >> pageBits != 0) {
            m_regions.push_back({id, id, i, 0, true});
        }
        Region& region = m_regions.back();
        region.lastId = id;
        ++region.entryCount;
        region.fitsPage = region.fitsPage && number <= std::numeric_limits<std::uint8_t>::max();
    }
}

// Merges the regions that were found into larger ones.
void StyleIdPager::mergeRegions(std::uint32_t pageBits) {
    std::size_t count = 0;
    for (const Region& region : m_regions) {
        if (count == 0 || (m_regions[count - 1].lastId ^ region.firstId) >> pageBits != 0) {
            m_regions[count++] = region;
            continue;
        }
        Region& merged = m_regions[count - 1];
        merged.lastId = region.lastId;
        merged.entryCount += region.entryCount;
        merged.fitsPage = merged.fitsPage && region.fitsPage;
    }
    m_regions.erase(m_regions.begin() + static_cast<std::ptrdiff_t>(count), m_regions.end());
}

// Of the regions that share a page the fullest gets it.
void StyleIdPager::chooseOwners(const Layout& layout) {
    m_owners.assign(layout.pageCount, kNoRegion);
    for (std::size_t i = 0; i < m_regions.size(); ++i) {
        if (!m_regions[i].fitsPage) continue;
        std::size_t& owner = m_owners[pageOf(m_regions[i], layout)];
        if (owner == kNoRegion || m_regions[owner].entryCount < m_regions[i].entryCount) owner = i;
    }
}

void StyleIdPager::measure(Layout& layout) {
    chooseOwners(layout);
    layout.pagedEntries = 0;
    layout.numberCount = 0;
    for (const std::size_t owner : m_owners) {
        if (owner == kNoRegion) continue;
        layout.pagedEntries += m_regions[owner].entryCount;
        layout.numberCount += m_regions[owner].idSpan();
    }
    layout.bytes = layout.pageCount * sizeof(StyleIdIndex::Page) + layout.numberCount +
                   hashedBytes(m_entries.size() - layout.pagedEntries);
}

void StyleIdPager::enterPage(StyleIdIndex& index, StyleIdIndex::Page& page, const Region& region) const {
    page = {region.firstId, static_cast<std::uint32_t>(region.idSpan()),
            static_cast<std::uint32_t>(index.m_numbers.size())};
    index.m_numbers.resize(index.m_numbers.size() + page.size);
    for (const auto& [id, number] : m_entries.subspan(region.firstEntry, region.entryCount)) {
        index.m_numbers[page.start + (id - page.firstId)] = static_cast<std::uint8_t>(number);
    }
}

StyleIdIndex::StyleIdIndex(std::vector<Entry> entries) {
    sortById(entries);
    StyleIdPager(entries).fill(*this);
}

}  // namespace _orvik_framework
