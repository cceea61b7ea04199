#include "support/DefaultMapping.h"

#include <fmt/format.h>

#include <vector>

#include "CustomConfig.h"

namespace customstyle_tool {

std::string defaultMapping() {
    const _orvik_framework::CustomConfig catalogue;
    std::vector<std::string> members;
    for (int type = 0; type < _orvik_framework::EMAPCUSTOMSTYLE_ALL; ++type) {
        members.push_back(fmt::format("\"{}\":[{}]", catalogue.GetFeatureTypeName(type), defaultStyleId(type)));
    }
    return fmt::format("{{{}}}", fmt::join(members, ","));
}

}  // namespace customstyle_tool
