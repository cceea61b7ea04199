#include "tools/study/Parts.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "customstyle/CustomConfig.h"
#include "tools/study/Groups.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::kFeatureTypeCount;

// What steps can share: the records of a feature type, the colour of the grid, the icons of the whole map.
constexpr std::size_t kGridColor = kFeatureTypeCount;
constexpr std::size_t kEveryIcon = kFeatureTypeCount + 1;
constexpr std::size_t kSharedCount = kFeatureTypeCount + 2;

std::set<std::size_t> sharedBy(const ReplayStep& step) {
    std::set<std::size_t> shared;
    for (const std::string& key : step.keys) shared.insert(static_cast<std::size_t>(parsedKey(key).featureType));
    if (step.gridColor) shared.insert(kGridColor);
    if (step.hidesEveryIcon) shared.insert(kEveryIcon);
    return shared;
}

}  // namespace

std::vector<std::vector<std::size_t>> independentParts(const std::vector<ReplayStep>& steps) {
    Groups groups(kSharedCount);
    std::map<std::size_t, std::size_t> sharedByRule;
    const bool isFull = std::ranges::any_of(steps, [](const ReplayStep& step) { return !step.refused.empty(); });
    std::optional<std::size_t> first;
    for (const ReplayStep& step : steps) {
        for (const std::size_t shared : sharedBy(step)) {
            groups.join(shared, sharedByRule.try_emplace(step.rule, shared).first->second);
            if (isFull) groups.join(shared, *(first = first.value_or(shared)));
        }
    }
    std::map<std::size_t, std::vector<std::size_t>> parts;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto shared = sharedByRule.find(steps[i].rule);
        if (shared != sharedByRule.end()) parts[groups.groupOf(shared->second)].push_back(i);
    }
    std::vector<std::vector<std::size_t>> list;
    for (auto& [group, part] : parts) list.push_back(std::move(part));
    std::ranges::stable_sort(list, std::ranges::greater(), &std::vector<std::size_t>::size);
    return list;
}

}  // namespace customstyle_tool
