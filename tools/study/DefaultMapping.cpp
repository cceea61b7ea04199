#include "tools/study/DefaultMapping.h"

#include <vector>

#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {

std::string defaultMapping() {
    return mappingText([](int featureType) { return std::vector{static_cast<int>(defaultStyleId(featureType))}; });
}

}  // namespace customstyle_tool
