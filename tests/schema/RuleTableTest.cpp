#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tools/schema/RuleTable.h"

namespace {

using namespace customstyle_tool;

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

TEST(TypeGroups, AreAllDifferent) {
    for (std::size_t i = 1; i < allGroups().size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const TypeGroup& group = allGroups()[i];
            const TypeGroup& other = allGroups()[j];
            EXPECT_FALSE(group.columns == other.columns && group.ignoresAlpha == other.ignoresAlpha)
                << group.names.front() << ' ' << other.names.front();
        }
    }
}

TEST(TypeGroups, SetBoundariesApartByTheirAlpha) {
    for (const TypeGroup& group : allGroups()) {
        EXPECT_EQ(group.ignoresAlpha, group.names == std::vector<std::string>{"boundary"});
    }
}

}  // namespace
