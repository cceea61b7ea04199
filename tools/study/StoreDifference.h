// Where the answers of two stores differ.
#pragma once

#include <cstddef>
#include <map>
#include <optional>

#include "customstyle/CustomConfig.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// Which of the renderer's answers change between two stores.
struct Effect {
    LevelSet styles;           ///< levels at which the style of some style id changes
    LevelSet icons;            ///< levels at which an icon appears or disappears
    LevelSet land;             ///< levels at which the land's background changes
    LevelSet grid;             ///< levels at which the grid's background changes
    std::size_t styleIds = 0;  ///< how many style ids change in style or icon

    bool any() const { return styles.any() || icons.any() || land.any() || grid.any(); }
};

/// Style ids, each with the level classes to ask about.
using LevelsByStyleId = std::map<unsigned int, LevelSet>;

/// Adds to an effect how two answers to one question differ. Returns whether they do.
bool addDifference(Effect& effect, std::size_t levelClass, const Answer& left, const Answer& right);

/// Adds to an effect how the backgrounds differ.
void compareBackgrounds(Effect& effect, const _orvik_framework::CustomConfig& left,
                        const _orvik_framework::CustomConfig& right);

/// The questions about style ids that two stores may answer differently. A question about a style id reads nothing but
/// the records filed under it, and whether the keys of their types are registered.
/// @param level  look at the keys of this level alone
LevelsByStyleId openQuestions(const _orvik_framework::CustomConfig& left, const _orvik_framework::CustomConfig& right,
                              std::optional<int> level = {});

/// Whether two stores answer these questions alike, and those about the backgrounds and about a style id that no
/// mapping lists.
bool isAnsweredAlike(const _orvik_framework::CustomConfig& left, const _orvik_framework::CustomConfig& right,
                     const LevelsByStyleId& questions);

/// Compares every answer of two stores that were loaded with the same mapping: all style ids and one that the mapping
/// does not list, all 19 level classes, all four questions. The global switch has to be on.
///
/// Style ids whose records agree under every key are not asked for: a question about a style id reads nothing but the
/// records filed under it, and whether the keys of their types are registered.
Effect differenceBetween(const _orvik_framework::CustomConfig& left, const _orvik_framework::CustomConfig& right);

/// The same without that short cut.
Effect fullDifferenceBetween(const _orvik_framework::CustomConfig& left, const _orvik_framework::CustomConfig& right);

}  // namespace customstyle_tool
