#include "tools/vocabulary/Levels.h"

#include <fmt/format.h>

#include <vector>

namespace customstyle_tool {
namespace {

std::string rangeText(std::size_t first, std::size_t last) {
    return first == last ? fmt::format("{}", levelOfClass(first))
                         : fmt::format("{}-{}", levelOfClass(first), levelOfClass(last));
}

}  // namespace

int levelOfClass(std::size_t levelClass) {
    return levelClass == kOtherLevels ? 0 : kLowestLevel + static_cast<int>(levelClass);
}

std::size_t classOfLevel(int level) {
    if (level < kLowestLevel || level > kHighestLevel) return kOtherLevels;
    return static_cast<std::size_t>(level - kLowestLevel);
}

std::string levelsText(const LevelSet& levels) {
    if (levels.all()) return "all levels";
    std::vector<std::string> parts;
    for (std::size_t first = 0; first < kOtherLevels; ++first) {
        if (!levels[first]) continue;
        std::size_t last = first;
        while (last + 1 < kOtherLevels && levels[last + 1]) ++last;
        parts.push_back(rangeText(first, last));
        first = last;
    }
    if (levels[kOtherLevels]) parts.emplace_back("other");
    return fmt::format("{}", fmt::join(parts, ", "));
}

std::string levelsPhrase(const LevelSet& levels) {
    if (levels.all()) return "all levels";
    const bool isOne = levels.count() == 1 && !levels[kOtherLevels];
    return fmt::format("{} {}", isOne ? "level" : "levels", levelsText(levels));
}

}  // namespace customstyle_tool
