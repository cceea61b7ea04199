#include <gtest/gtest.h>

#include <set>
#include <string>

#include "customstyle/CustomConfig.h"
#include "tools/vocabulary/Descriptions.h"

namespace {

using namespace customstyle_tool;

TEST(Descriptions, NameEveryFeatureTypeInTheOrderOfTheCatalogue) {
    const _orvik_framework::CustomConfig catalogue;
    ASSERT_EQ(featureTypeDescriptions().size(), 73U);
    for (int id = 0; id < _orvik_framework::kFeatureTypeCount; ++id) {
        EXPECT_EQ(catalogue.GetFeatureTypeName(id), featureTypeDescriptions()[static_cast<std::size_t>(id)].word);
    }
}

TEST(Descriptions, TellFeatureTypesApart) {
    std::set<std::string> titles;
    for (const auto& [word, title] : featureTypeDescriptions()) titles.insert(title);
    EXPECT_EQ(titles.size(), featureTypeDescriptions().size());
}

TEST(Titles, AreFoundByTheirWord) {
    EXPECT_EQ(titleOf(featureTypeDescriptions(), "highway"), "Motorways");
    EXPECT_EQ(titleOf(featureTypeDescriptions(), "lake"), "");
}

}  // namespace
