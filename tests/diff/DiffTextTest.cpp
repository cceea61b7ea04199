// The line that a change becomes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "tests/study/LoadedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "tools/diff/DiffText.h"

namespace customstyle_test {
namespace {

struct TextCase {
    const char* name;
    std::vector<RuleBuilder> before;
    std::vector<RuleBuilder> after;
    const char* text;
    const char* json;
};

void PrintTo(const TextCase& textCase, std::ostream* stream) {
    *stream << textCase.name;
}

// Type T has the style ids 1000 + 10 T and one more; railway shares its second one with subway.
std::string mapping() {
    std::string text = testMapping();
    const std::string second = std::to_string(secondStyleId(24));
    text.insert(text.find('[', text.find("\"subway\"")) + 1, second + ", ");
    return text;
}

// A line for each change of the JSON form: the type, the field, what it was and is, and the rules.
std::string jsonLines(const std::string& json) {
    const auto document = nlohmann::ordered_json::parse(json);
    std::string text;
    const auto ruleOf = [](const nlohmann::ordered_json& styler) {
        return styler.is_null() ? "none" : styler["rule"].dump();
    };
    for (const auto& change : document["changes"]) {
        text += change["feature_type"].dump() + " " + change["field"].dump() + " " + change["a"].dump() + " -> " +
                change["b"].dump() + " by " + ruleOf(change["a_from"]) + ", " + ruleOf(change["b_from"]) + "\n";
    }
    return text;
}

class DiffLine : public testing::TestWithParam<TextCase> {};

TEST_P(DiffLine, SaysWhatChangesAndByWhom) {
    const QueriesEnabled enabled;
    const auto before = loadedText(mapping(), styleOf(GetParam().before));
    const auto after = loadedText(mapping(), styleOf(GetParam().after));
    const auto changes = differenceOf(*before, *after);
    EXPECT_EQ(customstyle_tool::diffText(changes, before->mapping()), GetParam().text);
    EXPECT_EQ(jsonLines(customstyle_tool::diffJson(changes, before->mapping())), GetParam().json);
}

RuleBuilder fill(const char* type, const char* color) {
    return rule(type, "geometry.fill").color(color);
}

INSTANTIATE_TEST_SUITE_P(
    Changes, DiffLine,
    testing::Values(
        TextCase{"Nothing", {fill("water", "#aadaff")}, {fill("water", "#000000"), fill("water", "#aadaff")}, "", ""},
        TextCase{"AColour",
                 {fill("water", "#aadaff")},
                 {fill("green", "#123456").level("30x"), fill("water", "#1b2a3a")},
                 "green  fill  level 21: not customised -> #123456  (B rule 1)\n"
                 "water  fill  all levels: #aadaff -> #1b2a3a  (A rule 1, B rule 2)\n",
                 R"("green" "fill" null -> {"rgb":"#123456","alpha":255} by none, 1
"water" "fill" {"rgb":"#aadaff","alpha":255} -> {"rgb":"#1b2a3a","alpha":255} by 1, 2
)"},
        TextCase{"AnAlpha",
                 {fill("water", "#aadaff80")},
                 {fill("water", "#aadaff00")},
                 "water  fill  all levels: #aadaff alpha 80 -> #aadaff alpha 00 (invisible)  (A rule 1, B rule 1)\n",
                 R"("water" "fill" {"rgb":"#aadaff","alpha":128} -> {"rgb":"#aadaff","alpha":0} by 1, 1
)"},
        TextCase{"SomeLevels",
                 {rule("town", "labels").fontsize("9")},
                 {rule("town", "labels").fontsize("9"), rule("town", "labels").fontsize("12").level("10"),
                  rule("town", "labels").fontsize("12").level("11")},
                 "town  font size  level 10: 9 -> 12  (A rule 1, B rule 2)\n"
                 "town  font size  level 11: 9 -> 12  (A rule 1, B rule 3)\n",
                 R"("town" "font_size" 9 -> 12 by 1, 2
"town" "font_size" 9 -> 12 by 1, 3
)"},
        TextCase{"SomeStyleIdsOfAType",
                 {rule("railway", "geometry.fill").weight("5"), fill("subway", "#aadaff")},
                 {rule("railway", "geometry.fill").weight("5"), fill("subway", "#bbdaff")},
                 "subway (1250-1251)  fill  all levels: #aadaff -> #bbdaff  (A rule 2, B rule 2)\n",
                 R"("subway" "fill" {"rgb":"#aadaff","alpha":255} -> {"rgb":"#bbdaff","alpha":255} by 2, 2
)"},
        TextCase{"TheTypeThatAnswers",
                 {rule("subway", "geometry.fill").weight("5")},
                 {rule("subway", "geometry.fill").weight("5"), rule("railway", "labels.icon").visibility("on"),
                  rule("railway", "geometry.fill").weight("5")},
                 "railway (1240)  fill weight  all levels: not customised -> 5  (B rule 3)\n"
                 "subway (1241)  feature type  all levels: subway -> railway  (A rule 1, B rule 3)\n",
                 R"("railway" "fill_weight" null -> 5 by none, 3
"subway" "feature_type" "subway" -> "railway" by 1, 3
)"},
        TextCase{"ARecordWithoutValues",
                 {},
                 {rule("railway", "icon").visibility("on")},
                 "railway  feature type  all levels: not customised -> railway  (B rule 1)\n",
                 R"("railway" "feature_type" null -> "railway" by none, 1
)"},
        TextCase{"AnIcon",
                 {},
                 {rule("companylabel", "icon").visibility("off")},
                 "companylabel  icon  all levels: shown -> hidden  (B rule 1)\n",
                 R"("companylabel" "icon" "shown" -> "hidden" by none, 1
)"},
        TextCase{"TheGrid",
                 {fill("grid", "#010203")},
                 {},
                 "grid  background  all levels: #010203 -> not customised  (A rule 1)\n",
                 R"("grid" "background" {"rgb":"#010203","alpha":255} -> null by 1, none
)"},
        TextCase{"EveryIcon",
                 {},
                 {rule("all", "labels.icon").visibility("on")},
                 "every type  icon  all levels: shown -> hidden  (B rule 1)\n"
                 "style ids outside the mapping  icon  all levels: shown -> hidden  (B rule 1)\n",
                 R"(null "icon" "shown" -> "hidden" by none, 1
null "icon" "shown" -> "hidden" by none, 1
)"},
        TextCase{"TheIconFlagWhereEveryIconIsHiddenAnyway",
                 {rule("all", "labels.icon").visibility("off")},
                 {rule("all", "labels.icon").visibility("off"), rule("companylabel", "icon").visibility("off")},
                 "companylabel  icon flag of the record  all levels: shown -> hidden  (B rule 2)\n",
                 R"("companylabel" "icon_flag_of_the_record" "shown" -> "hidden" by none, 2
)"},
        TextCase{"TheFirstType",
                 {fill("land", "#010203")},
                 {fill("land", "#040506")},
                 "land  fill  all levels: #010203 -> #040506  (A rule 1, B rule 1)\n"
                 "land  background  all levels: #010203 -> #040506  (A rule 1, B rule 1)\n",
                 R"("land" "fill" {"rgb":"#010203","alpha":255} -> {"rgb":"#040506","alpha":255} by 1, 1
"land" "background" {"rgb":"#010203","alpha":255} -> {"rgb":"#040506","alpha":255} by 1, 1
)"}),
    caseName);

TEST(DiffOnEveryMap, TellsOfStyleIdsUnderTwoTypesWhereNothingElseChanges) {
    // A record that is not customised decides about the icon of style ids that another type has, too.
    const std::string hidden = styleOf({rule("transportationlabel", "labels.icon").visibility("off")});
    const std::string covered = styleOf({rule("town", "labels.text.topsurface").visibility("off"),
                                         rule("transportationlabel", "labels.icon").visibility("off")});
    const auto study = [](const std::string& text) { return loadedText(customstyle_tool::Mapping::everyMap(), text); };
    const auto before = study(hidden);
    const auto after = study(covered);
    const auto changes = differenceOf(*before, *after);
    EXPECT_THAT(customstyle_tool::diffText(changes, before->mapping()),
                testing::HasSubstr("(style ids under both town and transportationlabel)"));
    EXPECT_EQ(customstyle_tool::diffSummary(changes, before->mapping()),
              "1 change, compared on every map: give --mapping DIR for yours\n");
    EXPECT_EQ(customstyle_tool::diffSummary({}, before->mapping()), "equal on every map\n");
}

TEST(DiffOnAMapWithoutStyleIds, TellsThatEveryIconIsHidden) {
    const auto before = loadedText("{}", "[]");
    const auto after = loadedText("{}", styleOf({rule("all", "icon").visibility("off")}));
    EXPECT_FALSE(differenceOf(*before, *after).empty());
}

}  // namespace
}  // namespace customstyle_test
