#include "tools/minify/EveryMap.h"

#include <algorithm>
#include <set>
#include <vector>

#include "tools/minify/Reach.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/Mapping.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {
namespace {

// For each level, the last type asked among those that hide icons. Any type that keeps an icon from being hidden is
// asked before it.
std::set<int> lastHidingTypes(const _orvik_framework::CustomConfig& store, const std::set<int>& types) {
    std::set<int> last;
    if (store.m_allIconsHidden != 0) return last;
    std::vector<int> order(types.begin(), types.end());
    std::ranges::stable_sort(order, {}, [](int type) { return catalogue().IsParentFeatureType(type); });
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const auto hides = [&](int type) {
            return store.IsCustomizedIconVisible(defaultStyleId(type), levelOfClass(levelClass)) != 0;
        };
        const auto found = std::find_if(order.rbegin(), order.rend(), hides);
        if (found != order.rend()) last.insert(*found);
    }
    return last;
}

}  // namespace

std::string mappingFor(const std::vector<MinimalRule>& rules) {
    const ComponentGuard guard;
    std::set<int> reached;
    for (const MinimalRule& rule : rules) {
        const std::vector<int>& types = typesReachedFrom(rule.featureType);
        reached.insert(types.begin(), types.end());
    }
    const std::set<int> hiding = lastHidingTypes(*storeOf(defaultMapping(), textOf(rules)), reached);
    return mappingText([&](int featureType) {
        if (!reached.contains(featureType)) return std::vector<int>{};
        std::vector<int> ids{sharedStyleId(featureType, featureType)};
        for (const int other : hiding.contains(featureType) ? reached : hiding) {
            if (other != featureType) ids.push_back(sharedStyleId(featureType, other));
        }
        return ids;
    });
}

}  // namespace customstyle_tool
