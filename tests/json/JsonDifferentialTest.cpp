// The tools' JSON reader has to accept, refuse and read exactly as the parser that the component uses.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/json/ComponentComparison.h"
#include "tests/json/HardTexts.h"
#include "tests/support/StyleBuilder.h"
#include "tools/json/JsonDocument.h"

namespace customstyle_test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

std::vector<std::string> exampleTexts() {
    std::vector<std::string> texts;
    for (const auto& entry : fs::recursive_directory_iterator(CUSTOMSTYLE_EXAMPLES)) {
        if (!entry.is_regular_file()) continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        texts.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return texts;
}

void expectNoDifference(std::string_view text) {
    const std::string difference = differenceToComponent(text);
    EXPECT_EQ(difference, "") << testing::PrintToString(std::string(text.substr(0, 500)));
}

void expectEachValueInItsPlace(std::string_view text) {
    const std::string misplaced = misplacedValue(text);
    EXPECT_EQ(misplaced, "") << testing::PrintToString(std::string(text.substr(0, 500)));
}

// ---- Whole texts ----------------------------------------------------------------------------------------------------

TEST(JsonDifferential, HardTextsAreReadAlike) {
    for (const std::string& text : hardTexts()) expectNoDifference(text);
}

TEST(JsonDifferential, HardTextsAreReadAlikeInsideAListAndAnObject) {
    for (const std::string& text : hardTexts()) {
        expectNoDifference("[" + text + "]");
        expectNoDifference("{\"a\":" + text + "}");
        expectNoDifference("{" + text + ":1}");
    }
}

TEST(JsonDifferential, ExamplesAreReadAlike) {
    const std::vector<std::string> texts = exampleTexts();
    EXPECT_GE(texts.size(), 7u);
    for (const std::string& text : texts) expectNoDifference(text);
}

TEST(JsonDifferential, EachValueStandsWhereItsRangeSays) {
    for (const std::string& text : seedTexts()) expectEachValueInItsPlace(text);
    for (const std::string& text : exampleTexts()) expectEachValueInItsPlace(text);
    for (const std::string& text : hardTexts()) {
        if (text.size() < 500) expectEachValueInItsPlace(text);
    }
}

// ---- All short texts ------------------------------------------------------------------------------------------------

// Calls visit with each text of 0 to `length` bytes over an alphabet.
template <typename Visit>
void eachText(std::string_view alphabet, std::size_t length, const Visit& visit, const std::string& text = {}) {
    visit(text);
    if (length == 0) return;
    for (const char byte : alphabet) eachText(alphabet, length - 1, visit, text + byte);
}

TEST(JsonDifferential, AllTextsOfThreeBytesAreReadAlike) {
    constexpr auto kAlphabet = "[]{},:\"\\/ \n\0\x1F\x7F+-.0123456789eEtfnulxabA#'\xEF\xBB\xBF\xC2\xA0\xFF"sv;
    eachText(kAlphabet, 3, expectNoDifference);
}

TEST(JsonDifferential, AllBytesAreReadAlikeInEveryKindOfPlace) {
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        for (const std::string& text :
             {byte, byte + "1", "1" + byte, "[" + byte + "]", "[1" + byte + "]", "[" + byte + "1]", "\"" + byte + "\"",
              "\"\\" + byte + "\"", "\"\\u" + byte + "123\"", "-" + byte, "[0" + byte + "1]", "\"\\u012" + byte + "\"",
              "{" + byte + "\"a\":1}", "{\"a\"" + byte + ":1}"}) {
            expectNoDifference(text);
        }
    }
}

TEST(JsonDifferential, AllNumbersOfSixCharactersAreReadAlike) {
    eachText("-+.019e"sv, 6, [](const std::string& text) { expectNoDifference(text); });
}

TEST(JsonDifferential, AllSmallListsAndObjectsAreReadAlike) {
    constexpr std::string_view kParts[] = {"[", "]", "{", "}", ",", ":", "\"a\"", "1", " "};
    eachText("\0\1\2\3\4\5\6\7\x8"sv, 5, [&](const std::string& choice) {
        std::string text;
        for (const char part : choice) text += kParts[static_cast<unsigned char>(part)];
        expectNoDifference(text);
    });
}

TEST(JsonDifferential, AllShortEscapesAreReadAlike) {
    eachText("\\u0dD8c\"g"sv, 5, [](const std::string& text) { expectNoDifference("\"\\" + text + "000\""); });
}

// ---- Texts cut short and mutated ------------------------------------------------------------------------------------

TEST(JsonDifferential, TextsCutAtEachByteAreReadAlike) {
    for (const std::string& seed : seedTexts()) {
        for (std::size_t size = 0; size < seed.size(); ++size) {
            expectNoDifference(std::string_view(seed).substr(0, size));
            expectNoDifference(std::string_view(seed).substr(size));
        }
    }
}

TEST(JsonDifferential, ExamplesCutShortAreReadAlike) {
    for (const std::string& text : exampleTexts()) {
        for (std::size_t size = 0; size < text.size(); size += 97)
            expectNoDifference(std::string_view(text).substr(0, size));
    }
}

class Mutator {
public:
    explicit Mutator(unsigned int seed) : m_random(seed) {}

    std::string mutated(std::string text) {
        for (std::size_t i = 0, count = 1 + below(4); i < count; ++i) mutateOnce(text);
        return text;
    }

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }

private:
    static constexpr std::string_view kParts[] = {"[",
                                                  "]",
                                                  "{",
                                                  "}",
                                                  ",",
                                                  ":",
                                                  "\"",
                                                  "\\",
                                                  " ",
                                                  "\n",
                                                  "\0"sv,
                                                  "-",
                                                  "+",
                                                  ".",
                                                  "e",
                                                  "0",
                                                  "9",
                                                  "1e999",
                                                  "-0",
                                                  "true",
                                                  "false",
                                                  "null",
                                                  "\"a\":",
                                                  "\"A\":1,",
                                                  "\\u0000",
                                                  "\\ud83d",
                                                  "\\ude00",
                                                  "\\u12",
                                                  "\xEF\xBB\xBF",
                                                  "\xFF",
                                                  "[[",
                                                  "]]",
                                                  "[]",
                                                  "{}",
                                                  "//",
                                                  "/*",
                                                  "1,",
                                                  ",1",
                                                  "'",
                                                  "\t",
                                                  "2147483648",
                                                  "0.1",
                                                  "\\n",
                                                  "\\q"};

    void mutateOnce(std::string& text) {
        const std::size_t at = below(text.size() + 1);
        const std::size_t length = 1 + below(below(8) == 0 ? 40 : 3);
        switch (below(6)) {
            case 0:
                text.erase(at, length);
                break;
            case 1:
                text.insert(at, text.substr(below(text.size() + 1), length));
                break;
            case 2:
                text.replace(at, std::min(length, text.size() - at), part());
                break;
            case 3:
                text.insert(at, 1, static_cast<char>(below(256)));
                break;
            case 4:
                if (at < text.size()) text[at] = static_cast<char>(text[at] ^ (1 << below(8)));
                break;
            default:
                text.insert(at, part());
                break;
        }
    }

    std::string_view part() { return kParts[below(std::size(kParts))]; }

    std::mt19937 m_random;  // the same numbers on every machine
};

class MutatedTexts : public testing::TestWithParam<unsigned int> {};

TEST_P(MutatedTexts, AreReadAlike) {
    Mutator mutator(GetParam());
    const std::vector<std::string> seeds = seedTexts();
    int accepted = 0;
    for (int i = 0; i < 50'000; ++i) {
        const std::string text = mutator.mutated(seeds[mutator.below(seeds.size())]);
        expectNoDifference(text);
        if (i % 50 == 0) expectEachValueInItsPlace(text);
        if (std::holds_alternative<customstyle_tool::JsonDocument>(customstyle_tool::parseJson(text))) ++accepted;
    }
    EXPECT_GT(accepted, 5'000) << "too few texts to compare trees with";
}

INSTANTIATE_TEST_SUITE_P(JsonDifferential, MutatedTexts, testing::Range(1u, 5u));

// ---- Looking members up ---------------------------------------------------------------------------------------------

std::string memberFoundByComponent(const cJSON* tree, const char* name) {
    const cJSON* member = _orvik_vi::cJSON_GetObjectItem(tree, name);
    return member == nullptr ? "none" : std::to_string(member->valueint);
}

std::string memberFoundByTools(const customstyle_tool::JsonValue& value, const char* name) {
    const auto member = value.firstMemberIgnoringCase(name);
    return member ? std::to_string(member->integer()) : "none";
}

TEST(JsonDifferential, MembersAreFoundAlike) {
    constexpr const char* kNames[] = {"a", "A", "b", "ab", "aB", "", "[", "{", "@", "`", "\xC3\xA4", "\xC3\x84", "z"};
    for (const char* json :
         {R"({"a":1,"A":2})", R"({"A":1,"a":2})", R"({"ab":1,"AB":2,"a":3})", R"({"":1})", R"({})",
          R"({"[":1,"{":2,"@":3,"`":4})", R"({"Ä":1,"ä":2})", R"({"a\u0000b":1,"a":2})", R"({"\uzzzz":1})",
          R"({"\u0041":1})", R"([1,{"a":2}])", R"(["a"])", R"("a")", "1", "null"}) {
        const Tree tree = parsed(json);
        const auto document = std::get<customstyle_tool::JsonDocument>(customstyle_tool::parseJson(json));
        for (const char* name : kNames) {
            EXPECT_EQ(memberFoundByTools(document.root(), name), memberFoundByComponent(tree.get(), name))
                << json << name;
        }
    }
}

}  // namespace
}  // namespace customstyle_test
