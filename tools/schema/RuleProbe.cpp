#include "tools/schema/RuleProbe.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "tools/replay/StoreDifference.h"
#include "tools/support/DefaultMapping.h"
#include "vi/vos/VLog.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_vi::CVLog;

std::string ruleText(std::string_view featureType, std::string_view elementType, const StylerValue& styler) {
    return nlohmann::json::array({{{"featureType", featureType},
                                   {"elementType", elementType},
                                   {"stylers", {{styler.name, styler.value}}}}})
        .dump();
}

}  // namespace

RuleProbe::RuleProbe()
    : m_mapping(componentTree(defaultMapping())), m_wasEnabled(std::exchange(g_zrsdk_custom_style_enable, 1)) {
    CVLog::SetSink([this](_orvik_vi::ELOGPRIORITY, const std::string&) { m_hasComplained = true; });
    m_empty.ParseMappingConfig(m_mapping.get());
}

RuleProbe::~RuleProbe() {
    CVLog::SetSink({});
    g_zrsdk_custom_style_enable = m_wasEnabled;
}

bool RuleProbe::works(std::string_view featureType, std::string_view elementType, const StylerValue& styler) {
    CustomConfig store;
    store.ParseMappingConfig(m_mapping.get());
    m_hasComplained = false;
    store.ParseCustomConfig(componentTree(ruleText(featureType, elementType, styler)).get());
    if (m_hasComplained) return false;
    const Effect effect = differenceBetween(m_empty, store);
    const bool hidesByOn = styler.value == "on" && effect.icons.any();
    return effect.any() && !hidesByOn;
}

}  // namespace customstyle_tool
