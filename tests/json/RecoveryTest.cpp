// What can be read of a list that is not JSON.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/CaseName.h"
#include "tests/support/Repeated.h"
#include "tools/json/JsonDocument.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

struct RecoveryCase {
    const char* name;
    std::string markedText;             // with ^ at each error
    std::vector<std::string> elements;  // that are read
};

void PrintTo(const RecoveryCase& each, std::ostream* out) {
    *out << each.markedText;
}

class Recovery : public testing::TestWithParam<RecoveryCase> {};

// Takes the marks out of a text; returns their places.
std::vector<std::size_t> takeMarks(std::string& text) {
    std::vector<std::size_t> places;
    for (std::size_t at = text.find('^'); at != std::string::npos; at = text.find('^', at)) {
        text.erase(at, 1);
        places.push_back(at);
    }
    return places;
}

TEST_P(Recovery, ReadsTheOtherElements) {
    std::string text = GetParam().markedText;
    const std::vector<std::size_t> marks = takeMarks(text);
    const JsonReading read = readJson(text);
    std::vector<std::size_t> places;
    for (const JsonError& error : read.errors) places.push_back(error.offset);
    EXPECT_THAT(places, testing::UnorderedElementsAreArray(marks));
    std::vector<std::string> elements;
    ASSERT_TRUE(read.document.has_value());
    for (const JsonValue element : read.document->root().children()) {
        EXPECT_EQ(element.position(), elements.size());
        EXPECT_EQ(element.path(), "$[" + std::to_string(elements.size()) + "]");
        elements.emplace_back(element.source());
    }
    EXPECT_EQ(elements, GetParam().elements);
}

// As deep as an element of a list may be.
std::string deepestElement() {
    return R"({"a": )" + std::string(998, '[') + std::string(998, ']') + "}";
}

INSTANTIATE_TEST_SUITE_P(
    Lists, Recovery,
    testing::Values(
        RecoveryCase{"Whole", R"([{"a": 1}, {"b": 2}])", {R"({"a": 1})", R"({"b": 2})"}},
        RecoveryCase{"CommaBetweenMembers", R"([{"a": 1^ "c": 3}, {"b": 2}])", {R"({"b": 2})"}},
        RecoveryCase{"CommaBetweenElements", R"([{"a": 1}^ {"b": 2}])", {R"({"a": 1})", R"({"b": 2})"}},
        RecoveryCase{"CommaFirst", R"([^,{"a": 1}])", {R"({"a": 1})"}},
        RecoveryCase{"CommaTooMany", R"([{"a": 1}, {"b": 2}^,])", {R"({"a": 1})", R"({"b": 2})"}},
        RecoveryCase{"OpenObject", "[{\"a\": {\"x\": 1},\n ^{\"b\": 2}]", {R"({"b": 2})"}},
        RecoveryCase{"OpenText", "[{\"a\": ^\"x},\n {\"b\": 2},\n {\"c\": 3}]", {R"({"b": 2})", R"({"c": 3})"}},
        RecoveryCase{"BracketTooMany", R"([{"a": 1}^}, {"b": 2}])", {R"({"a": 1})", R"({"b": 2})"}},
        RecoveryCase{"Comment", "[^// {\"x\": 0}\n {\"a\": 1}, {\"b\": 2}]", {R"({"a": 1})", R"({"b": 2})"}},
        RecoveryCase{"TwoErrors", R"([{"a"^ 1}, {"b": 2}, {"c": ^}, {"d": 4}])", {R"({"b": 2})", R"({"d": 4})"}},
        RecoveryCase{"NoEnd", R"([{"a": 1}, ^{"b": )", {R"({"a": 1})"}}, RecoveryCase{"OnlyABracket", "^[", {}},
        RecoveryCase{"NoEndAfterAnotherError", R"(^[{"a": 1}, {"b"^ 2}, {"c": 3})", {R"({"a": 1})", R"({"c": 3})"}},
        RecoveryCase{"DeepAfterAnError", R"([{"a"^ 1}, )" + deepestElement() + "]", {deepestElement()}}),
    caseName);

TEST(Recovery, IsOfAListOnly) {
    EXPECT_FALSE(readJson(R"({"a" 1})").document.has_value());
    EXPECT_FALSE(readJson("").document.has_value());
}

TEST(Recovery, EndsAfterManyErrors) {
    EXPECT_LE(readJson("[" + repeated("{\"a\" 1},\n", 1000)).errors.size(), 101U);
}

}  // namespace
}  // namespace customstyle_test
