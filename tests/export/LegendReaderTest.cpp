#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "tests/support/CaseName.h"
#include "tools/export/LegendReader.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::ElementsAre;
using testing::HasSubstr;

std::variant<Legend, LegendProblems> readText(const std::string& text) {
    const SourceFile file("legend.json", text);
    return readLegend(file);
}

// A legend with one layer, which a case spoils.
std::string legendWith(const std::string& layer, const std::string& more = "") {
    return "{\"version\": 1, \"name\": \"mine\", \"source\": {\"type\": \"vector\"}, \"text\": [\"get\", \"name\"],\n"
           "\"fonts\": {\"regular\": [\"Sans\"], \"bold\": [\"Sans Bold\"]}," +
           more + "\n\"backgrounds\": {\"land\": \"#ffffff\", \"grid\": \"#eeeeee\"}, \"layers\": [\n" + layer + "]}";
}

std::string waterWith(const std::string& members) {
    return legendWith(R"({"type": "water", "kind": "area", "source_layer": "water", )" + members + "}");
}

Legend requireLegend(const std::variant<Legend, LegendProblems>& read) {
    if (const auto* const legend = std::get_if<Legend>(&read)) return *legend;
    ADD_FAILURE() << std::get<LegendProblems>(read).front();
    return {};
}

struct Case {
    const char* name;
    std::string text;
    const char* problem;
};

class LegendProblem : public testing::TestWithParam<Case> {};

TEST_P(LegendProblem, IsNamedWithItsPlaceAndRemedy) {
    const auto read = readText(GetParam().text);
    ASSERT_TRUE(std::holds_alternative<LegendProblems>(read));
    EXPECT_THAT(std::get<LegendProblems>(read), ElementsAre(GetParam().problem));
}

const std::string kLine = R"({"type": "highway", "kind": "line", "source_layer": "roads")";

INSTANTIATE_TEST_SUITE_P(
    LegendReader, LegendProblem,
    testing::Values(
        Case{"NothingAtAll", "", "legend.json: is empty; a legend holds JSON"},
        Case{"NotJson", "{\"version\": 1,}",
             "legend.json:1:14: is not JSON: a trailing comma: the last member has no comma after it"},
        Case{"AList", "[]", "legend.json:1:1: a legend is an object {...}"},
        Case{"TextAfterTheEnd", waterWith("\"from\": 4") + "\nmore",
             "legend.json:5:1: text after the end of the legend; remove it"},
        Case{"AnUnknownVersion", "{\"version\": 2, " + waterWith("\"from\": 4").substr(15),
             "legend.json:1:13: unknown version; this program reads version 1"},
        Case{"AMemberThatMisses", legendWith(R"({"type": "water", "kind": "area"})"),
             "legend.json:4:1: a layer needs a member \"source_layer\""},
        Case{"AMemberThatIsMisspelt", waterWith("\"fliter\": []"),
             "legend.json:4:60: unknown member \"fliter\" of a layer; did you mean \"filter\"?"},
        Case{"AMemberTwice", waterWith("\"from\": 4, \"from\": 5"),
             "legend.json:4:71: a layer has a second member \"from\"; remove one"},
        Case{"AnUnknownType", legendWith(R"({"type": "highwy", "kind": "line", "source_layer": "roads"})"),
             "legend.json:4:10: unknown feature type \"highwy\"; did you mean \"highway\"?"},
        Case{"TheWildcardAsType", legendWith(R"({"type": "all", "kind": "line", "source_layer": "roads"})"),
             "legend.json:4:10: unknown feature type \"all\"; all names: customstyle list types"},
        Case{"AnUnknownKind", legendWith(R"({"type": "water", "kind": "lines", "source_layer": "a"})"),
             "legend.json:4:27: unknown kind \"lines\"; did you mean \"line\"?"},
        Case{"ATypeThatIsNoText", legendWith(R"({"type": 2, "kind": "line", "source_layer": "a"})"),
             "legend.json:4:10: \"type\" is not the name of a feature type"},
        Case{"AFilterThatIsNoExpression", waterWith("\"filter\": \"water\""),
             "legend.json:4:70: \"filter\" is not an expression [...]"},
        Case{"AFilterThatOthersCannotRead", waterWith("\"filter\": [\"==\", 01, 1]"),
             "legend.json:4:70: is not JSON as other programs read it; look for numbers like 01"},
        Case{"ALevelBeyondAll", waterWith("\"from\": 25"), "legend.json:4:68: is not a level from 0 to 24"},
        Case{"ALevelWithAFraction", waterWith("\"to\": 4.5"), "legend.json:4:66: is not a level from 0 to 24"},
        Case{"LevelsInTheWrongOrder", waterWith("\"from\": 9, \"to\": 8"),
             "legend.json:4:1: \"from\" is above \"to\"; exchange them"},
        Case{"ANamedColour", waterWith("\"look\": {\"fill\": \"red\"}"),
             "legend.json:4:77: is not a colour; write \"#rrggbb\" or \"#rrggbbaa\""},
        Case{"AColourWithASign", waterWith("\"look\": {\"fill\": \"#-12345\"}"),
             "legend.json:4:77: is not a colour; write \"#rrggbb\" or \"#rrggbbaa\""},
        Case{"AnUnknownLook", waterWith("\"look\": {\"fil\": \"#ffffff\"}"),
             "legend.json:4:69: unknown member \"fil\" of \"look\"; did you mean \"fill\"?"},
        Case{"ALookOfAnotherKind", waterWith("\"look\": {\"roof\": \"#ffffff\"}"),
             "legend.json:4:69: \"roof\" means nothing for the kind \"area\"; remove it"},
        Case{"AMemberOfAnotherKind", waterWith("\"height\": 4"),
             "legend.json:4:60: \"height\" means nothing for the kind \"area\"; remove it"},
        Case{"AWidthBelowZero", legendWith(kLine + R"(, "look": {"width": -1}})"),
             "legend.json:4:80: is not a size in pixels"},
        Case{"ALevelThatIsNoNumber", legendWith(kLine + R"(, "look": {"width": {"x": 1}}})"),
             "legend.json:4:81: \"x\" is not a level from 0 to 24"},
        Case{"AKindThatIsNoText", legendWith(R"({"type": "water", "kind": 2, "source_layer": "a"})"),
             "legend.json:4:27: \"kind\" is not a kind"},
        Case{"FontsThatAreNoList",
             legendWith(kLine + "}", "\n\"border\": 1,").replace(legendWith("").find("[\"Sans\"]"), 8, "\"Sans\""),
             "legend.json:2:22: \"regular\" is not a list of font names"},
        Case{"ABorderThatIsNoNumber", legendWith(kLine + "}", " \"border\": \"thin\","),
             "legend.json:2:66: \"border\" is not a width in pixels"},
        Case{"StyleIdsThatAreNoList", waterWith("\"ids\": 7"), "legend.json:4:67: \"ids\" is not a list of style ids"},
        Case{"AStyleIdThatIsNoNumber", waterWith("\"ids\": [\"a\"]"),
             "legend.json:4:68: this is not a style id from 0 to 2147483647"},
        Case{"AStyleIdWithAFraction", waterWith("\"ids\": [1.5]"), "legend.json:4:68: is not a whole number"},
        Case{"ALookThatIsNoObject", waterWith("\"look\": 1"),
             "legend.json:4:68: \"look\" is not an object of colours and widths"},
        Case{"ATextOfAnotherKind", waterWith("\"text\": [\"get\", \"n\"]"),
             "legend.json:4:60: \"text\" means nothing for the kind \"area\"; remove it"},
        Case{"ABuildingBeyondTheSky",
             legendWith(R"({"type": "building", "kind": "building", "source_layer": "b", "height": 10001})"),
             "legend.json:4:73: is not a height in metres"},
        Case{"ALevelAboveAll", waterWith("\"to\": 25"), "legend.json:4:66: is not a level from 0 to 24"},
        Case{"ALevelOfALookAboveAll", legendWith(kLine + R"(, "look": {"width": {"25": 1}}})"),
             "legend.json:4:81: \"25\" is not a level from 0 to 24"},
        Case{"ALevelOfALookBelowZero", legendWith(kLine + R"(, "look": {"width": {"-1": 1}}})"),
             "legend.json:4:81: \"-1\" is not a level from 0 to 24"},
        Case{"ALevelOfALookWithAZero", legendWith(kLine + R"(, "look": {"width": {"04": 1}}})"),
             "legend.json:4:81: \"04\" is not a level from 0 to 24"},
        Case{"OneLevelOfALookThatIsNone", legendWith(kLine + R"(, "look": {"width": {"4": 1, "x": 2, "5": 3}}})"),
             "legend.json:4:89: \"x\" is not a level from 0 to 24"},
        Case{"ANameThatIsNoText",
             "{\"version\": 1, \"name\": 2, \"source\": {}, \"layers\": [], \"backgrounds\": {\"land\": \"#ffffff\", "
             "\"grid\": \"#ffffff\"}}",
             "legend.json:1:24: \"name\" is not a string"},
        Case{"ASourceThatIsNoObject",
             "{\"version\": 1, \"name\": \"a\", \"source\": 2, \"layers\": [], \"backgrounds\": {\"land\": "
             "\"#ffffff\", \"grid\": \"#ffffff\"}}",
             "legend.json:1:39: \"source\" is not a source {\"type\": \"vector\", ...}"},
        Case{"LayersThatAreNoList",
             "{\"version\": 1, \"name\": \"a\", \"source\": {}, \"layers\": 2, \"backgrounds\": {\"land\": "
             "\"#ffffff\", \"grid\": \"#ffffff\"}}",
             "legend.json:1:53: \"layers\" is not a list of layers"},
        Case{"AnIconThatIsNoText", legendWith(R"({"type": "city", "kind": "label", "source_layer": "a", "icon": 5})"),
             "legend.json:4:64: \"icon\" is not a string"},
        Case{"LevelsThatRepeat", legendWith(kLine + R"(, "look": {"width": {"4": 1, "4": 2}}})"),
             "legend.json:4:89: levels ascend here; move this one up"},
        Case{"LevelsThatDescendLater", legendWith(kLine + R"(, "look": {"width": {"4": 1, "9": 2, "6": 3}}})"),
             "legend.json:4:97: levels ascend here; move this one up"},
        Case{"LevelsThatDescend", legendWith(kLine + R"(, "look": {"width": {"9": 1, "4": 2}}})"),
             "legend.json:4:89: levels ascend here; move this one up"},
        Case{"LevelsWithoutAny", legendWith(kLine + R"(, "look": {"width": {}}})"),
             "legend.json:4:80: is empty; write levels with their values: {\"4\": ..., \"10\": ...}"},
        Case{"ABuildingWithoutHeight", legendWith(R"({"type": "building", "kind": "building", "source_layer": "b"})"),
             "legend.json:4:1: a building needs a member \"height\": metres, or an expression for them"},
        Case{"TwoLayersOfOneName", legendWith(kLine + "},\n" + kLine + "}"),
             "legend.json:5:1: a second layer of this type and kind; give it a \"name\" of its own"},
        Case{"ANegativeStyleId", waterWith("\"ids\": [-1]"),
             "legend.json:4:68: is not a style id from 0 to 2147483647"},
        Case{"StyleIdsWithoutAny", waterWith("\"ids\": []"),
             "legend.json:4:67: is empty; leave it out for all style ids of the type"},
        Case{"LabelsWithoutFonts",
             "{\"version\": 1, \"name\": \"a\", \"source\": {}, \"backgrounds\": {\"land\": \"#ffffff\", \"grid\": "
             "\"#ffffff\"}, \"text\": [\"get\", \"n\"], \"layers\": [{\"type\": \"city\", \"kind\": \"label\", "
             "\"source_layer\": \"a\"}]}",
             "legend.json:1:1: a legend with labels needs a member \"fonts\""}),
    caseName);

TEST(LegendReader, NamesAllProblemsInTheirOrder) {
    const auto read = readText(legendWith("{\"type\": \"lake\", \"kind\": \"pond\", \"source_layer\": \"\"}"));
    ASSERT_TRUE(std::holds_alternative<LegendProblems>(read));
    EXPECT_THAT(std::get<LegendProblems>(read),
                ElementsAre(HasSubstr(":4:10: unknown feature type"), HasSubstr(":4:26: unknown kind"),
                            HasSubstr("is empty; write a name")));
}

TEST(LegendReader, ReadsValuesAtTheEndsOfTheirRanges) {
    const auto read = readText(legendWith(
        R"({"type": "land", "kind": "area", "source_layer": "a", "from": 24, "to": 24, "look": {"fill": {"0": "#000000", "24": "#ffffff"}}},
           {"type": "building", "kind": "building", "source_layer": "b", "height": 10000, "ids": [0, 2147483647]})"));
    const Legend legend = requireLegend(read);
    EXPECT_EQ(legend.layers.at(0).featureType, 0);
    EXPECT_EQ(legend.layers.at(0).firstLevel, 24);
    EXPECT_EQ(legend.layers.at(0).lastLevel, 24);
    EXPECT_EQ(legend.layers.at(0).look.color(LookKey::Fill, 24), 0xffffffffU);
    EXPECT_EQ(legend.layers.at(1).height, 10000);
    EXPECT_THAT(legend.layers.at(1).ids, ElementsAre(0U, 2147483647U));
}

TEST(LegendReader, ReadsIconsByNameAndByExpression) {
    const auto read = readText(legendWith(
        R"({"type": "city", "kind": "label", "source_layer": "a", "icon": "dot"},
           {"type": "town", "kind": "label", "source_layer": "a", "icon": ["get", "maki"]})"));
    EXPECT_EQ(requireLegend(read).layers.at(0).icon, "dot");
    EXPECT_EQ(requireLegend(read).layers.at(1).icon, LegendJson({"get", "maki"}));
}

TEST(LegendReader, ReadsTheLegendsThatComeAlong) {
    EXPECT_THAT(builtInLegendNames(), ElementsAre("openmaptiles", "studio"));
    for (const std::string& name : builtInLegendNames()) {
        const auto read = readLegend(*builtInLegend(name));
        EXPECT_EQ(requireLegend(read).name, name);
        EXPECT_GT(requireLegend(read).layers.size(), 50U);
    }
    EXPECT_EQ(builtInLegend("mine"), nullptr);
}

TEST(LegendReader, ReadsValuesByLevel) {
    const auto read = readText(legendWith(kLine + R"(, "look": {"width": {"6": 1.5, "12": 3}, "fill": "#11223380"}})"));
    const Look look = requireLegend(read).layers.at(0).look;
    EXPECT_EQ(look.number(LookKey::Width, 0), 1.5);
    EXPECT_EQ(look.number(LookKey::Width, 11), 1.5);
    EXPECT_EQ(look.number(LookKey::Width, 12), 3);
    EXPECT_EQ(look.number(LookKey::Width, 24), 3);
    EXPECT_EQ(look.color(LookKey::Fill, 9), 0x80332211U);
    EXPECT_EQ(look.number(LookKey::StrokeWidth, 9), 0);
}

}  // namespace
}  // namespace customstyle_test
