// What a rule does on its own.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/CaseName.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/Probe.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::caseName;

struct StylerValue {
    const char* name;
    const char* value;
};

struct Case {
    const char* name;
    const char* type;
    const char* element;
    StylerValue styler;
    bool works;
};

class RuleThat : public testing::TestWithParam<Case> {};

TEST_P(RuleThat, WorksOrNot) {
    const auto& [name, type, element, styler, works] = GetParam();
    const ComponentGuard guard;
    EXPECT_EQ(worksAlone(type, element, styler.name, styler.value), works);
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

std::string ruleAt(const char* element) {
    return std::string(R"({"featureType":"poilabel","elementType":")") + element +
           R"(","stylers":{"visibility":"on","fontsize":"12"}})";
}

// "on" for all elements shows an icon that was hidden before.
TEST(TwoRules, DoTheSameOnlyWhereTheyShowTheSameIcons) {
    EXPECT_TRUE(doTheSame(ruleAt("labels.text.fill"), ruleAt("labels.fill")));
    EXPECT_FALSE(doTheSame(ruleAt("labels.text.fill"), ruleAt("labels")));
}

}  // namespace
