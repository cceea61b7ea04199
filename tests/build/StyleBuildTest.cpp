// What a build makes of random styles: nothing is lost, and every value leads back to where it was written.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>

#include "tests/support/CaseName.h"
#include "tests/support/RandomFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "tools/build/StyleBuild.h"
#include "tools/json/JsonDocument.h"
#include "tools/layout/Layout.h"

namespace customstyle_test {
namespace {

using customstyle_tool::BuiltStyle;
using customstyle_tool::JsonDocument;
using customstyle_tool::JsonKind;
using customstyle_tool::JsonValue;
using customstyle_tool::SourceFile;
using customstyle_tool::TextRange;

// Rules in lines of their own, some of them with room in between; remarks among them.
std::string randomStyle(RandomFiles& files, int count) {
    std::string text = "[";
    for (int i = 0; i < count; ++i) {
        if (i > 0) text += files.oneIn(4) ? ",\n\n" : ",\n";
        text += files.oneIn(8) ? R"({"note": ["$x", {"stylers": null}, 1e3], "featureType": "\u00e9"})" : files.rule();
    }
    return text + "]\n";
}

std::string laidOutText(const std::string& text) {
    return customstyle_tool::laidOut(std::get<JsonDocument>(customstyle_tool::parseJson(text)));
}

BuiltStyle builtFrom(const TemporaryDirectory& directory, const std::string& build) {
    return std::get<BuiltStyle>(customstyle_tool::builtStyle(directory.write("build.toml", build)));
}

std::string_view writtenAt(const SourceFile& style, TextRange range) {
    const auto place = style.origin(range).place;
    return place.file->text().substr(place.range.begin, place.range.size());
}

std::string_view nameOf(const SourceFile& style, JsonValue value) {
    return style.text().substr(value.nameRange().begin, value.nameRange().size());
}

// The base has each value and each name as the style has it.
void expectToLeadBack(const SourceFile& style, JsonValue parent) {
    for (const JsonValue value : parent.children()) {
        const bool holdsOthers = value.kind() == JsonKind::Array || value.kind() == JsonKind::Object;
        const std::size_t length = holdsOthers ? 1 : std::string_view::npos;
        EXPECT_EQ(writtenAt(style, value.range()).substr(0, length), value.source().substr(0, length));
        EXPECT_EQ(value.isMember() ? writtenAt(style, value.nameRange()) : "", nameOf(style, value));
        expectToLeadBack(style, value);
    }
}

class RandomBase : public testing::TestWithParam<unsigned> {};

TEST_P(RandomBase, WithoutVariablesIsLaidOutAndOtherwiseAsItWas) {
    const TemporaryDirectory directory;
    RandomFiles files(GetParam());
    const std::string text = randomStyle(files, 20);
    directory.write("base.json", text);
    const BuiltStyle built = builtFrom(directory, "base = \"base.json\"\n");
    EXPECT_EQ(built.file->text(), laidOutText(text));
    const auto document = customstyle_tool::parseJson(built.file->text());
    expectToLeadBack(*built.file, std::get<JsonDocument>(document).root());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomBase, testing::Range(0U, 60U));

TEST(BuiltStyle, HasTheRulesOfItsBaseItsOverlaysAndItsOwn) {
    const TemporaryDirectory directory;
    RandomFiles files(7);
    const std::string base = files.rule();
    const std::string first = files.rule();
    const std::string second = files.rule();
    directory.write("base.json", "[" + base + "]");
    directory.write("first.json", "[" + first + "]");
    directory.write("second.json", "[" + second + "]");
    const BuiltStyle built = builtFrom(
        directory, "base = \"base.json\"\noverlays = [\"first.json\", \"second.json\"]\nrules = [{note = 1}]\n");
    EXPECT_EQ(built.file->text(),
              laidOutText("[\n" + base + ",\n\n" + first + ",\n\n" + second + ",\n\n{\"note\": 1}]\n"));
    EXPECT_EQ(built.file->sources().size(), 4U);
}

struct WinnerCase {
    const char* name;
    const char* base;
    const char* overlay;
    const char* own;
    const char* color;
};

class Palette : public testing::TestWithParam<WinnerCase> {};

TEST_P(Palette, OfTheLastFileThatHasANameWins) {
    const TemporaryDirectory directory;
    const auto paletteOf = [](const char* color) {
        return *color == '\0' ? "" : fmt::format("[palette]\nc = \"{}\"\n", color);
    };
    directory.write("base.toml",
                    fmt::format("rules = [{{stylers = {{color = \"$c\"}}}}]\n{}", paletteOf(GetParam().base)));
    directory.write("over.toml", paletteOf(GetParam().overlay));
    const BuiltStyle built = builtFrom(
        directory, fmt::format("base = \"base.toml\"\noverlays = [\"over.toml\"]\n{}", paletteOf(GetParam().own)));
    EXPECT_EQ(built.file->text(),
              laidOutText(fmt::format("[\n{{\"stylers\": {{\"color\": \"{}\"}}}}]\n", GetParam().color)));
}

INSTANTIATE_TEST_SUITE_P(StyleBuild, Palette,
                         testing::Values(WinnerCase{"TheBaseAlone", "#1", "", "", "#1"},
                                         WinnerCase{"TheOverlayOverTheBase", "#1", "#2", "", "#2"},
                                         WinnerCase{"TheBuildFileOverBoth", "#1", "#2", "#3", "#3"},
                                         WinnerCase{"TheBuildFileOverTheBase", "#1", "", "#3", "#3"},
                                         WinnerCase{"WhatNeedsEscapes", "a\\\"\\\\\\n", "", "", "a\\\"\\\\\\n"}),
                         caseName);

TEST(Variable, StandsAmongTheStylersOnly) {
    const TemporaryDirectory directory;
    directory.write("base.json", R"([{"note": "$c", "featureType": "$c", "Stylers": {"color": "$c", "level": "$c"}}])");
    const BuiltStyle built = builtFrom(directory, "base = \"base.json\"\n[palette]\nc = 12\n");
    EXPECT_EQ(built.file->text(),
              laidOutText("[\n"
                          R"({"note": "$c", "featureType": "$c", "Stylers": {"color": "12", "level": "12"}}])"
                          "\n"));
}

TEST(Variable, LeadsToWhereItIsUsedAndToWhereItIsSet) {
    const TemporaryDirectory directory;
    directory.write("base.json", R"([{"stylers": {"color": "$c"}}])");
    const BuiltStyle built = builtFrom(directory, "base = \"base.json\"\n[palette]\nc = \"#112233\"\n");
    const std::size_t at = built.file->text().find("\"#112233\"");
    const auto origin = built.file->origin({at, at + 9});
    EXPECT_EQ(writtenAt(*built.file, {at, at + 9}), "\"$c\"");
    ASSERT_TRUE(origin.variable);
    EXPECT_EQ(origin.variable->name, "c");
    EXPECT_TRUE(origin.variable->place.file->path().ends_with("build.toml"));
    EXPECT_EQ(origin.variable->place.file->text().substr(origin.variable->place.range.begin, 9), "\"#112233\"");
}

// Positions in TOML count characters.
TEST(Toml, LeadsBackBehindLettersOfSeveralBytes) {
    const TemporaryDirectory directory;
    const BuiltStyle built = builtFrom(
        directory, "# h\u00e4user\r\nrules = [ { note = \"\u00e4\u6f22\U0001F30A\", featureType = \"land\" } ]\r\n");
    const std::size_t at = built.file->text().find("\"land\"");
    EXPECT_EQ(writtenAt(*built.file, {at, at + 6}), "\"land\"");
    const std::size_t name = built.file->text().find("\"featureType\"");
    EXPECT_EQ(writtenAt(*built.file, {name, name + 13}), "featureType");
}

}  // namespace
}  // namespace customstyle_test
