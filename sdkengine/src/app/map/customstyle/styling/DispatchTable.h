// The dispatchers' tables: what a rule reaches, by element type and by whom the rule addresses.
#pragma once

#include <cstddef>
#include <span>

#include "CustomConfig.h"
#include "model/FeatureTypeTable.h"
#include "styling/ShortList.h"

namespace _orvik_framework {

/// Whom a rule addresses: the columns of the tables.
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
    const char* element;
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
        if (elementType.Compare(row.element) == 0) return &row;
    }
    return nullptr;
}

/// The kind of records that a step changes.
enum class Target { Geometry, Text, Icon, GridColor, EveryIcon };

/// Runs a row's steps: calls `apply(Target, int featureType)` for each, in order. An id outside the catalogue has no
/// records and no companion, so nothing happens for it.
template <typename Apply>
void runSteps(const CustomConfig& config, const DispatchRow& row, int featureType, int includesLabels, Apply apply) {
    if (!isFeatureType(featureType)) return;
    const int companion = config.UpdateFeatureTypeId(featureType);
    for (const Step step : row.steps[static_cast<std::size_t>(audienceOf(featureType, includesLabels))]) {
        switch (step) {
            case Step::GeometryOfType:
                apply(Target::Geometry, featureType);
                break;
            case Step::GeometryOfCompanion:
                apply(Target::Geometry, companion);
                break;
            case Step::TextOfType:
                apply(Target::Text, featureType);
                break;
            case Step::TextOfCompanion:
                apply(Target::Text, companion);
                break;
            case Step::TextOfOtherCompanion:
                if (companion != featureType) apply(Target::Text, companion);
                break;
            case Step::IconOfType:
                apply(Target::Icon, featureType);
                break;
            case Step::IconOfCompanion:
                apply(Target::Icon, companion);
                break;
            case Step::GridColor:
                apply(Target::GridColor, featureType);
                break;
            case Step::EveryIcon:
                apply(Target::EveryIcon, featureType);
                break;
        }
    }
}

}  // namespace _orvik_framework
