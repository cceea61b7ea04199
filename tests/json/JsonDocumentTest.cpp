// Documents: kinds, places, names, texts, numbers, ways and lookups. That all of it is what the component reads is
// shown by the differential test; here it is spelled out.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tests/support/CaseName.h"
#include "tests/support/IntLimits.h"
#include "tools/json/JsonDocument.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using namespace std::string_view_literals;

JsonDocument documentOf(std::string_view text) {
    return std::get<JsonDocument>(parseJson(text));
}

JsonValue childAt(const JsonValue& value, std::size_t position) {
    return *std::ranges::next(value.children().begin(), static_cast<std::ptrdiff_t>(position));
}

// ---- Kinds and places -----------------------------------------------------------------------------------------------

struct KindCase {
    const char* name;
    std::string_view text;
    JsonKind kind;
    std::string_view source;
};

class OutermostValue : public testing::TestWithParam<KindCase> {};

TEST_P(OutermostValue, HasItsKindAndPlace) {
    const JsonDocument document = documentOf(GetParam().text);
    EXPECT_EQ(document.root().kind(), GetParam().kind);
    EXPECT_EQ(document.root().source(), GetParam().source);
    EXPECT_FALSE(document.root().isMember());
    EXPECT_EQ(document.root().parent(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(JsonDocument, OutermostValue,
                         testing::Values(KindCase{"Null", " null ", JsonKind::Null, "null"},
                                         KindCase{"False", "\tfalse", JsonKind::False, "false"},
                                         KindCase{"True", "true\n", JsonKind::True, "true"},
                                         KindCase{"Number", " -1.50e+3 ", JsonKind::Number, "-1.50e+3"},
                                         KindCase{"Text", R"( "a\"b" )", JsonKind::String, R"("a\"b")"},
                                         KindCase{"EmptyList", " [ ] ", JsonKind::Array, "[ ]"},
                                         KindCase{"EmptyObject", " { } ", JsonKind::Object, "{ }"},
                                         KindCase{"BehindAByteOrderMark", "\xEF\xBB\xBF[1]", JsonKind::Array, "[1]"},
                                         KindCase{"BehindControlCharacters", "\x01\x1F[1]\x02", JsonKind::Array, "[1]"},
                                         KindCase{"BeforeANul", "[1]\0["sv, JsonKind::Array, "[1]"},
                                         KindCase{"TheNumberEndsWhereItStopsBeingOne", "1.2.3", JsonKind::Number,
                                                  "1.2"},
                                         KindCase{"TheFirstValueCounts", "{} []", JsonKind::Object, "{}"}),
                         caseName);

// What comes of a text, in short.
std::string outcomeOf(std::string_view text) {
    const auto result = parseJson(text);
    if (const auto* error = std::get_if<JsonError>(&result))
        return std::string(error->reason()) + " at " + std::to_string(error->offset);
    return "a value up to " + std::to_string(std::get<JsonDocument>(result).root().range().end);
}

TEST(JsonDocument, EndsWithItsTextWhateverFollowsInMemory) {
    for (const std::string_view text : {R"("a")"sv, R"(["a\"b", true])"sv, "-1.5e+7"sv}) {
        for (std::size_t size = 0; size <= text.size(); ++size) {
            const std::string_view part = text.substr(0, size);
            EXPECT_EQ(outcomeOf(part), outcomeOf(std::string(part))) << part;
        }
    }
}

TEST(JsonDocument, ChildrenKeepTheirOrderAndPlaces) {
    const JsonDocument document = documentOf(R"([1, [2, 3], "four"])");
    std::vector<std::string_view> sources;
    for (const JsonValue child : document.root().children()) sources.push_back(child.source());
    EXPECT_EQ(sources, (std::vector{"1"sv, "[2, 3]"sv, "\"four\""sv}));
    EXPECT_EQ(childAt(document.root(), 1).range(), (TextRange{4, 10}));
}

TEST(JsonDocument, DoubledMembersAreKept) {
    const JsonDocument document = documentOf(R"({"a": 1, "b": 2, "a": 3})");
    std::string members;
    for (const JsonValue member : document.root().children())
        members += member.name() + "=" + std::string(member.source()) + " ";
    EXPECT_EQ(members, "a=1 b=2 a=3 ");
}

TEST(JsonDocument, ANameHasItsOwnPlace) {
    const JsonDocument document = documentOf(R"({ "color" : "#fff" })");
    const JsonValue member = childAt(document.root(), 0);
    EXPECT_TRUE(member.isMember());
    EXPECT_EQ(member.nameRange(), (TextRange{2, 9}));
    EXPECT_EQ(member.range(), (TextRange{12, 18}));
}

TEST(JsonDocument, ANameMayBeEmpty) {
    const JsonDocument document = documentOf(R"({"": 1})");
    const JsonValue member = childAt(document.root(), 0);
    EXPECT_TRUE(member.isMember());
    EXPECT_EQ(member.name(), "");
    EXPECT_EQ(member.nameRange(), (TextRange{1, 3}));
}

TEST(JsonDocument, AnElementHasNoName) {
    const JsonDocument document = documentOf(R"([7])");
    const JsonValue element = childAt(document.root(), 0);
    EXPECT_FALSE(element.isMember());
    EXPECT_EQ(element.name(), "");
    EXPECT_EQ(element.nameRange(), (TextRange{1, 1}));
}

TEST(JsonDocument, ParentsAndPositionsLeadBack) {
    const JsonDocument document = documentOf(R"({"a": [0, {"b": null}]})");
    const JsonValue list = childAt(document.root(), 0);
    const JsonValue object = childAt(list, 1);
    const JsonValue null = childAt(object, 0);
    EXPECT_EQ(null.parent(), object);
    EXPECT_EQ(object.parent(), list);
    EXPECT_EQ(object.position(), 1u);
    EXPECT_EQ(list.parent(), document.root());
}

TEST(JsonDocument, ScalarsHaveNoChildren) {
    for (const char* text : {"1", "true", "null", "\"a\"", "[]", "{}"}) {
        EXPECT_TRUE(documentOf(text).root().children().empty()) << text;
    }
}

TEST(JsonDocument, ValuesOutliveTheirDocumentWhileACopyLives) {
    auto document = std::make_unique<JsonDocument>(documentOf("[1, 2]"));
    const JsonValue value = childAt(document->root(), 1);
    const JsonDocument copy = *document;
    document.reset();
    EXPECT_EQ(value.integer(), 2);
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

struct TextCase {
    const char* name;
    std::string_view json;
    std::string_view text;
    std::string_view wholeText;
};

class Text : public testing::TestWithParam<TextCase> {};

TEST_P(Text, IsDecodedUpToItsFirstNul) {
    const JsonDocument document = documentOf(GetParam().json);
    EXPECT_EQ(document.root().text(), GetParam().text);
    EXPECT_EQ(document.root().wholeText(), GetParam().wholeText);
}

TEST_P(Text, IsDecodedAsANameToo) {
    const std::string json = std::string("{").append(GetParam().json).append(":1}");
    const JsonDocument document = documentOf(json);
    EXPECT_EQ(childAt(document.root(), 0).name(), GetParam().text);
    EXPECT_EQ(childAt(document.root(), 0).wholeName(), GetParam().wholeText);
}

INSTANTIATE_TEST_SUITE_P(
    JsonDocument, Text,
    testing::Values(TextCase{"Empty", R"("")", "", ""}, TextCase{"Plain", R"("land")", "land", "land"},
                    TextCase{"ShortEscapes", R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t", "\"\\/\b\f\n\r\t"},
                    TextCase{"UnicodeEscapes", R"("\u0041\u00e9\u20AC")", "A\u00e9\u20ac", "A\u00e9\u20ac"},
                    TextCase{"ASurrogatePair", R"("\ud83d\ude00")", "\U0001F600", "\U0001F600"},
                    TextCase{"LineEndsMayStandInIt", "\"a\nb\"", "a\nb", "a\nb"},
                    TextCase{"MalformedUtf8StaysAsItIs", "\"\xFF\"", "\xFF", "\xFF"},
                    TextCase{"ANulEscapeCuts", R"("a\u0000b")", "a", "a\0b"sv},
                    TextCase{"WrongDigitsCutAsNul", R"("a\u00gzb")", "a", "a\0b"sv},
                    TextCase{"AnEscapedQuoteAmongTheDigits", R"("a\u12\"b")", "a", "a\0b"sv}),
    caseName);

TEST(JsonDocument, OtherKindsHaveNoText) {
    for (const char* json : {"1", "true", "null", "[\"a\"]", "{\"a\":1}"})
        EXPECT_EQ(documentOf(json).root().wholeText(), "");
}

// ---- Numbers --------------------------------------------------------------------------------------------------------

struct NumberCase {
    const char* name;
    std::string_view json;
    double number;
    int integer;
};

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class Number : public testing::TestWithParam<NumberCase> {};

TEST_P(Number, IsReadAsDoubleAndInt) {
    const JsonDocument document = documentOf(GetParam().json);
    EXPECT_EQ(document.root().number(), GetParam().number);
    EXPECT_EQ(document.root().integer(), GetParam().integer);
}

INSTANTIATE_TEST_SUITE_P(
    JsonDocument, Number,
    testing::Values(NumberCase{"Zero", "0", 0, 0}, NumberCase{"LeadingZeros", "-007", -7, -7},
                    NumberCase{"AFractionIsCutOff", "-1.9", -1.9, -1},
                    NumberCase{"NoDigitBehindThePoint", "1.e2", 100, 100},
                    NumberCase{"NoDigitBeforeThePoint", "-.5", -0.5, 0},
                    NumberCase{"AnExponentWithoutDigitsIsLeftOut", "12e+", 12, 12},
                    NumberCase{"AboveInt", "4294967295", 4294967295.0, kIntMax},
                    NumberCase{"BelowInt", "-4294967295", -4294967295.0, kIntMin},
                    NumberCase{"AboveDouble", "1e400", kInfinity, kIntMax},
                    NumberCase{"BelowDouble", "-1e400", -kInfinity, kIntMin}, NumberCase{"TooSmall", "1e-400", 0, 0},
                    NumberCase{"TheSmallest", "4.9e-324", std::numeric_limits<double>::denorm_min(), 0},
                    NumberCase{"TrueCountsOne", "true", 0, 1}, NumberCase{"FalseCountsZero", "false", 0, 0},
                    NumberCase{"ATextIsNoNumber", "\"15\"", 0, 0}, NumberCase{"AListIsNoNumber", "[15]", 0, 0}),
    caseName);

// ---- Text after the value -------------------------------------------------------------------------------------------

struct BehindCase {
    const char* name;
    std::string_view text;
    std::optional<std::size_t> offset;
};

class TextBehindTheValue : public testing::TestWithParam<BehindCase> {};

TEST_P(TextBehindTheValue, IsReportedWithItsPlace) {
    EXPECT_EQ(documentOf(GetParam().text).ignoredTextBegin(), GetParam().offset);
}

INSTANTIATE_TEST_SUITE_P(JsonDocument, TextBehindTheValue,
                         testing::Values(BehindCase{"None", "[1]", std::nullopt},
                                         BehindCase{"OnlyBlanks", "[1] \r\n\t\0"sv, std::nullopt},
                                         BehindCase{"BehindANul", "[1]\0[2]"sv, 4},
                                         BehindCase{"AComment", "[1] // end", 4}, BehindCase{"AtOnce", "{}}", 2},
                                         BehindCase{"BehindALineEnd", "[]\n[]", 3},
                                         BehindCase{"ARestOfANumber", "1.2.3", 3}),
                         caseName);

// ---- Ways and lookups -----------------------------------------------------------------------------------------------

TEST(JsonDocument, PathsNameTheWay) {
    const JsonDocument document = documentOf(R"([0, {"stylers": {"color": "red"}}])");
    const JsonValue stylers = childAt(childAt(document.root(), 1), 0);
    EXPECT_EQ(document.root().path(), "$");
    EXPECT_EQ(childAt(document.root(), 0).path(), "$[0]");
    EXPECT_EQ(childAt(stylers, 0).path(), "$[1].stylers.color");
}

TEST(JsonDocument, OddNamesAreQuotedInPaths) {
    const JsonDocument document =
        documentOf(R"({"odd name":1, "":2, "1st":3, "a\"\\b":4, "a\nb\u0000":5, "été":6, "_a1":7})");
    std::vector<std::string> paths;
    for (const JsonValue member : document.root().children()) paths.push_back(member.path());
    EXPECT_EQ(paths, (std::vector<std::string>{R"($["odd name"])", R"($[""])", R"($["1st"])", R"($["a\"\\b"])",
                                               R"($["a\u000ab\u0000"])", R"($["été"])", "$._a1"}));
}

struct LookupCase {
    const char* name;
    std::string_view json;
    std::string_view wanted;
    std::optional<int> value;
};

class FirstMemberIgnoringCase : public testing::TestWithParam<LookupCase> {};

TEST_P(FirstMemberIgnoringCase, IsWhatTheComponentFinds) {
    const JsonDocument document = documentOf(GetParam().json);
    const auto member = document.root().firstMemberIgnoringCase(GetParam().wanted);
    EXPECT_EQ(member ? std::optional(member->integer()) : std::nullopt, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(JsonDocument, FirstMemberIgnoringCase,
                         testing::Values(LookupCase{"TheFirstOfSeveral", R"({"b":0,"a":1,"a":2})", "a", 1},
                                         LookupCase{"AnotherCaseComesFirst", R"({"COLOR":1,"color":2})", "color", 1},
                                         LookupCase{"Absent", R"({"colors":1})", "color", std::nullopt},
                                         LookupCase{"CaseOfAsciiLettersOnly", R"({"Ä":1,"{":2})", "ä", std::nullopt},
                                         LookupCase{"SignsHaveNoCase", R"({"{":1})", "[", std::nullopt},
                                         LookupCase{"ANameEndsAtItsNul", R"({"a\u0000b":1})", "A", 1},
                                         LookupCase{"EscapesAreDecoded", R"({"\u0041":1})", "a", 1},
                                         LookupCase{"ListsHaveNoMembers", R"([1,2])", "a", std::nullopt},
                                         LookupCase{"MembersOfMembersDoNotCount", R"({"b":{"a":1}})", "a",
                                                    std::nullopt},
                                         LookupCase{"ScalarsHaveNoMembers", "1", "", std::nullopt}),
                         caseName);

}  // namespace
}  // namespace customstyle_test
