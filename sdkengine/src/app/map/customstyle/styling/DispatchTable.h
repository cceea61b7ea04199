// The dispatchers' tables: what a rule reaches, by element type and by what the rule addresses.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "customstyle/CustomConfig.h"
#include "customstyle/styling/ElementWord.h"
#include "customstyle/styling/ShortList.h"

namespace _orvik_framework {

/// What a rule addresses: the columns of the tables.
enum class Audience {
    Land,      ///< "land"
    Geometry,  ///< a type 1 to 70 by an element path without "labels" and "all"
    Labels,    ///< a type 1 to 70 by an element path with "labels" or "all"
    Grid,      ///< "grid"
    Wildcard,  ///< "all"
};
inline constexpr std::size_t kAudienceCount = 5;

/// What a rule does, in one word.
enum class Step {
    GeometryOfType,
    GeometryOfCompanion,
    TextOfType,
    TextOfCompanion,       ///< the companion label type, the type itself where it has none
    TextOfOtherCompanion,  ///< nothing where the type has no companion
    IconOfType,
    IconOfCompanion,
    GridColor,
    EveryIcon,
};
using Steps = ShortList<Step, 6>;

/// A row of a dispatcher's table: the element type, and the steps in order for each audience.
struct DispatchRow {
    ElementWord element;
    Steps steps[kAudienceCount];
};

inline constexpr Steps kNothing;
inline constexpr Steps kOwnGeometry{Step::GeometryOfType};
inline constexpr Steps kLabelTexts{Step::TextOfType, Step::TextOfOtherCompanion};

inline Audience audienceOf(int featureType, int includesLabels) {
    switch (featureType) {
        case EMAPCUSTOMSTYLE_LAND:
            return Audience::Land;
        case EMAPCUSTOMSTYLE_GRID:
            return Audience::Grid;
        case EMAPCUSTOMSTYLE_ALL:
            return Audience::Wildcard;
        default:
            return includesLabels != 0 ? Audience::Labels : Audience::Geometry;
    }
}

/// The row of an element type, or null where the dispatcher does not know it.
inline const DispatchRow* findRow(std::span<const DispatchRow> table, const CVString& elementType) {
    for (const DispatchRow& row : table) {
        if (isWord(elementType, row.element)) return &row;
    }
    return nullptr;
}

/// The kind of records that a step changes.
enum class Target { Geometry, Text, Icon, GridColor, EveryIcon };

/// A step as a kind of records and the feature type that holds them, -1 for none.
struct Reach {
    Target target;
    int featureType;
};

inline Reach reachOf(Step step, int featureType, int companion) {
    switch (step) {
        case Step::GeometryOfType:
            return {Target::Geometry, featureType};
        case Step::GeometryOfCompanion:
            return {Target::Geometry, companion};
        case Step::TextOfType:
            return {Target::Text, featureType};
        case Step::TextOfCompanion:
            return {Target::Text, companion};
        case Step::TextOfOtherCompanion:
            return {Target::Text, companion == featureType ? -1 : companion};
        case Step::IconOfType:
            return {Target::Icon, featureType};
        case Step::IconOfCompanion:
            return {Target::Icon, companion};
        case Step::GridColor:
            return {Target::GridColor, featureType};
        case Step::EveryIcon:
            return {Target::EveryIcon, featureType};
    }
    return {};
}

inline bool namesCompanion(const Steps& steps) {
    return std::ranges::any_of(steps, [](Step step) {
        return step == Step::GeometryOfCompanion || step == Step::TextOfCompanion ||
               step == Step::TextOfOtherCompanion || step == Step::IconOfCompanion;
    });
}

/// Runs a row's steps: calls `apply(Target, int featureType)` for each, in order. An id outside the catalogue counts as
/// one of a type 1 to 70, without a companion; its records are refused where they would be registered.
template <typename Apply>
void runSteps(const CustomConfig& config, const DispatchRow& row, int featureType, int includesLabels, Apply apply) {
    const Steps& steps = row.steps[static_cast<std::size_t>(audienceOf(featureType, includesLabels))];
    const int companion = namesCompanion(steps) ? config.UpdateFeatureTypeId(featureType) : -1;
    for (const Step step : steps) {
        const Reach reach = reachOf(step, featureType, companion);
        if (reach.featureType != -1) apply(reach.target, reach.featureType);
    }
}

}  // namespace _orvik_framework
