// Files, memory, log and JSON nodes that note what is asked of them and in which order. A program that compiles
// TracedHost.cpp has no other files and no other engine heap.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace customstyle_test {

/// One at a time.
class TracedHost {
public:
    TracedHost();
    ~TracedHost();
    TracedHost(const TracedHost&) = delete;
    TracedHost& operator=(const TracedHost&) = delete;

    void provide(const std::string& path, const std::string& content);

    /// Allocating a buffer of this size fails.
    void refuseBuffer(std::size_t size);

    /// What was asked for, oldest first: "open PATH in mode MODE", "allocate SIZE", "read SIZE into zeros",
    /// "release buffer", "release null", "free tree", "close", "destroy file", "log LINE". Records' memory is left out.
    std::vector<std::string> steps() const;
};

}  // namespace customstyle_test
