// What one input does to the engine's heap and log.
#pragma once

#include <cstddef>
#include <string>

namespace customstyle_fuzz {

/// Listens to the log and counts the blocks of the engine's heap while it lives. What the input left is released in the
/// end, so that a long run does not fill the memory.
class LoadAccounts {
public:
    LoadAccounts();
    ~LoadAccounts();
    LoadAccounts(const LoadAccounts&) = delete;
    LoadAccounts& operator=(const LoadAccounts&) = delete;

    /// Blocks that are not given back, of the files whose name ends so.
    std::size_t leftBy(const std::string& origin) const;

    /// Lines of the log that end so.
    std::size_t linesEnding(const std::string& tail) const;
};

}  // namespace customstyle_fuzz
