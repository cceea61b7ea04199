#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tests/check/CheckedText.h"
#include "tests/support/TemporaryDirectory.h"
#include "tools/check/MappingCheck.h"
#include "tools/host/Files.h"
#include "tools/host/LoadLog.h"
#include "tools/study/Answers.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/Mapping.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A mapping with the list of one type replaced.
std::string mappingWith(const std::string& type, const std::string& value, std::string mapping = defaultMapping()) {
    const std::size_t begin = mapping.find("\"" + type + "\":") + type.size() + 3;
    return mapping.replace(begin, mapping.find(']', begin) + 1 - begin, value);
}

TEST(MappingCheck, IsSilentAboutAMappingInOrder) {
    EXPECT_THAT(codesWithPlaces(checkedMapping(defaultMapping())), IsEmpty());
}

TEST(MappingCheck, NamesAllMissingTypesAtOnce) {
    const CheckedFile checked = checkedMapping(R"({"land": [1], "green": [2]})");
    EXPECT_THAT(codesWithPlaces(checked), ElementsAre("mapping-type-missing: {"));
    EXPECT_THAT(checked.findings[0].message, HasSubstr(R"(70 feature types are missing: "water", "building")"));
    EXPECT_THAT(checked.findings[0].message, HasSubstr(R"("grid")"));
}

TEST(MappingCheck, NamesEveryValueThatIsNoList) {
    const std::string mapping = R"({"land": 1, "green": {"a": 1}, "water": "1"})";
    EXPECT_THAT(codesWithPlaces(checkedMapping(mapping)),
                ElementsAre("mapping-type-missing: {", "mapping-not-list: 1", R"(mapping-not-list: {"a": 1})",
                            R"(mapping-not-list: "1")"));
}

TEST(MappingCheck, TellsWhatBecomesOfEachElement) {
    const CheckedFile checked = checkedMapping(mappingWith("water", R"([true, null, 7.9, 4294967295, -1, 0, 7, 7])"));
    EXPECT_THAT(codesWithPlaces(checked),
                ElementsAre("mapping-not-number: true", "mapping-not-number: null", "mapping-id-fraction: 7.9",
                            "mapping-id-out-of-range: 4294967295", "mapping-id-never-found: -1", "mapping-id-zero: 0",
                            "mapping-id-repeated: 7"));
    EXPECT_THAT(checked.findings[0].message, HasSubstr("style id 1"));
    EXPECT_THAT(checked.findings[2].message, HasSubstr("style id 7"));
    EXPECT_THAT(checked.findings[3].message, HasSubstr("style id 2147483647"));
}

TEST(MappingCheck, NamesTheTypeThatAnswersForASharedStyleId) {
    const CheckedFile checked = checkedMapping(mappingWith("water", "[1001, 1004, 1002]"));
    EXPECT_THAT(
        messagesOf(checked, Code::MappingIdShared),
        ElementsAre(HasSubstr(R"("green" and "water" share 1 style id (1001); if both customise one, "green")"),
                    HasSubstr(R"("water" and "manmade" share 1 style id (1004); if both customise one, "water")")));
}

TEST(MappingCheck, CountsASharedStyleIdOnceHoweverOftenItIsListed) {
    const CheckedFile checked = checkedMapping(mappingWith("water", "[1001, 1001, 1002]"));
    EXPECT_THAT(messagesOf(checked, Code::MappingIdShared),
                ElementsAre(HasSubstr(R"("green" and "water" share 1 style id (1001); if)")));
}

TEST(MappingCheck, NamesFiveSharedStyleIdsAndCountsTheRest) {
    const std::string shared = "[1, 2, 3, 4, 5, 6, 7]";
    const CheckedFile checked = checkedMapping(mappingWith("water", shared, mappingWith("green", shared)));
    EXPECT_THAT(
        messagesOf(checked, Code::MappingIdShared),
        ElementsAre(R"("green" and "water" share 7 style ids (1, 2, 3, 4, 5 and 2 others); if both customise one, )"
                    R"("green" answers)"));
}

TEST(MappingCheck, LetsAParentAnswerLastWhateverItsPlace) {
    const CheckedFile checked = checkedMapping(mappingWith("education", "[1004]"));
    EXPECT_THAT(messagesOf(checked, Code::MappingIdShared), ElementsAre(HasSubstr(R"(one, "education" answers)")));
}

TEST(MappingCheck, LetsTheFirstOfTwoParentsAnswer) {
    const CheckedFile checked = checkedMapping(mappingWith("districtlabel", "[1004]"));
    EXPECT_THAT(messagesOf(checked, Code::MappingIdShared), ElementsAre(HasSubstr(R"(one, "manmade" answers)")));
}

// Rules that customise a type, whatever it has.
std::string rulesFor(const std::string& type) {
    return ruleText(type, "geometry.fill", R"({"color": "#112233"})") + "," +
           ruleText(type, "labels.text.fill", R"({"color": "#112233"})");
}

TEST(MappingCheck, NamesTheTypeThatAnswersInTheComponent) {
    for (const char* const first : {"land", "manmade", "districtlabel", "poilabel"}) {
        for (const char* const second : {"water", "manmade", "districtlabel", "poilabel", "otherlabel"}) {
            if (std::string_view(first) == second) continue;
            const std::string mapping = mappingWith(second, "[77]", mappingWith(first, "[77]"));
            const auto store = storeOf(mapping, "[" + rulesFor(first) + "," + rulesFor(second) + "]");
            const std::string answering = catalogue().GetFeatureTypeName(ask(*store, 77, 10).featureType);
            EXPECT_THAT(messagesOf(checkedMapping(mapping), Code::MappingIdShared),
                        ElementsAre(HasSubstr(fmt::format("one, \"{}\" answers", answering))));
        }
    }
}

// A 0 that the component drops, and a style id that no question finds, are shared by nobody.
TEST(MappingCheck, CallsOnlySharedWhatAQuestionFindsUnderBothTypes) {
    const auto sharedOf = [](const char* green, const char* water) {
        const CheckedFile checked = checkedMapping(mappingWith("water", water, mappingWith("green", green)));
        return messagesOf(checked, Code::MappingIdShared).size();
    };
    EXPECT_EQ(sharedOf("[0, 5]", "[0, 6]"), 0U);
    EXPECT_EQ(sharedOf(R"(["a", 5])", "[null, 6]"), 0U);
    EXPECT_EQ(sharedOf("[5, -1]", "[6, -1]"), 0U);
    EXPECT_EQ(sharedOf("[5, 0]", "[0, 6]"), 0U);
    EXPECT_EQ(sharedOf("[5, 0]", "[6, 0]"), 1U);
}

struct ZeroCase {
    const char* list;
    std::vector<int> kept;
    std::vector<const char*> messages;
};

constexpr char kDroppedZero[] = "0 is dropped at the start of a list and after another 0";
constexpr char kKeptZero[] = "0 is a style id here; it is dropped only at the start of a list and after another 0";

TEST(MappingCheck, TellsWhichZerosTheComponentDrops) {
    for (const auto& [list, kept, messages] :
         {ZeroCase{"[0, 5]", {5}, {kDroppedZero}}, ZeroCase{"[0, 0, 5]", {5}, {kDroppedZero, kDroppedZero}},
          ZeroCase{"[5, 0]", {5, 0}, {kKeptZero}}, ZeroCase{"[5, 0, 0]", {5, 0}, {kKeptZero, kDroppedZero}}}) {
        const std::string mapping = mappingWith("water", list);
        EXPECT_THAT(messagesOf(checkedMapping(mapping), Code::MappingIdZero), testing::ElementsAreArray(messages));
        EXPECT_THAT(Mapping::given(mapping).idsOf(catalogue().GetFeatureTypeId("water")),
                    testing::UnorderedElementsAreArray(kept));
    }
}

TEST(MappingCheck, KnowsNamesAsTheComponentFindsThem) {
    std::string mapping = defaultMapping();
    mapping.replace(mapping.find("\"water\""), 7, "\"Water\"");
    mapping.replace(mapping.find("\"land\""), 6, R"("lend":[5],"land":[6],"LAND")");
    EXPECT_TRUE(isAcceptedMapping(mapping));
    EXPECT_THAT(codesWithPlaces(checkedMapping(mapping)),
                ElementsAre(R"(mapping-name-unknown: "lend")", R"(member-doubled: "LAND")",
                            R"(member-case-accepted: "Water")"));
}

TEST(MappingCheck, AcceptsWhatTheComponentAccepts) {
    EXPECT_TRUE(isAcceptedMapping(defaultMapping()));
    EXPECT_FALSE(isAcceptedMapping("{}"));
    EXPECT_FALSE(isAcceptedMapping("[1"));
}

TEST(MappingCheck, QuotesWhatTheComponentLogs) {
    const TemporaryDirectory directory;
    const auto logOf = [&](const std::string& text) {
        const auto source = readSource(directory.write("CustomIndex", text), "mapping file");
        return checkMapping(*std::get<0>(source), false, logOfMapping).front().log;
    };
    EXPECT_EQ(logOf("{}"), "ZRX Custom Map: CustomIndex file parse failed");
    EXPECT_EQ(logOf("{"), "ZRX Custom Map: CustomIndex file parse failed, format error");
}

}  // namespace
}  // namespace customstyle_test
