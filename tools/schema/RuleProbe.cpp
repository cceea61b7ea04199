#include "tools/schema/RuleProbe.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "tools/study/DefaultMapping.h"
#include "tools/study/StoreDifference.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

std::string ruleText(std::string_view featureType, std::string_view elementType, const StylerValue& styler) {
    return nlohmann::json::array({{{"featureType", featureType},
                                   {"elementType", elementType},
                                   {"stylers", {{styler.name, styler.value}}}}})
        .dump();
}

}  // namespace

RuleProbe::RuleProbe() : m_mapping(componentTree(defaultMapping())) {
    m_empty.ParseMappingConfig(m_mapping.get());
}

bool RuleProbe::works(std::string_view featureType, std::string_view elementType, const StylerValue& styler) {
    CustomConfig store;
    store.ParseMappingConfig(m_mapping.get());
    std::vector<std::string> complaints;
    const LogRecording recording(complaints);
    store.ParseCustomConfig(componentTree(ruleText(featureType, elementType, styler)).get());
    if (!complaints.empty()) return false;
    const Effect effect = differenceBetween(m_empty, store);
    const bool hidesByOn = styler.value == "on" && effect.icons.any();
    return effect.any() && !hidesByOn;
}

}  // namespace customstyle_tool
