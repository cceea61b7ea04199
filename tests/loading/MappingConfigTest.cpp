// From the mapping document to base records.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "customstyle/StoredRecords.h"
#include "tests/support/CaseName.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StoredRecord;
using _orvik_framework::StoredRecords;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kLand = 0;
constexpr int kGrid = 71;
constexpr int kAll = 72;

/// The test mapping with another value for one type.
Tree mappingWith(const char* type, const std::string& json) {
    Tree mapping = parsed(testMapping());
    cJSON_ReplaceItemInObject(mapping.get(), type, parsed(json).release());
    return mapping;
}

Tree mappingWithout(const char* type) {
    Tree mapping = parsed(testMapping());
    cJSON_DeleteItemFromObject(mapping.get(), type);
    return mapping;
}

/// The ids of a type's records in their order; every record must be filed under its own id and else be zero.
std::vector<int> styleIds(const CustomConfig& config, int featureType) {
    std::vector<int> ids;
    for (const StoredRecord& entry : StoredRecords(config.m_typeStyleMaps[featureType])) {
        EXPECT_EQ(entry.number(), entry.record->m_ID);
        EXPECT_EQ(*entry.record, baseRecord(entry.record->m_ID));
        ids.push_back(entry.record->m_ID);
    }
    return ids;
}

class MappingConfig : public testing::Test {
protected:
    LogCapture m_silent;
    CustomConfig m_config;
};

TEST_F(MappingConfig, EveryTypeGetsARecordForEachOfItsIds) {
    EXPECT_EQ(m_config.ParseMappingConfig(parsed(testMapping()).get()), 1);
    for (int type = 0; type <= kGrid; ++type) {
        EXPECT_THAT(styleIds(m_config, type), ElementsAre(1000 + 10 * type, 1001 + 10 * type)) << type;
    }
    EXPECT_THAT(styleIds(m_config, kAll), IsEmpty());
}

// ---- Arrays ---------------------------------------------------------------------------------------------------------

struct ArrayCase {
    const char* name;
    const char* json;
    std::vector<int> ids;
};

const ArrayCase kArrays[] = {
    {"Empty", "[]", {}},
    {"Several", "[9, 5, 7]", {9, 5, 7}},
    {"RepeatedAtOnce", "[5, 5, 5, 7]", {5, 7}},
    {"RepeatedLaterKeepsItsPlace", "[5, 7, 5]", {5, 7}},
    {"ZeroRepeatedAndComingBack", "[0, 5, 5, 7, 5]", {5, 7}},
    {"ZeroAlone", "[0]", {}},
    {"ZeroInFront", "[0, 0, 5]", {5}},
    {"ZeroBehindAnother", "[5, 0]", {5, 0}},
    {"ZeroRepeatedBehindAnother", "[5, 0, 0, 0, 7]", {5, 0, 7}},
    {"Negative", "[-3, -3, 3]", {-3, 3}},
    {"Largest", "[2147483647]", {2147483647}},
    {"Smallest", "[-2147483648]", {-2147483647 - 1}},
    {"AboveTheLargest", "[4000000000, 2147483647]", {2147483647}},
    {"BelowTheSmallest", "[-4000000000]", {-2147483647 - 1}},
    {"FarBeyond", "[1e300, -1e300]", {2147483647, -2147483647 - 1}},
    {"Fraction", "[1.9, -1.9]", {1, -1}},
    {"Exponent", "[1e3]", {1000}},
    {"TrueIsOne", "[true, true]", {1}},
    {"FalseIsZero", "[7, false]", {7, 0}},
    {"FalseInFrontIsDropped", "[false, 7]", {7}},
    {"TextIsZero", R"([7, "8"])", {7, 0}},
    {"TextInFrontIsDropped", R"(["8", 7])", {7}},
    {"NullIsZero", "[7, null]", {7, 0}},
    {"NestedValuesAreZero", R"([7, [8], {"9": 9}])", {7, 0}},
};

class MappingArray : public testing::TestWithParam<ArrayCase> {};

TEST_P(MappingArray, MakesTheseRecords) {
    CustomConfig config;
    EXPECT_EQ(config.ParseMappingConfig(mappingWith("water", GetParam().json).get()), 1);
    EXPECT_THAT(styleIds(config, 2), testing::ElementsAreArray(GetParam().ids));
    EXPECT_THAT(styleIds(config, 3), ElementsAre(1030, 1031));
}

INSTANTIATE_TEST_SUITE_P(MappingConfig, MappingArray, testing::ValuesIn(kArrays), caseName);

TEST_F(MappingConfig, EachArrayFiltersForItself) {
    const Tree mapping = parsed(testMapping());
    cJSON_ReplaceItemInObject(mapping.get(), "land", parsed("[5]").release());
    cJSON_ReplaceItemInObject(mapping.get(), "green", parsed("[5]").release());
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_THAT(styleIds(m_config, 0), ElementsAre(5));
    EXPECT_THAT(styleIds(m_config, 1), ElementsAre(5));
}

struct ReplacedCase {
    const char* name;
    const char* json;
    int replaced;
};

const ReplacedCase kReplaced[] = {
    {"NoneOfDifferentIds", "[5, 7, 9]", 0},        {"NoneOfARun", "[5, 5, 5]", 0},
    {"NoneOfARunOfZeros", "[5, 0, 0, 0]", 0},      {"OneThatComesBack", "[5, 7, 5]", 1},
    {"OneThatComesBackAfterZero", "[5, 0, 5]", 1}, {"SeveralThatComeBack", "[5, 7, 5, 7, 5]", 3},
};

class ReplacedRecords : public testing::TestWithParam<ReplacedCase> {};

TEST_P(ReplacedRecords, AreNotFreed) {
    const MemoryAccounts accounts;
    CustomConfig().ParseMappingConfig(mappingWith("land", GetParam().json).get());
    EXPECT_EQ(accounts.blocks(), GetParam().replaced);
    // Each record follows its count of eight bytes.
    EXPECT_EQ(accounts.bytes(), GetParam().replaced * static_cast<std::ptrdiff_t>(8 + sizeof(tagCustomStyle)));
}

INSTANTIATE_TEST_SUITE_P(MappingConfig, ReplacedRecords, testing::ValuesIn(kReplaced), caseName);

TEST_F(MappingConfig, TwoHundredThousandIdsLoad) {
    std::string json = "[1";
    for (int id = 2; id <= 200000; ++id) json += "," + std::to_string(id);
    EXPECT_EQ(m_config.ParseMappingConfig(mappingWith("grid", json + "]").get()), 1);
    EXPECT_EQ(m_config.m_typeStyleMaps[kGrid].GetCount(), 200000);
}

// ---- Members --------------------------------------------------------------------------------------------------------

TEST_F(MappingConfig, OtherMembersAreIgnored) {
    const Tree mapping = parsed(R"({"all":[5],"lake":{"a":1},"version":3,)" + testMapping().substr(1));
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_THAT(styleIds(m_config, kAll), IsEmpty());
}

TEST_F(MappingConfig, MembersMayStandInAnyOrder) {
    const Tree mapping = mappingWithout("land");
    cJSON_AddItemToObject(mapping.get(), "land", parsed("[5]").release());
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_THAT(styleIds(m_config, kLand), ElementsAre(5));
}

TEST_F(MappingConfig, TheFirstOfTwoEqualMembersCounts) {
    const Tree mapping = parsed(R"({"land":[5],)" + testMapping().substr(1));
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_THAT(styleIds(m_config, kLand), ElementsAre(5));
}

TEST_F(MappingConfig, WithoutTheLastTypeAllOthersAreKept) {
    EXPECT_EQ(m_config.ParseMappingConfig(mappingWithout("grid").get()), 0);
    for (int type = 0; type < kGrid; ++type) EXPECT_EQ(styleIds(m_config, type).size(), 2U) << type;
    EXPECT_THAT(styleIds(m_config, kGrid), IsEmpty());
}

TEST_F(MappingConfig, WithoutATypeInTheMiddleTheEarlierOnesAreKept) {
    EXPECT_EQ(m_config.ParseMappingConfig(mappingWithout("highway").get()), 0);
    for (int type = 0; type < 13; ++type) EXPECT_EQ(styleIds(m_config, type).size(), 2U) << type;
    for (int type = 13; type <= kGrid; ++type) EXPECT_THAT(styleIds(m_config, type), IsEmpty()) << type;
}

TEST_F(MappingConfig, ATypeWithoutANameIsPassedOver) {
    m_config.m_featureTypeNames.erase(13);
    EXPECT_EQ(m_config.ParseMappingConfig(mappingWithout("highway").get()), 1);
    EXPECT_THAT(styleIds(m_config, 13), IsEmpty());
    EXPECT_EQ(styleIds(m_config, 14).size(), 2U);
}

struct ValueCase {
    const char* name;
    const char* json;
};

const ValueCase kNoArrays[] = {
    {"Number", "5"}, {"Text", R"("5")"}, {"Object", R"({"0":5})"}, {"Null", "null"}, {"True", "true"},
};

class MappingWithoutArray : public testing::TestWithParam<ValueCase> {};

TEST_P(MappingWithoutArray, StopsAtItsType) {
    const LogCapture silent;
    CustomConfig config;
    EXPECT_EQ(config.ParseMappingConfig(mappingWith("water", GetParam().json).get()), 0);
    EXPECT_THAT(styleIds(config, 1), ElementsAre(1010, 1011));
    EXPECT_THAT(styleIds(config, 2), IsEmpty());
    EXPECT_THAT(styleIds(config, 3), IsEmpty());
}

TEST_P(MappingWithoutArray, InTheFirstTypeFillsNothing) {
    const LogCapture silent;
    CustomConfig config;
    EXPECT_EQ(config.ParseMappingConfig(mappingWith("land", GetParam().json).get()), 0);
    for (int type = 0; type <= kGrid; ++type) EXPECT_THAT(styleIds(config, type), IsEmpty()) << type;
}

INSTANTIATE_TEST_SUITE_P(MappingConfig, MappingWithoutArray, testing::ValuesIn(kNoArrays), caseName);

class MappingRoot : public testing::TestWithParam<ValueCase> {};

TEST_P(MappingRoot, WithoutMembersIsRefused) {
    const LogCapture silent;
    CustomConfig config;
    EXPECT_EQ(config.ParseMappingConfig(parsed(GetParam().json).get()), 0);
    EXPECT_THAT(styleIds(config, kLand), IsEmpty());
}

const ValueCase kRoots[] = {
    {"EmptyObject", "{}"}, {"Array", R"([{"land":[5]}])"}, {"Number", "5"}, {"Text", R"("land")"}, {"Null", "null"},
};

INSTANTIATE_TEST_SUITE_P(MappingConfig, MappingRoot, testing::ValuesIn(kRoots), caseName);

// ---- More than once, and without memory -----------------------------------------------------------------------------

TEST_F(MappingConfig, ASecondDocumentAddsToTheFirst) {
    m_config.ParseMappingConfig(mappingWith("land", "[5, 6]").get());
    EXPECT_EQ(m_config.ParseMappingConfig(mappingWith("land", "[7, 5]").get()), 1);
    EXPECT_THAT(styleIds(m_config, kLand), ElementsAre(5, 6, 7));
}

TEST_F(MappingConfig, ARecordWithoutMemoryIsLeftOut) {
    const Tree mapping = mappingWith("land", "[5, 6, 7]");
    const FaultyMemory memory(1);
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_TRUE(memory.hasFailed());
    EXPECT_THAT(styleIds(m_config, kLand), ElementsAre(5, 7));
}

TEST_F(MappingConfig, ARecordWithoutMemoryCountsAsSeenAllTheSame) {
    const Tree mapping = mappingWith("land", "[5, 5, 6]");
    const FaultyMemory memory(0);
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_THAT(styleIds(m_config, kLand), ElementsAre(6));
}

TEST_F(MappingConfig, ARecordThatCannotBeReplacedStays) {
    const Tree mapping = mappingWith("land", "[5, 6, 5]");
    const FaultyMemory memory(2);
    EXPECT_EQ(m_config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_THAT(styleIds(m_config, kLand), ElementsAre(5, 6));
}

}  // namespace
}  // namespace customstyle_test
