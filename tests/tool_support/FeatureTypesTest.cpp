#include <gtest/gtest.h>

#include "customstyle/CustomConfig.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "vi/vos/VJson.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

TEST(FeatureTypeNames, StandAtTheirIds) {
    ASSERT_EQ(featureTypeNames().size(), 73U);
    EXPECT_EQ(featureTypeNames()[0], "land");
    EXPECT_EQ(featureTypeNames()[13], "highway");
    EXPECT_EQ(featureTypeNames()[72], "all");
}

TEST(MappedTypeNames, EndBeforeAll) {
    ASSERT_EQ(mappedTypeNames().size(), 72U);
    EXPECT_EQ(mappedTypeNames().back(), "grid");
}

TEST(MappingText, IsAcceptedByTheComponentWithItsStyleIds) {
    const std::string text = mappingText([](int type) { return type == 2 ? std::vector{21, 22} : std::vector<int>{}; });
    EXPECT_TRUE(text.starts_with(R"({"land":[],"green":[],"water":[21,22],"building":[],)"));
    _orvik_framework::CustomConfig config;
    _orvik_vi::cJSON* const tree = _orvik_vi::cJSON_Parse(text, 1);
    EXPECT_EQ(config.ParseMappingConfig(tree), 1);
    _orvik_vi::cJSON_Delete(tree);
    EXPECT_EQ(config.m_typeStyleMaps[2].GetCount(), 2);
    EXPECT_EQ(config.m_typeStyleMaps[3].GetCount(), 0);
}

}  // namespace
}  // namespace customstyle_test
