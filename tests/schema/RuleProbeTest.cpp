#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tools/schema/RuleProbe.h"
#include "tools/schema/RuleTable.h"

namespace {

using namespace customstyle_tool;

struct Case {
    const char* name;
    const char* type;
    const char* element;
    StylerValue styler;
    bool works;
};

class RuleThat : public testing::TestWithParam<Case> {};

std::string caseName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

TEST_P(RuleThat, WorksOrNot) {
    RuleProbe probe;
    const auto& [name, type, element, styler, works] = GetParam();
    EXPECT_EQ(probe.works(type, element, styler), works);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, RuleThat,
    testing::Values(Case{"ColorsGeometry", "water", "geometry.fill", {"color", "#3366cc"}, true},
                    Case{"ColorsALabelType", "highwaylabel", "labels.text.stroke", {"color", "#3366cc"}, true},
                    Case{"ColorsTheGrid", "grid", "geometry.fill", {"color", "#3366cc"}, true},
                    Case{"ColorsAnIcon", "water", "labels.icon", {"color", "#3366cc"}, false},
                    Case{"ColorsTheStrokeOfLand", "land", "geometry.stroke", {"color", "#3366cc"}, false},
                    Case{"ColorsTheTopSurfaceOfText", "highway", "labels.topsurface", {"color", "#3366cc"}, false},
                    Case{"ColorsTheWholeMap", "all", "geometry", {"color", "#3366cc"}, false},
                    Case{"HidesEveryIcon", "all", "labels.icon", {"visibility", "off"}, true},
                    Case{"HidesEveryIconBySayingOn", "all", "labels.icon", {"visibility", "on"}, false},
                    Case{"ShowsIcons", "poilabel", "labels.icon", {"visibility", "on"}, true},
                    Case{"ShowsGeometry", "water", "geometry", {"visibility", "on"}, false},
                    Case{"HidesTheLabelsOfLand", "land", "labels", {"visibility", "off"}, false},
                    Case{"WeighsABoundary", "boundary", "geometry.stroke", {"weight", "3"}, false},
                    Case{"WeighsALetter", "highway", "labels.text.fill", {"weight", "3"}, true},
                    Case{"SizesGeometry", "highway", "geometry.fill", {"fontsize", "3"}, false},
                    Case{"SizesLabels", "highway", "labels", {"fontsize", "3"}, true},
                    Case{"NamesNoType", "lake", "geometry.fill", {"color", "#3366cc"}, false},
                    Case{"NamesNoElement", "water", "wall", {"color", "#3366cc"}, false}),
    caseName);

// Takes a while.
const std::vector<TypeGroup>& allGroups() {
    static const std::vector<TypeGroup> groups = typeGroups();
    return groups;
}

TEST(TypeGroups, HoldEveryTypeOnce) {
    std::vector<std::string> names;
    for (const TypeGroup& group : allGroups()) names.insert(names.end(), group.names.begin(), group.names.end());
    std::ranges::sort(names);
    EXPECT_EQ(names.size(), 73U);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
}

TEST(TypeGroups, SetBoundariesApartByTheirAlpha) {
    for (const TypeGroup& group : allGroups()) {
        EXPECT_EQ(group.ignoresAlpha, group.names == std::vector<std::string>{"boundary"});
    }
}

}  // namespace
