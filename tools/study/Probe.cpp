#include "tools/study/Probe.h"

#include <map>
#include <nlohmann/json.hpp>
#include <utility>

#include "tools/study/ComponentGuard.h"
#include "tools/study/Mapping.h"
#include "tools/study/SingleRules.h"
#include "tools/study/StoreDifference.h"
#include "tools/study/StoreImage.h"
#include "tools/vocabulary/Elements.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

std::unique_ptr<CustomConfig> emptyStore() {
    auto store = std::make_unique<CustomConfig>();
    store->ParseMappingConfig(Mapping::standard().tracedTree());
    return store;
}

// The store of a rule, and the same after hiding all icons and applying the rule again: only this reveals an icon that
// the rule shows.
std::pair<StoreImage, StoreImage> imagesOf(const std::string& ruleText, const AloneOutcome& outcome) {
    const ComponentGuard guard;
    StoreImage image(*outcome.store);
    for (const auto& [key, slot] : outcome.store->m_keyStyleMaps) {
        forEachSlotRecord(*slot, [](int, tagCustomStyle& record) { record.m_iconHidden = 1; });
    }
    outcome.store->ParseCustomConfig(listWith(ruleText).get());
    return {std::move(image), StoreImage(*outcome.store)};
}

}  // namespace

AloneOutcome outcomeAlone(const std::string& ruleText) {
    AloneOutcome outcome;
    const LogRecording recording(outcome.log);
    outcome.store = emptyStore();
    outcome.store->ParseCustomConfig(listWith(ruleText).get());
    return outcome;
}

bool doTheSame(const std::string& left, const std::string& right) {
    const AloneOutcome ofLeft = outcomeAlone(left);
    const AloneOutcome ofRight = outcomeAlone(right);
    return ofLeft.log == ofRight.log && imagesOf(left, ofLeft) == imagesOf(right, ofRight);
}

AloneOutcome outcomeAlone(std::string_view featureType, std::string_view elementPath, std::string_view styler,
                          std::string_view value) {
    nlohmann::json rule{{"featureType", featureType}, {"elementType", elementPath}};
    rule["stylers"][std::string(styler)] = value;
    return outcomeAlone(rule.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

bool worksAlone(std::string_view featureType, std::string_view elementPath, std::string_view styler,
                std::string_view value) {
    const AloneOutcome outcome = outcomeAlone(featureType, elementPath, styler, value);
    if (!outcome.log.empty()) return false;
    static const std::unique_ptr<const CustomConfig> empty = emptyStore();
    const Effect effect = differenceBetween(*empty, *outcome.store);
    const bool hidesByOn = value == "on" && effect.icons.any();
    return effect.any() && !hidesByOn;
}

bool acceptsStyler(std::string_view featureType, std::string_view elementPath, std::string_view styler) {
    return worksAlone(featureType, elementPath, styler, stylerNamed(styler)->example);
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
