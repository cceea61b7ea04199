// The ways through a dispatcher's table: each element type, for each audience, at all levels and at one.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace customstyle_test {

/// The columns of the expected outcomes.
enum Column {
    kLand,
    kGeometryWithCompanion,  ///< a path without "labels" and "all", to a type whose labels are another type
    kGeometryAlone,          ///< the same to a type that keeps its labels
    kLabelsWithCompanion,    ///< a path with "labels" or "all"
    kLabelsAlone,
    kGrid,
    kWildcard,
    kOutside,  ///< no feature type
    kColumnCount,
};

/// Whom a rule addresses.
struct Audience {
    Column column;
    int featureType;
    int companion;  ///< the type that holds the labels
    int includesLabels;
};

inline constexpr Audience kAudiences[] = {
    {kLand, 0, 0, 0},
    {kLand, 0, 0, 1},
    {kGeometryWithCompanion, 13, 28, 0},
    {kGeometryWithCompanion, 25, 26, 0},
    {kGeometryWithCompanion, 12, 68, 0},
    {kGeometryAlone, 1, 1, 0},
    {kGeometryAlone, 2, 2, 0},
    {kGeometryAlone, 8, 8, 0},
    {kGeometryAlone, 28, 28, 0},
    {kGeometryAlone, 53, 53, 0},
    {kGeometryAlone, 70, 70, 0},
    {kLabelsWithCompanion, 13, 28, 1},
    {kLabelsWithCompanion, 13, 28, 2},  // any mark but 0 counts
    {kLabelsWithCompanion, 13, 28, -1},
    {kLabelsWithCompanion, 25, 26, 1},
    {kLabelsWithCompanion, 12, 68, 1},
    {kLabelsAlone, 1, 1, 1},
    {kLabelsAlone, 2, 2, 1},
    {kLabelsAlone, 8, 8, 1},
    {kLabelsAlone, 28, 28, 1},
    {kLabelsAlone, 53, 53, 1},
    {kLabelsAlone, 70, 70, 1},
    {kGrid, 71, 71, 0},
    {kGrid, 71, 71, 1},
    {kWildcard, 72, 72, 0},
    {kWildcard, 72, 72, 1},
    {kOutside, -1, -1, 0},
    {kOutside, -1, -1, 1},
    {kOutside, 73, 73, 0},
    {kOutside, 73, 73, 1},
};

/// All levels or one.
struct Scope {
    int allLevels;
    int level;
    const char* keySuffix;
};
inline constexpr Scope kScopes[] = {{1, 0, ""}, {0, 15, ":15"}};

/// What is expected of one element type: for each column the changes, as changesIn tells them, with T for the feature
/// type and L for its companion; and the message, where there is one.
struct Outcome {
    const char* changes;
    const char* message = "";
};
struct ElementRow {
    const char* element;
    Outcome outcomes[kColumnCount];
};

/// The row of an element type that has the same outcome for everybody.
constexpr ElementRow everywhere(const char* element, Outcome outcome) {
    ElementRow row{element, {}};
    for (Outcome& each : row.outcomes) each = outcome;
    return row;
}

struct DispatchCase {
    const char* element;
    Outcome outcome;
    Audience audience;
    Scope scope;
};

/// Each row of a table for each audience and scope.
template <std::size_t RowCount>
std::vector<DispatchCase> dispatchCases(const ElementRow (&rows)[RowCount]) {
    std::vector<DispatchCase> cases;
    for (const ElementRow& row : rows) {
        for (const Audience& audience : kAudiences) {
            for (const Scope& scope : kScopes) {
                cases.push_back({row.element, row.outcomes[audience.column], audience, scope});
            }
        }
    }
    return cases;
}

/// The expected changes with the ids in place of T and L.
inline std::string expectedChanges(const DispatchCase& param) {
    std::string text;
    for (const char* c = param.outcome.changes; *c != '\0'; ++c) {
        if (*c == 'T') {
            text += std::to_string(param.audience.featureType);
        } else if (*c == 'L') {
            text += std::to_string(param.audience.companion);
        } else {
            text += *c;
        }
    }
    return text;
}

/// The expected log.
inline std::vector<std::string> expectedLog(const DispatchCase& param) {
    if (*param.outcome.message == '\0') return {};
    return {std::string("ZRX Custom Map: ") + param.outcome.message};
}

inline std::string dispatchCaseName(const DispatchCase& param) {
    std::string name = *param.element == '\0' ? "Nothing" : "Element_" + std::string(param.element);
    const int type = param.audience.featureType;
    name += type < 0 ? "_OnNoType" : "_OnType" + std::to_string(type);
    if (param.audience.includesLabels != 0) name += "_WithLabels";
    if (param.audience.includesLabels == 2) name += "MarkedByTwo";
    if (param.audience.includesLabels < 0) name += "MarkedByMinusOne";
    return name + (param.scope.allLevels != 0 ? "_AtAllLevels" : "_AtOneLevel");
}

inline void PrintTo(const DispatchCase& param, std::ostream* stream) {
    *stream << dispatchCaseName(param);
}

}  // namespace customstyle_test
