// Making a part of a style shorter, within limits.
#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "tools/minify/Shrinking.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/Mapping.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

TEST(Shrinking, StopsWhenItHasAppliedTheMostRules) {
    const ComponentGuard guard;
    _orvik_framework::CustomConfig map;
    map.ParseMappingConfig(Mapping::standard().tracedTree());
    const MinimalRule water{"water", "fill", {}, {{"color", "#3366cc"}}};
    const PlacedRules rules{placed(0, water), placed(1, water)};
    for (const auto& [mostWork, isComplete] : {std::pair(1U, false), std::pair(100'000U, true)}) {
        Cluster cluster(map, {{std::set<int>{map.GetFeatureTypeId("water")}, rules}}, false);
        ReachProbe probe;
        Shrinking shrinking(cluster, 0, probe, mostWork);
        shrinking.shrink();
        EXPECT_EQ(shrinking.isComplete(), isComplete) << mostWork;
        EXPECT_EQ(cluster.rulesOf(0).size(), isComplete ? 1U : 2U) << mostWork;
    }
}

}  // namespace
}  // namespace customstyle_test
