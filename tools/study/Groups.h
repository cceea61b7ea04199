// Groups of related things.
#pragma once

#include <cstddef>
#include <vector>

namespace customstyle_tool {

/// Things numbered from 0, each a group of its own until it is joined with others.
class Groups {
public:
    explicit Groups(std::size_t count);

    void join(std::size_t left, std::size_t right);

    /// The lowest number in the group of a thing.
    std::size_t groupOf(std::size_t thing) const;

private:
    std::vector<std::size_t> m_lower;  // another thing of the group; the lowest itself
};

}  // namespace customstyle_tool
