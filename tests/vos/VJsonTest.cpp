// JSON trees: what parses, where the text ends, how deep it may nest, how members are found.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/support/Repeated.h"
#include "tests/support/StyleBuilder.h"
#include "vi/vos/VJson.h"

namespace customstyle_test {
namespace {

using namespace std::string_view_literals;
using namespace _orvik_vi;

/// The tree of a text in a block of exactly its length, so that a read past the end is noticed.
Tree parsedExactly(std::string_view text) {
    const auto block = std::make_unique<char[]>(text.size());
    text.copy(block.get(), text.size());
    return Tree(_orvik_vi::cJSON_Parse({block.get(), text.size()}, 1));
}

int firstNumber(const Tree& tree) {
    return ::cJSON_GetArrayItem(tree.get(), 0)->valueint;
}

TEST(VJson, ATextThatFillsTheBufferIsParsedWhole) {
    const Tree tree = parsedExactly(R"([{"level":"15"},[1,2,3],"last"])");
    ASSERT_NE(tree, nullptr);
    ASSERT_EQ(cJSON_GetArraySize(tree.get()), 3);
    EXPECT_STREQ(::cJSON_GetArrayItem(tree.get(), 2)->valuestring, "last");
}

class JsonText : public testing::TestWithParam<std::string_view> {};

TEST_P(JsonText, OfAnyKindMayEndWithTheBuffer) {
    EXPECT_NE(parsedExactly(GetParam()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(VJson, JsonText,
                         testing::Values("[]"sv, "{}"sv, "7"sv, "-12.5e3"sv, "true"sv, "false"sv, "null"sv, "\"\""sv,
                                         "\"text\""sv, " [1] "sv, "\t\r\n{\"a\":[]}\n"sv));

class NotJson : public testing::TestWithParam<std::string_view> {};

TEST_P(NotJson, HasNoTree) {
    EXPECT_EQ(parsedExactly(GetParam()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(VJson, NotJson,
                         testing::Values(""sv, " "sv, "\n\t "sv, "["sv, "[1"sv, "[1,"sv, "[1,]"sv, "[1 2]"sv, "{"sv,
                                         "{\"a\""sv, "{\"a\":"sv, "{\"a\":1"sv, "{a:1}"sv, "{\"a\" 1}"sv, "\"open"sv,
                                         "\"\\"sv, "\"\\u12"sv, "tru"sv, "nul"sv, "-"sv, "style"sv, "]"sv, "'a'"sv,
                                         "\xFF"sv));

TEST(VJson, AnEmptyViewWithoutAnAddressHasNoTree) {
    EXPECT_EQ(_orvik_vi::cJSON_Parse(std::string_view(), 1), nullptr);
}

TEST(VJson, WhatFollowsTheFirstValueIsNotLookedAt) {
    for (const std::string_view text : {"[1] and more"sv, "[1]]"sv, "[1]["sv, "[1]\0["sv, "[1]\xFF"sv}) {
        const Tree tree = parsedExactly(text);
        ASSERT_NE(tree, nullptr) << text;
        EXPECT_EQ(firstNumber(tree), 1) << text;
    }
}

TEST(VJson, ANulEndsAValue) {
    EXPECT_EQ(parsedExactly("7\0008"sv)->valueint, 7);
    EXPECT_EQ(parsedExactly("tr\0ue"sv), nullptr);
    EXPECT_EQ(parsedExactly("\0"sv), nullptr);
    EXPECT_EQ(parsedExactly("\0\0\0\0"sv), nullptr);
    EXPECT_EQ(parsedExactly("[1,\0\0\0"sv), nullptr);
}

TEST(VJson, ANulBetweenTwoTokensEndsTheText) {
    EXPECT_EQ(parsedExactly("[1\0]"sv), nullptr);
    EXPECT_EQ(parsedExactly("[1,\0 2]"sv), nullptr);
    EXPECT_EQ(parsedExactly("{\"a\":1\0}"sv), nullptr);
    EXPECT_EQ(parsedExactly("\0[1]"sv), nullptr);
}

TEST(VJson, NothingIsReadBeyondTheLength) {
    EXPECT_EQ(_orvik_vi::cJSON_Parse({"[1]", 2}, 1), nullptr);
    const Tree number(_orvik_vi::cJSON_Parse({"1234", 2}, 1));
    EXPECT_EQ(number->valueint, 12);
}

TEST(VJson, ArraysNest1000Deep) {
    EXPECT_NE(parsedExactly(nested("[", "", "]", 1000)), nullptr);
    EXPECT_EQ(parsedExactly(nested("[", "", "]", 1001)), nullptr);
}

TEST(VJson, ObjectsNest1000Deep) {
    EXPECT_NE(parsedExactly(nested("{\"a\":", "1", "}", 1000)), nullptr);
    EXPECT_EQ(parsedExactly(nested("{\"a\":", "1", "}", 1001)), nullptr);
}

TEST(VJson, FarTooDeepNestingIsRefusedWithoutACrash) {
    EXPECT_EQ(parsedExactly(nested("[", "", "]", 1'000'000)), nullptr);
}

TEST(VJson, NeighboursDoNotAddToTheDepth) {
    EXPECT_NE(parsedExactly("[[]" + repeated(",[]", 2000) + "]"), nullptr);
}

TEST(VJson, MembersAreFoundWithoutRegardToLetterCase) {
    const Tree tree = parsedExactly(R"({"FeatureType":"land"})");
    const cJSON* member = _orvik_vi::cJSON_GetObjectItem(tree.get(), "featuretypE");
    ASSERT_NE(member, nullptr);
    EXPECT_STREQ(member->valuestring, "land");
    EXPECT_STREQ(member->string, "FeatureType");
}

TEST(VJson, OfEqualNamesTheFirstIsFound) {
    const Tree tree = parsedExactly(R"({"Level":"1","level":"2","level":"3"})");
    EXPECT_STREQ(_orvik_vi::cJSON_GetObjectItem(tree.get(), "level")->valuestring, "1");
}

TEST(VJson, AnAbsentMemberIsNull) {
    const Tree tree = parsedExactly(R"({"levels":"1"})");
    EXPECT_EQ(_orvik_vi::cJSON_GetObjectItem(tree.get(), "level"), nullptr);
    EXPECT_EQ(_orvik_vi::cJSON_GetObjectItem(tree.get(), ""), nullptr);
}

TEST(VJson, NothingIsFoundOfNothing) {
    const Tree tree = parsedExactly(R"({"level":"1"})");
    EXPECT_EQ(_orvik_vi::cJSON_GetObjectItem(nullptr, "level"), nullptr);
    EXPECT_EQ(_orvik_vi::cJSON_GetObjectItem(tree.get(), nullptr), nullptr);
}

// Every two bytes that are not NUL, as the name of a member and as the name asked for.
TEST(VJson, ChildrenAreVisitedInOrderAndNothingHasNone) {
    std::string visited;
    const auto visit = [&](const cJSON& child) { visited += std::to_string(child.valueint); };
    forEachChild(nullptr, visit);
    EXPECT_EQ(visited, "");
    forEachChild(parsedExactly("[3,1,2]").get(), visit);
    EXPECT_EQ(visited, "312");
}

TEST(VJson, MembersAreFoundAsThePackageFindsThem) {
    char name[] = "x";
    char asked[] = "x";
    cJSON member{};
    member.string = name;
    cJSON object{};
    object.child = &member;
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            name[0] = static_cast<char>(first);
            asked[0] = static_cast<char>(second);
            EXPECT_EQ(_orvik_vi::cJSON_GetObjectItem(&object, asked), ::cJSON_GetObjectItem(&object, asked))
                << first << " and " << second;
        }
    }
}

TEST(VJson, ItemsOutsideAnArrayAreNull) {
    const Tree tree = parsedExactly("[1,2]");
    EXPECT_EQ(::cJSON_GetArrayItem(tree.get(), 2), nullptr);
    EXPECT_EQ(::cJSON_GetArrayItem(tree.get(), -1), nullptr);
}

TEST(VJson, ChildrenFormAListInTheOrderOfTheText) {
    const Tree tree = parsedExactly("[30,10,20]");
    std::string order;
    for (const cJSON* child = tree->child; child != nullptr; child = child->next)
        order += std::to_string(child->valueint) + " ";
    EXPECT_EQ(order, "30 10 20 ");
}

TEST(VJson, KindsAreToldApart) {
    const Tree tree = parsedExactly(R"([[], {}, "text", 1, true, null])");
    std::string kinds;
    for (const cJSON* child = tree->child; child != nullptr; child = child->next) {
        kinds += cJSON_IsArray(child) ? "a" : "-";
        kinds += cJSON_IsObject(child) ? "o" : "-";
        kinds += cJSON_IsString(child) ? "s " : "- ";
    }
    EXPECT_EQ(kinds, "a-- -o- --s --- --- --- ");
}

TEST(VJson, OnlyTrueAndNumbersHaveAnIntegerValue) {
    const Tree tree = parsedExactly(R"([true, false, null, "12", 12.9, -3, 1e12, -1e12])");
    std::string values;
    for (const cJSON* child = tree->child; child != nullptr; child = child->next)
        values += std::to_string(child->valueint) + " ";
    EXPECT_EQ(values, "1 0 0 0 12 -3 2147483647 -2147483648 ");
}

}  // namespace
}  // namespace customstyle_test
