// The style ids of a mapping, and the few that speak for all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/replay/Sources.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/replay/MappingSource.h"

namespace customstyle_test {
namespace {

using customstyle_tool::StyleIdsByType;
using testing::ElementsAre;
using testing::IsEmpty;

std::unique_ptr<CustomConfig> mapped(const std::string& mapping) {
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(parsed(mapping).get());
    return config;
}

TEST(StyleIdsByType, AreTheIdsOfTheMappingInItsOrder) {
    const StyleIdsByType ids(*mapped(R"({"land":[7,3,5],"green":[3]})"));
    EXPECT_THAT(ids.of(0), ElementsAre(7, 3, 5));
    EXPECT_THAT(ids.of(1), ElementsAre(3));
    EXPECT_THAT(ids.of(2), IsEmpty());
    EXPECT_THAT(ids.all(), ElementsAre(3, 5, 7));
}

TEST(StyleIdsByType, AreKeptByAMappingWithOnlySome) {
    const StyleIdsByType ids(*mapped(R"({"land":[7,3,0,5],"green":[3]})"));
    const StyleIdsByType some(*mapped(ids.mappingWithOnly({3, 5})));
    EXPECT_THAT(some.of(0), ElementsAre(3, 5));
    EXPECT_THAT(some.of(1), ElementsAre(3));
}

TEST(StyleIdsByType, KeepAZeroThatComesFirst) {
    const StyleIdsByType ids(*mapped(R"({"land":[7,0,5]})"));
    EXPECT_THAT(StyleIdsByType(*mapped(ids.mappingWithOnly({0, 5}))).of(0), testing::IsSupersetOf({0, 5}));
}

TEST(StyleIdsByType, AreRepresentedOnceForEachSetOfTypesAndByTheFirstOfEachType) {
    const StyleIdsByType ids(*mapped(R"({"land":[1,2,3,4],"green":[4,3,5,6]})"));
    EXPECT_THAT(ids.representatives(), ElementsAre(1, 3, 4, 5));
}

TEST(RepresentativeMapping, KeepsOneStyleIdForEachSetOfTypes) {
    const std::string mapping = R"({"land":[],"green":[1001],"water":[50,51,1001,52]})";
    EXPECT_THAT(customstyle_tool::representativeMapping(mapping),
                testing::StartsWith(R"({"land":[],"green":[1001],"water":[50,1001],)"));
}

class RepresentativesOfARandomMapping : public testing::TestWithParam<unsigned> {};

TEST_P(RepresentativesOfARandomMapping, AreStyledLikeAllThatStandUnderTheSameTypes) {
    const LogSilence quiet;
    RandomFiles files(GetParam());
    const auto config = mapped(files.mapping());
    config->ParseCustomConfig(parsed(randomStyle(files, 40)).get());
    const StyleIdsByType ids(*config);
    for (const auto& [key, slot] : config->m_keyStyleMaps) {
        const std::vector<int>& ofType = ids.of(std::stoi(key));
        for (const int id : ofType) {
            tagCustomStyle like = *recordAt(*config, key, ofType.front());
            like.m_ID = id;
            ASSERT_EQ(*recordAt(*config, key, id), like) << key;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RepresentativesOfARandomMapping, testing::Range(0u, 10u));

}  // namespace
}  // namespace customstyle_test
