#include "explain/NearestName.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace customstyle_tool {
namespace {

std::size_t changesBetween(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::optional<std::string> nearestName(std::string_view written, std::span<const std::string> names) {
    const auto changes = [&](const std::string& name) { return changesBetween(written, name); };
    const auto nearest = std::ranges::min_element(names, {}, changes);
    if (nearest == names.end() || changes(*nearest) > std::max<std::size_t>(1, written.size() / 3)) return {};
    return *nearest;
}

std::string didYouMean(const std::optional<std::string>& name) {
    return name ? fmt::format("; did you mean \"{}\"?", *name) : "";
}

}  // namespace customstyle_tool
