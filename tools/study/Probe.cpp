#include "tools/study/Probe.h"

#include <algorithm>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "tools/study/ComponentGuard.h"
#include "tools/study/Mapping.h"
#include "tools/study/SingleRules.h"
#include "tools/study/StyleSource.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

bool doesSomething(const ReplayStep& step) {
    return !step.touches.empty() || step.gridColor || step.hidesEveryIcon;
}

bool leavesCustomised(const ReplayStep& step) {
    return std::ranges::all_of(step.touches, [](const RecordTouch& touch) { return touch.after.m_custom != 0; });
}

}  // namespace

AloneOutcome outcomeAlone(const std::string& ruleText) {
    std::vector<std::string> log;
    const LogRecording recording(log);
    const auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(Mapping::standard().tracedTree());
    config->ParseCustomConfig(componentTree("[" + ruleText + "]").get());
    return {StoreImage(*config), log};
}

std::vector<ReplayStep> stepsOfRule(const std::string& ruleText) {
    const SourceFile file("rule", "[" + ruleText + "]");
    const auto parsed = parseJson(file.text());
    if (!std::holds_alternative<JsonDocument>(parsed)) return {};
    const StyleSource source(file, std::get<JsonDocument>(parsed));
    return TracedReplay(Mapping::standard().tracedTree(), singleRules(source)).steps();
}

std::vector<ReplayStep> stepsOfRule(std::string_view featureType, std::string_view elementPath, std::string_view styler,
                                    std::string_view value) {
    nlohmann::json rule{{"featureType", featureType}, {"elementType", elementPath}};
    rule["stylers"][std::string(styler)] = value;
    return stepsOfRule(rule.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

bool acceptsStyler(std::string_view featureType, std::string_view elementPath, std::string_view styler) {
    const auto steps = stepsOfRule(featureType, elementPath, styler, stylerNamed(styler)->example);
    return std::ranges::any_of(steps, [](const ReplayStep& step) {
        return step.log.empty() && doesSomething(step) && leavesCustomised(step);
    });
}

const std::vector<std::string>& elementsTaking(const std::string& featureType, const std::string& styler) {
    static std::map<std::pair<std::string, std::string>, std::vector<std::string>> known;
    const auto [entry, isNew] = known.try_emplace({featureType, styler});
    if (isNew) {
        for (const Element& element : elements()) {
            if (acceptsStyler(featureType, element.path, styler)) entry->second.emplace_back(element.path);
        }
    }
    return entry->second;
}

}  // namespace customstyle_tool
