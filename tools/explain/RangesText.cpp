#include "tools/explain/RangesText.h"

#include <fmt/format.h>

#include <vector>

namespace customstyle_tool {

std::string idsText(std::span<const unsigned int> styleIds) {
    std::vector<std::string> parts;
    for (std::size_t first = 0; first < styleIds.size();) {
        std::size_t last = first;
        while (last + 1 < styleIds.size() && styleIds[last + 1] == styleIds[last] + 1) ++last;
        parts.push_back(first == last ? fmt::format("{}", styleIds[first])
                                      : fmt::format("{}-{}", styleIds[first], styleIds[last]));
        first = last + 1;
    }
    return fmt::format("{}", fmt::join(parts, ", "));
}

}  // namespace customstyle_tool
