#include "tools/vocabulary/FeatureTypes.h"

#include <fmt/format.h>

namespace customstyle_tool {
namespace {

std::vector<std::string> namesOfAll() {
    std::vector<std::string> names;
    for (int type = 0; type < _orvik_framework::kFeatureTypeCount; ++type) {
        names.push_back(catalogue().GetFeatureTypeName(type));
    }
    return names;
}

}  // namespace

const _orvik_framework::CustomConfig& catalogue() {
    static const _orvik_framework::CustomConfig config;
    return config;
}

std::span<const std::string> featureTypeNames() {
    static const std::vector<std::string> names = namesOfAll();
    return names;
}

std::span<const std::string> mappedTypeNames() {
    return featureTypeNames().first(_orvik_framework::EMAPCUSTOMSTYLE_ALL);
}

std::string mappingText(const std::function<std::vector<int>(int featureType)>& idsOf) {
    std::vector<std::string> members;
    for (const std::string& name : mappedTypeNames()) {
        const std::vector<int> ids = idsOf(static_cast<int>(members.size()));
        members.push_back(fmt::format("\"{}\":[{}]", name, fmt::join(ids, ",")));
    }
    return fmt::format("{{{}}}", fmt::join(members, ","));
}

}  // namespace customstyle_tool
