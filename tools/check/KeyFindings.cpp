// The store's capacity.
#include <fmt/format.h>

#include <set>
#include <string>

#include "tools/check/StyleFindings.h"
#include "tools/study/StyleKey.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::kStyleSlotCount;

constexpr std::size_t kNearlyFull = static_cast<std::size_t>(kStyleSlotCount) * 4 / 5;

// "water" at level 12
std::string keyText(const std::string& key) {
    const auto [featureType, level] = parsedKey(key);
    const std::string type = catalogue().GetFeatureTypeName(featureType);
    return level ? fmt::format("\"{}\" at level {}", type, *level) : fmt::format("\"{}\" at all levels", type);
}

// The step that needs the first key beyond `limit`, and all keys that the file needs.
struct Need {
    const ReplayStep* beyond = nullptr;
    std::set<std::string> keys;
};

Need needOf(const StyleFindings& found, std::size_t limit) {
    Need need;
    for (const ReplayStep& step : found.steps()) {
        need.keys.insert(step.keys.begin(), step.keys.end());
        if (need.beyond == nullptr && need.keys.size() > limit) need.beyond = &step;
    }
    return need;
}

// Reports each styler for which no slot was left.
void addRefused(StyleFindings& found, std::size_t keys) {
    for (const ReplayStep& step : found.steps()) {
        if (step.refused.empty()) continue;
        found.add(Code::SlotsExceeded, step,
                  fmt::format("dropped: the file needs {} style keys, {} more than the store holds, and none is left "
                              "for {}",
                              keys, keys - kStyleSlotCount, keyText(step.refused.front())));
    }
}

}  // namespace

std::vector<Finding> findKeys(const StyleStudy& study) {
    StyleFindings found(study);
    const Need need = needOf(found, kNearlyFull);
    if (need.keys.size() > kStyleSlotCount) {
        addRefused(found, need.keys.size());
    } else if (need.beyond != nullptr) {
        found.add(Code::SlotsNearlyFull, *need.beyond,
                  fmt::format("the file needs {} of the {} style keys that the store holds", need.keys.size(),
                              kStyleSlotCount));
    }
    return found.take();
}

}  // namespace customstyle_tool
