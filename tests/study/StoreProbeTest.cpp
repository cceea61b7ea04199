// Whose record answers the narrow questions.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/study/LoadedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/StyleBuilder.h"
#include "tools/study/StoreProbe.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using customstyle_tool::StoreProbe;

constexpr int kLand = _orvik_framework::EMAPCUSTOMSTYLE_LAND;
constexpr int kManmade = _orvik_framework::EMAPCUSTOMSTYLE_MANMADE;  // a parent
constexpr int kMedical = _orvik_framework::EMAPCUSTOMSTYLE_MEDICAL;
constexpr int kPoiLabel = _orvik_framework::EMAPCUSTOMSTYLE_POILABEL;  // a parent

StoreProbe probeOf(const std::vector<RuleBuilder>& rules) {
    const std::string mapping = customstyle_tool::mappingText([](int type) {
        return type == kLand ? std::vector{9, 8} : std::vector{7};
    });
    return StoreProbe(*loadedText(mapping, styleOf(rules)));
}

struct IconTypesCase {
    const char* name;
    std::vector<RuleBuilder> rules;
    std::vector<int> types;
};

class IconTypes : public testing::TestWithParam<IconTypesCase> {};

TEST_P(IconTypes, AreThoseThatAreAskedWhicheverIsHidden) {
    EXPECT_EQ(probeOf(GetParam().rules).iconTypes(7, 9, {kManmade, kMedical, kPoiLabel}), GetParam().types);
}

const RuleBuilder kHidesManmade = rule("manmade", "icon").visibility("off");
const RuleBuilder kHidesMedical = rule("medical", "icon").visibility("off");
const RuleBuilder kHidesPois = rule("poilabel", "icon").visibility("off");

INSTANTIATE_TEST_SUITE_P(
    StoreProbe, IconTypes,
    testing::Values(IconTypesCase{"NoneWithoutRules", {}, {}}, IconTypesCase{"TheOnlyOne", {kHidesManmade}, {kManmade}},
                    IconTypesCase{"BothParents", {kHidesPois, kHidesManmade}, {kManmade, kPoiLabel}},
                    IconTypesCase{
                        "NoParentWhereAnotherTypeAnswers", {kHidesManmade, kHidesMedical, kHidesPois}, {kMedical}}),
    caseName);

struct LandCase {
    const char* name;
    std::vector<RuleBuilder> rules;
    std::optional<int> styleId;  // at level 9
};

class LandStyleId : public testing::TestWithParam<LandCase> {};

TEST_P(LandStyleId, IsOfTheFirstRecordInEffect) {
    EXPECT_EQ(probeOf(GetParam().rules).landStyleId(9), GetParam().styleId);
}

const RuleBuilder kColorsLand = rule("land", "fill").color("#112233");

INSTANTIATE_TEST_SUITE_P(
    StoreProbe, LandStyleId,
    testing::Values(LandCase{"AtAllLevels", {kColorsLand}, 9},
                    LandCase{"AtTheLevel", {RuleBuilder(kColorsLand).level("9")}, 9},
                    LandCase{"AtAnotherLevel", {RuleBuilder(kColorsLand).level("10")}, std::nullopt},
                    LandCase{"OfAnotherType", {rule("medical", "fill").color("#112233")}, std::nullopt}),
    caseName);

}  // namespace
}  // namespace customstyle_test
