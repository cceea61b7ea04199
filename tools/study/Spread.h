// How a study's work is spread, so that it runs where there are no threads.
#pragma once

#include <cstddef>
#include <functional>

namespace customstyle_tool {

/// Work that consists of independent items.
/// @param lane  which of the spread's lanes does it; no two items run in one lane at the same time
using WorkItem = std::function<void(std::size_t item, std::size_t lane)>;

/// How items are processed: one after the other, or on several processors.
struct Spread {
    std::size_t lanes = 1;
    /// Calls the work once for each item, in any order and in any lane; lane 0 is the calling thread.
    std::function<void(std::size_t items, const WorkItem& work)> run = [](std::size_t items, const WorkItem& work) {
        for (std::size_t item = 0; item < items; ++item) work(item, 0);
    };
};

}  // namespace customstyle_tool
