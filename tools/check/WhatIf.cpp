#include "tools/check/WhatIf.h"

#include <algorithm>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "tools/replay/SingleRules.h"
#include "tools/support/DefaultMapping.h"
#include "vi/vos/VLog.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_vi::CVLog;

std::string typedRule(std::string_view featureType, std::string_view elementPath, std::string_view styler) {
    static constexpr std::pair<std::string_view, std::string_view> kValues[] = {
        {"color", "#3366cc"}, {"visibility", "off"}, {"weight", "3"}, {"fontsize", "12"}};
    const auto* const value = std::ranges::find(kValues, styler, &std::pair<std::string_view, std::string_view>::first);
    nlohmann::json rule{{"featureType", featureType}, {"elementType", elementPath}};
    rule["stylers"][std::string(styler)] = value->second;
    return rule.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

bool doesSomething(const ReplayStep& step) {
    return !step.touches.empty() || step.gridColor || step.hidesEveryIcon;
}

bool leavesCustomised(const ReplayStep& step) {
    return std::ranges::all_of(step.touches, [](const RecordTouch& touch) { return touch.after.m_custom != 0; });
}

}  // namespace

const std::string& oneIdPerType() {
    static const std::string mapping = defaultMapping();
    return mapping;
}

AloneOutcome outcomeAlone(const std::string& ruleText) {
    const auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(componentTree(oneIdPerType()).get());
    std::vector<std::string> log;
    CVLog::SetSink([&log](_orvik_vi::ELOGPRIORITY, const std::string& line) { log.push_back(line); });
    config->ParseCustomConfig(componentTree("[" + ruleText + "]").get());
    CVLog::SetSink({});
    return {StoreImage(*config), std::move(log)};
}

std::vector<ReplayStep> stepsOf(const std::string& ruleText) {
    const SourceFile file("rule", "[" + ruleText + "]");
    const auto parsed = parseJson(file.text());
    if (!std::holds_alternative<JsonDocument>(parsed)) return {};
    return TracedReplay(oneIdPerType(), StyleSource(file, std::get<JsonDocument>(parsed))).steps();
}

bool acceptsStyler(std::string_view featureType, std::string_view elementPath, std::string_view styler) {
    return std::ranges::any_of(stepsOf(typedRule(featureType, elementPath, styler)), [](const ReplayStep& step) {
        return step.log.empty() && doesSomething(step) && leavesCustomised(step);
    });
}

const std::vector<std::string>& elementsTaking(const std::string& featureType, const std::string& styler) {
    static std::map<std::pair<std::string, std::string>, std::vector<std::string>> known;
    const auto [entry, isNew] = known.try_emplace({featureType, styler});
    if (isNew) {
        std::ranges::copy_if(usualElements(), std::back_inserter(entry->second),
                             [&](const std::string& element) { return acceptsStyler(featureType, element, styler); });
    }
    return entry->second;
}

const std::vector<std::string>& usualElements() {
    static const std::vector<std::string> elements{
        "all",    "geometry",         "geometry.fill",      "geometry.stroke", "geometry.topsurface",
        "labels", "labels.text.fill", "labels.text.stroke", "labels.icon"};
    return elements;
}

}  // namespace customstyle_tool
