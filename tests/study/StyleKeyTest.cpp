#include <gtest/gtest.h>

#include "tools/study/StyleKey.h"

namespace customstyle_test {
namespace {

using customstyle_tool::parsedKey;

TEST(StyleKey, OfAllLevelsIsAFeatureType) {
    EXPECT_EQ(parsedKey("0").featureType, 0);
    EXPECT_EQ(parsedKey("72").featureType, 72);
    EXPECT_EQ(parsedKey("72").level, std::nullopt);
}

TEST(StyleKey, OfALevelHasBoth) {
    EXPECT_EQ(parsedKey("13:15").featureType, 13);
    EXPECT_EQ(parsedKey("13:15").level, 15);
}

}  // namespace
}  // namespace customstyle_test
