// What can be read of a list that is not JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tools/json/JsonDocument.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

struct RecoveryCase {
    const char* name;
    std::string text;
    std::vector<std::string> elements;  // that are read
    std::size_t errors;
};

void PrintTo(const RecoveryCase& each, std::ostream* out) {
    *out << each.text;
}

class Recovery : public testing::TestWithParam<RecoveryCase> {};

TEST_P(Recovery, ReadsTheOtherElements) {
    const JsonReading read = readJson(GetParam().text);
    EXPECT_EQ(read.errors.size(), GetParam().errors);
    std::vector<std::string> elements;
    ASSERT_TRUE(read.document.has_value());
    for (const JsonValue element : read.document->root().children()) {
        EXPECT_EQ(element.position(), elements.size());
        EXPECT_EQ(element.path(), "$[" + std::to_string(elements.size()) + "]");
        elements.emplace_back(element.source());
    }
    EXPECT_EQ(elements, GetParam().elements);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, Recovery,
    testing::Values(
        RecoveryCase{"Whole", R"([{"a": 1}, {"b": 2}])", {R"({"a": 1})", R"({"b": 2})"}, 0},
        RecoveryCase{"CommaBetweenMembers", R"([{"a": 1 "c": 3}, {"b": 2}])", {R"({"b": 2})"}, 1},
        RecoveryCase{"CommaBetweenElements", R"([{"a": 1} {"b": 2}])", {R"({"a": 1})", R"({"b": 2})"}, 1},
        RecoveryCase{"CommaTooMany", R"([{"a": 1}, {"b": 2},])", {R"({"a": 1})", R"({"b": 2})"}, 1},
        RecoveryCase{"OpenObject", "[{\"a\": {\"x\": 1},\n {\"b\": 2}]", {R"({"b": 2})"}, 1},
        RecoveryCase{"OpenText", "[{\"a\": \"x},\n {\"b\": 2},\n {\"c\": 3}]", {R"({"b": 2})", R"({"c": 3})"}, 1},
        RecoveryCase{"BracketTooMany", R"([{"a": 1}}, {"b": 2}])", {R"({"a": 1})", R"({"b": 2})"}, 1},
        RecoveryCase{"Comment", "[// {\"x\": 0}\n {\"a\": 1}, {\"b\": 2}]", {R"({"a": 1})", R"({"b": 2})"}, 1},
        RecoveryCase{"TwoErrors", R"([{"a" 1}, {"b": 2}, {"c": }, {"d": 4}])", {R"({"b": 2})", R"({"d": 4})"}, 2},
        RecoveryCase{"NoEnd", R"([{"a": 1}, {"b": )", {R"({"a": 1})"}, 1}, RecoveryCase{"OnlyABracket", "[", {}, 1}),
    [](const testing::TestParamInfo<RecoveryCase>& each) { return each.param.name; });

TEST(Recovery, IsOfAListOnly) {
    EXPECT_FALSE(readJson(R"({"a" 1})").document.has_value());
    EXPECT_FALSE(readJson("").document.has_value());
}

TEST(Recovery, EndsAfterManyErrors) {
    std::string text = "[";
    for (int i = 0; i < 1000; ++i) text += "{\"a\" 1},\n";
    EXPECT_LE(readJson(text).errors.size(), 101U);
}

}  // namespace
}  // namespace customstyle_test
