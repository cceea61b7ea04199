// The style ids of a mapping, and the few that represent all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/study/Sources.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/study/Mapping.h"
#include "tools/study/StoreImage.h"

namespace customstyle_test {
namespace {

using customstyle_tool::Mapping;
using customstyle_tool::Speaker;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<unsigned int> speakersOf(const Mapping& mapping) {
    std::vector<unsigned int> ids;
    for (const Speaker& speaker : mapping.speakers()) ids.push_back(speaker.styleId);
    return ids;
}

TEST(MappingIds, AreThoseOfTheMappingInItsOrder) {
    const Mapping mapping = Mapping::given(R"({"land":[7,3,5],"green":[3]})");
    EXPECT_THAT(mapping.idsOf(0), ElementsAre(7, 3, 5));
    EXPECT_THAT(mapping.idsOf(2), IsEmpty());
    EXPECT_THAT(mapping.questionIds(), ElementsAre(3U, 5U, 7U));
    EXPECT_THAT(mapping.typesOf(3), ElementsAre(0, 1));
}

TEST(MappingIds, ThatNoQuestionFindsAreNotAskedFor) {
    const Mapping mapping = Mapping::given(R"({"land":[-5,7],"green":[-3]})");
    EXPECT_THAT(mapping.idsOf(0), ElementsAre(-5, 7));
    EXPECT_THAT(mapping.questionIdsOf(0), ElementsAre(7U));
    EXPECT_THAT(mapping.questionIdsOf(1), IsEmpty());
    EXPECT_THAT(mapping.typesOf(static_cast<unsigned int>(-5)), IsEmpty());
}

TEST(Speakers, AreOneForEachSetOfTypesAndOneThatIsNotListed) {
    EXPECT_THAT(speakersOf(Mapping::given(R"({"land":[1,2,3,4],"green":[4,3,5,6]})")), ElementsAre(1U, 5U, 3U, 0U));
    EXPECT_THAT(speakersOf(Mapping::given("{}")), ElementsAre(0U));
    EXPECT_THAT(speakersOf(Mapping::given(R"({"land":[9,0,1]})")), ElementsAre(0U, 2U));
}

TEST(Speakers, AreNoStyleIdsThatNoQuestionFinds) {
    EXPECT_THAT(speakersOf(Mapping::given(R"({"land":[-5,7]})")), ElementsAre(7U, 0U));
}

TEST(Speakers, OfEveryMapAreOneForEachTypeAndEachTwo) {
    EXPECT_EQ(Mapping::everyMap().speakers().size(), 72U + 72U * 71U / 2U + 1U);
}

TEST(SpeakersText, KeepsTheFirstStyleIdOfEachType) {
    const Mapping kept = Mapping::given(Mapping::given(R"({"land":[-5,7,8],"green":[8,0]})").speakersText());
    EXPECT_THAT(kept.idsOf(0), ElementsAre(-5, 7, 8));
    const Mapping zero = Mapping::given(Mapping::given(R"({"land":[7,0,5],"green":[7,5]})").speakersText());
    EXPECT_THAT(zero.idsOf(0), testing::IsSupersetOf({0, 5}));
}

TEST(TracedText, HasOneStyleIdForEachTypeThatHasAny) {
    const Mapping traced = Mapping::given(Mapping::given(R"({"land":[-5,7,8],"green":[]})").tracedText());
    EXPECT_THAT(traced.idsOf(0), ElementsAre(1000));
    EXPECT_THAT(traced.idsOf(1), IsEmpty());
}

class RecordsOfARandomMapping : public testing::TestWithParam<unsigned> {};

TEST_P(RecordsOfARandomMapping, AreAlikeForAllStyleIdsOfAType) {
    const LogSilence quiet;
    RandomFiles files(GetParam());
    CustomConfig config;
    config.ParseMappingConfig(parsed(files.mapping()).get());
    config.ParseCustomConfig(parsed(randomStyle(files, 40)).get());
    for (const auto& entry : config.m_keyStyleMaps) {
        std::optional<tagCustomStyle> first;
        customstyle_tool::forEachSlotRecord(*entry.second, [&](int id, tagCustomStyle record) {
            if (!first) first = record;
            tagCustomStyle like = *first;
            like.m_ID = id;
            ASSERT_EQ(record, like) << entry.first;
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RecordsOfARandomMapping, testing::Range(0u, 10u));

}  // namespace
}  // namespace customstyle_test
