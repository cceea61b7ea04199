// Zoom levels as the tools count and name them.
#pragma once

#include <bitset>
#include <cstddef>
#include <string>

namespace customstyle_tool {

/// Rules can name the levels 4 to 21. All others behave alike and make up one further class.
inline constexpr int kLowestLevel = 4;
inline constexpr int kHighestLevel = 21;
inline constexpr std::size_t kLevelClassCount = 19;

/// Class 0 to 17 is level 4 to 21, class 18 is every other level.
inline constexpr std::size_t kOtherLevels = kLevelClassCount - 1;

/// A level of the class, for questions to the component.
int levelOfClass(std::size_t levelClass);

/// The class of a level.
std::size_t classOfLevel(int level);

using LevelSet = std::bitset<kLevelClassCount>;

/// Names a set of levels: "all levels", "4-9, 12, other".
std::string levelsText(const LevelSet& levels);

/// The same in a sentence: "all levels", "level 12", "levels 4-9, other".
std::string levelsPhrase(const LevelSet& levels);

}  // namespace customstyle_tool
