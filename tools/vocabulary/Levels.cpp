#include "tools/vocabulary/Levels.h"

#include <fmt/format.h>

#include <vector>

#include "tools/support/PlainText.h"

namespace customstyle_tool {

int levelOfClass(std::size_t levelClass) {
    return levelClass == kOtherLevels ? 0 : kLowestLevel + static_cast<int>(levelClass);
}

std::size_t classOfLevel(int level) {
    if (level < kLowestLevel || level > kHighestLevel) return kOtherLevels;
    return static_cast<std::size_t>(level - kLowestLevel);
}

std::string levelsText(const LevelSet& levels) {
    if (levels.all()) return "all levels";
    std::vector<unsigned int> named;
    for (std::size_t levelClass = 0; levelClass < kOtherLevels; ++levelClass) {
        if (levels[levelClass]) named.push_back(static_cast<unsigned int>(levelOfClass(levelClass)));
    }
    const char* const others = named.empty() ? "other" : ", other";
    return rangesText(named) + (levels[kOtherLevels] ? others : "");
}

std::string levelsPhrase(const LevelSet& levels) {
    if (levels.all()) return "all levels";
    const bool isOne = levels.count() == 1 && !levels[kOtherLevels];
    return fmt::format("{} {}", isOne ? "level" : "levels", levelsText(levels));
}

}  // namespace customstyle_tool
