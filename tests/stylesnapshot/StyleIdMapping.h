// Gives feature types their style ids, as a mapping file does.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "customstyle/FeatureTypeTable.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {

/// Style ids by feature type. The store takes no 0 at the begin of a type's ids.
using IdsOfTypes = std::array<std::vector<int>, std::size_t{_orvik_framework::kFeatureTypesEnd}>;

inline void mapStyleIds(CustomConfig& config, const IdsOfTypes& idsOfTypes) {
    std::string mapping;
    for (std::size_t type = 0; type < idsOfTypes.size(); ++type) {
        mapping += (type == 0 ? "{\"" : ",\"") + config.GetFeatureTypeName(static_cast<int>(type)) + "\":[";
        for (std::size_t i = 0; i < idsOfTypes[type].size(); ++i) {
            mapping += (i == 0 ? "" : ",") + std::to_string(idsOfTypes[type][i]);
        }
        mapping += "]";
    }
    config.ParseMappingConfig(parsed(mapping + "}").get());
}

/// `count` ids, starting with `first`.
inline std::vector<int> idsFrom(int first, int count, int stride = 1) {
    std::vector<int> ids;
    for (int i = 0; i < count; ++i) ids.push_back(first + i * stride);
    return ids;
}

}  // namespace customstyle_test
