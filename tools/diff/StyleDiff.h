// Which of the renderer's answers change between two styles, and by which rules.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// What an answer is about, in the order of output.
enum class Subject : std::uint8_t {
    FeatureType,  ///< which type answers
    Field,        ///< of the record
    Icon,         ///< whether the icon is hidden
    Background,   ///< of the land or the grid
};

/// One thing that the renderer can learn.
struct Question {
    Subject subject;
    std::size_t field;  ///< index in styleFields() for a Field, else 0
    auto operator<=>(const Question&) const = default;
};

/// A styler: its rule, counted from 1, and where it is written.
struct StylerPlace {
    std::size_t rule;
    std::string file;
    std::size_t line;
    std::size_t column;
    auto operator<=>(const StylerPlace&) const = default;
};

/// What an answer changes from and to, and by which stylers.
struct Change {
    Question question;
    std::optional<std::uint64_t> before;  ///< none where it is not customised
    std::optional<std::uint64_t> after;
    std::optional<StylerPlace> beforeBy;  ///< the styler that made the value, where one did
    std::optional<StylerPlace> afterBy;
    auto operator<=>(const Change&) const = default;
};

/// The feature type of a change that holds for every style id of the mapping, and of one for those that it does not
/// list.
inline constexpr int kEveryType = -1;
inline constexpr int kNoType = _orvik_framework::kFeatureTypeCount;

/// A change with all places where it shows.
struct JoinedChange {
    int featureType;  ///< the one that answers in the first style, else in the second, else the lowest that is mapped
    Change change;
    LevelSet levels;
    std::vector<unsigned int> styleIds;  ///< ascending; empty for backgrounds and kNoType
    bool wholeType;                      ///< whether these are all style ids of the feature type
};

/// One changed answer; the values speak for a single style id and level.
struct ChangedAnswer {
    Question question;
    unsigned int styleId;  ///< 0 for backgrounds
    int featureType;
    std::size_t levelClass;
    std::optional<std::uint64_t> before;
    std::optional<std::uint64_t> after;
};

/// Compares every answer of two styles with the same mapping: all style ids and one that the mapping does not list, all
/// 19 level classes, all four questions. Two changes count only where they say something new: the feature type where
/// both styles customise the style id or nothing else of the answer differs, and the icon flag inside the record where
/// the icon itself stays as it is.
///
/// Over the mapping of every map, the style ids under one type are compared, and those under two only if nothing
/// changes for the former. No change at all means that the styles are equal on every map.
std::vector<ChangedAnswer> changedAnswers(const StyleStudy& before, const StyleStudy& after);

/// The same with the rules, joined over levels and style ids, ordered by feature type and question.
std::vector<JoinedChange> differenceOf(const StyleStudy& before, const StyleStudy& after);

}  // namespace customstyle_tool
