// What leaving out a rule or a styler changes, alone and together.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>

#include "tests/study/LoadedText.h"
#include "tests/study/Sources.h"
#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/Effects.h"
#include "tools/study/Parts.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using _orvik_framework::EMAPCUSTOMSTYLE_GRID;
using _orvik_framework::EMAPCUSTOMSTYLE_OTHERLABEL;
using _orvik_framework::EMAPCUSTOMSTYLE_WATER;
using _orvik_framework::kStyleSlotCount;
using testing::ElementsAre;
using testing::IsEmpty;

// "1" for an idle rule, "1 color" for an idle styler.
std::vector<std::string> idleOf(const StyleStudy& study, const ProofOptions& options = {}) {
    std::vector<std::string> idle;
    for (const ProvenEffect& effect : proveEffects(study, options).effects) {
        if (!effect.isIdle) continue;
        const std::string styler = effect.step ? " " + study.steps()[*effect.step].styler : "";
        idle.push_back(std::to_string(effect.rule + 1) + styler);
    }
    return idle;
}

std::vector<std::string> idleOf(std::initializer_list<RuleBuilder> rules) {
    return idleOf(*loadedText(testMapping(), styleOf(rules)));
}

TEST(Idle, IsARuleThatIsOverwritten) {
    EXPECT_THAT(idleOf({rule("water", "fill").color("#111111"), rule("water", "fill").color("#222222")}),
                ElementsAre("1 color"));
}

TEST(Idle, IsOnlyTheSecondOfTwoRulesThatSayTheSame) {
    EXPECT_THAT(idleOf({rule("water", "fill").color("#111111"), rule("water", "fill").color("#111111")}),
                ElementsAre("2 color"));
}

TEST(Idle, IsARefusedRule) {
    EXPECT_THAT(idleOf({rule("lake", "fill").color("#111111")}), ElementsAre("1 "));
}

TEST(Idle, IsEachStylerOfARuleForItself) {
    EXPECT_THAT(idleOf({rule("water", "geometry").color("#111111").weight("3").visibility("off")}),
                ElementsAre("1 color"))
        << "hiding overwrites the colour";
}

TEST(Idle, IsARuleForAStyleIdThatNoQuestionFindsOnly) {
    EXPECT_THAT(idleOf(*loadedText(R"({"land":[],"green":[-5]})", styleOf({rule("green", "fill").color("#111111")}))),
                ElementsAre("1 color"));
    EXPECT_THAT(idleOf(*loadedText(R"({"land":[],"green":[-5,7]})", styleOf({rule("green", "fill").color("#111111")}))),
                IsEmpty());
}

TEST(Idle, IsOnlyTheSecondOfTwoRulesThatHideEveryIcon) {
    EXPECT_THAT(idleOf({rule("all", "icon").visibility("off"), rule("all", "icon").visibility("off")}),
                ElementsAre("2 visibility"));
}

// The first two draw nothing, but each leaves a style of its type behind.
TEST(Idle, IsWhatChangesNothingTogetherWithAllTheRest) {
    EXPECT_THAT(idleOf({rule("highwaylabel", "labels.text.topsurface").color("#112233"),
                        rule("hotellabel", "labels.text.topsurface").color("#112233"),
                        rule("water", "fill").color("#111111").weight("3"),
                        rule("water", "fill").color("#111111").weight("3")}),
                ElementsAre("1 color", "2 color", "4"));
}

TEST(Idle, IsAGridColourThatIsOverwrittenOrRepeated) {
    EXPECT_THAT(idleOf({rule("grid", "fill").color("#111111"), rule("grid", "fill").color("#222222"),
                        rule("grid", "fill").color("#222222")}),
                ElementsAre("1 color", "3 color"));
}

// No question finds the style id of the grid's records, so that only its colour counts.
std::string mappingWithoutGrid() {
    return mappingText([](int type) { return std::vector{type == EMAPCUSTOMSTYLE_GRID ? -5 : 1000 + type}; });
}

struct SettingCase {
    const char* name;
    std::vector<RuleBuilder> rules;
    std::vector<std::string> idle;
};

const RuleBuilder kHidesEveryIcon = rule("all", "icon").visibility("off");

RuleBuilder gridOf(const char* color) {
    return rule("grid", "fill").color(color);
}

// Colours without opacity are 0 in the store.
const SettingCase kSettings[] = {
    {"NotOfAGridColourOfZero", {gridOf("#00000000")}, {}},
    {"NotOfAGridColourOfZeroAfterAnother", {gridOf("#111111"), gridOf("#00000000")}, {"1 color"}},
    {"OfAWholeRuleThatRepeatsAGridColourOfZero",
     {gridOf("#00000000"), rule("grid", "all").color("#00000000").visibility("off")},
     {"2"}},
    {"NotOfAGridColourThatReturns",
     {gridOf("#111111"), gridOf("#222222"), rule("grid", "all").color("#111111").visibility("off")},
     {"1 color", "2 color", "3 visibility"}},
    {"OfEachRuleButTheFirstThatHidesEveryIcon",
     {kHidesEveryIcon, kHidesEveryIcon, kHidesEveryIcon},
     {"2 visibility", "3 visibility"}},
};

class IdleSetting : public testing::TestWithParam<SettingCase> {};

TEST_P(IdleSetting, IsFound) {
    EXPECT_EQ(idleOf(*loadedText(mappingWithoutGrid(), styleOf(GetParam().rules))), GetParam().idle);
}

INSTANTIATE_TEST_SUITE_P(Effects, IdleSetting, testing::ValuesIn(kSettings), caseName);

TEST(Idle, IsAWholeRuleThatRepeatsTheGridColour) {
    EXPECT_THAT(
        idleOf(*loadedText(mappingWithoutGrid(), styleOf({rule("grid", "fill").color("#111111"),
                                                          rule("grid", "all").color("#111111").visibility("off"),
                                                          rule("grid", "all").visibility("off")}))),
        ElementsAre("2", "3 visibility"));
}

TEST(Idle, IsNoRuleThatHidesEveryIconOnAMapWithoutStyleIds) {
    EXPECT_THAT(idleOf(*loadedText("{}", styleOf({rule("all", "icon").visibility("off")}))), IsEmpty());
}

TEST(Proofs, TellTheLevelsOnRequest) {
    const auto study = loadedText(testMapping(), styleOf({rule("water", "fill").color("#222222").level("9"),
                                                          rule("water", "fill").color("#111111")}));
    const Proofs proofs = proveEffects(*study, {.details = true});
    ASSERT_EQ(proofs.effects.size(), 2U);
    EXPECT_EQ(levelsText(proofs.effects[0].effect.styles), "9");
    EXPECT_EQ(levelsText(proofs.effects[1].effect.styles), "4-8, 10-21, other");
}

// At level 9 the highway has a style of its own, which was there before the one for all levels; its label type has
// none.
TEST(Proofs, TellTheLevelsOfAllTypesTogether) {
    const auto study = loadedText(testMapping(), styleOf({rule("highway", "geometry").color("#111111").level("9"),
                                                          rule("highway", "labels").color("#222222")}));
    const Proofs proofs = proveEffects(*study, {.details = true});
    ASSERT_EQ(proofs.effects.size(), 2U);
    EXPECT_EQ(levelsText(proofs.effects[0].effect.styles), "9");
    EXPECT_EQ(levelsText(proofs.effects[1].effect.styles), "all levels");
}

// The last rule hides the geometry of the highway, whose icon is hidden already, and the icon of its label type.
TEST(Proofs, TellOfIconsWhereStylesChangeToo) {
    const auto study = loadedText(
        testMapping(), styleOf({rule("highway", "icon").visibility("off"), rule("highway", "all").visibility("off")}));
    const Proofs proofs = proveEffects(*study, {.details = true});
    ASSERT_EQ(proofs.effects.size(), 2U);
    EXPECT_EQ(levelsText(proofs.effects[1].effect.styles), "all levels");
    EXPECT_EQ(levelsText(proofs.effects[1].effect.icons), "all levels");
}

TEST(Proofs, LeaveTheGlobalSwitchAsItWas) {
    g_zrsdk_custom_style_enable = 0;
    idleOf({rule("lake", "fill").color("#111111")});
    EXPECT_EQ(g_zrsdk_custom_style_enable, 0);
}

TEST(Proofs, EndWhenTheTimeIsUp) {
    const auto study = loadedText(
        testMapping(), styleOf({rule("water", "fill").color("#222222"), rule("water", "fill").color("#111111")}));
    const Proofs proofs = proveEffects(*study, {.isTimeUp = [] { return true; }});
    EXPECT_EQ(proofs.effects.size(), 1U);
    EXPECT_EQ(proofs.unproven, 1U);
}

// The first three rules are without effect from the last to the first; the time is up when they are tried from the
// first.
TEST(Proofs, CallNothingIdleThatThereWasTimeToTryInOneOrderOnly) {
    const auto study = loadedText(
        testMapping(), styleOf({rule("water", "fill").color("#444444"), rule("water", "fill").color("#333333"),
                                rule("water", "fill").color("#222222"), rule("water", "fill").color("#111111")}));
    int asked = 0;
    const Proofs proofs = proveEffects(*study, {.isTimeUp = [&] { return ++asked > 4; }});
    EXPECT_EQ(proofs.unproven, 3U);
    ASSERT_EQ(proofs.effects.size(), 1U);
    EXPECT_EQ(proofs.effects[0].rule, 3U);
}

// One style id belongs to all types. Each of these rules draws nothing, but makes its type answer for the icon, and
// shows it: without all of them the last rule hides it.
std::unique_ptr<StyleStudy> iconShownByMany() {
    const std::string mapping = mappingText([](int) { return std::vector{7}; });
    std::vector<std::string> rules;
    for (const char* type : {"highwaylabel", "subwaylabel", "hotellabel", "educationlabel"}) {
        rules.push_back(rule(type, "labels.text.topsurface").color("#112233").json());
    }
    rules.push_back(rule("poilabel", "icon").visibility("off").json());
    return loadedText(mapping, fmt::format("[{}]", fmt::join(rules, ",")));
}

using Progress = std::vector<std::pair<std::size_t, std::size_t>>;

Progress progressOf(const StyleStudy& study) {
    Progress progress;
    proveEffects(study, {.progress = [&](std::size_t done, std::size_t all) { progress.emplace_back(done, all); }});
    return progress;
}

TEST(Proofs, TellTheirProgress) {
    const auto study = loadedText(
        testMapping(), styleOf({rule("water", "fill").color("#222222"), rule("water", "fill").color("#111111")}));
    EXPECT_EQ(progressOf(*study), (Progress{{1, 2}, {2, 2}}));
}

TEST(Proofs, TellNoProgressBeyondTheEnd) {
    EXPECT_EQ(progressOf(*iconShownByMany()).back(), std::pair(std::size_t{5}, std::size_t{5}))
        << "four of them are proven twice";
}

TEST(Proofs, KeepOneOfThoseThatCoverForEachOther) {
    EXPECT_THAT(idleOf(*iconShownByMany()), testing::SizeIs(3));
}

// Rules 2 and 3 are proven by themselves first, because they share records.
TEST(Proofs, KeepTheFirstOfThoseThatCoverForEachOther) {
    const std::string mapping = mappingText([](int) { return std::vector{7}; });
    EXPECT_THAT(idleOf(*loadedText(mapping, styleOf({rule("hotellabel", "labels.text.topsurface").color("#112233"),
                                                     rule("highwaylabel", "labels.text.topsurface").color("#112233"),
                                                     rule("highwaylabel", "labels.text.topsurface").color("#112233"),
                                                     rule("poilabel", "icon").visibility("off")}))),
                ElementsAre("2 color", "3 color"));
}

TEST(Proofs, OfThoseThatCoverForEachOtherEndWhenTheTimeIsUp) {
    const auto study = iconShownByMany();
    int asked = 0;
    // Each alone is proven in time, of the four together only the first is.
    const Proofs proofs = proveEffects(*study, {.isTimeUp = [&] { return ++asked > 5; }});
    EXPECT_EQ(std::ranges::count(proofs.effects, true, &ProvenEffect::isIdle), 1);
    EXPECT_EQ(proofs.unproven, 3U);
    EXPECT_EQ(proofs.effects.size(), 2U);
}

// One style id belongs to all types. Rules 1 and 2 draw nothing, but make their types answer for the icon, and show it.
// Rule 3 hides it for a type that is asked later, and rule 4 makes this type draw nothing. So rules 1 and 2 can only go
// after rule 3, or one of them has to stay.
struct CoverCase {
    const char* name;
    const char* firstType;
    const char* secondType;
    const char* hiddenType;
};

const CoverCase kCovers[] = {
    {"InDifferentParts", "highwaylabel", "roadlabel", "hotellabel"},
    {"InOnePart", "highway", "highway", "highwaylabel"},  // the first two rules address the label type, too
};

class Cover : public testing::TestWithParam<CoverCase> {
protected:
    static std::unique_ptr<StyleStudy> style() {
        const auto& [name, firstType, secondType, hiddenType] = GetParam();
        return loadedText(mappingText([](int) { return std::vector{7}; }),
                          styleOf({rule(firstType, "labels.text.topsurface").color("#112233"),
                                   rule(secondType, "labels.text.topsurface").color("#112233"),
                                   rule(hiddenType, "icon").visibility("off"),
                                   rule(hiddenType, "labels.text.topsurface").color("#112233")}));
    }
};

TEST_P(Cover, IsNotIdleOnceTheOtherOneThatCoversIsLeftOut) {
    EXPECT_THAT(idleOf(*style()), ElementsAre("1 color", "3 visibility"));
}

TEST_P(Cover, IsNotIdleWhateverTimeThereIs) {
    const auto study = style();
    for (int limit = 0; limit < 20; ++limit) {
        int asked = 0;
        EXPECT_THAT(idleOf(*study, {.isTimeUp = [&] { return ++asked > limit; }}),
                    testing::Not(testing::IsSupersetOf({"1 color", "2 color", "3 visibility"})))
            << limit;
    }
}

INSTANTIATE_TEST_SUITE_P(Proofs, Cover, testing::ValuesIn(kCovers), caseName);

TEST(Proofs, LeaveOutNothingThatIsKept) {
    const auto study = loadedText(
        testMapping(), styleOf({rule("water", "fill").color("#222222"), rule("water", "fill").color("#111111")}));
    const Proofs proofs = proveEffects(*study, {.kept = {true, false}});
    ASSERT_EQ(proofs.effects.size(), 1U);
    EXPECT_EQ(proofs.effects[0].rule, 1U);
}

TEST(Proofs, FindAWholeRuleIdleBeforeOneThatIsKept) {
    const auto study = loadedText(testMapping(), styleOf({rule("water", "fill").color("#111111").weight("3"),
                                                          rule("water", "fill").color("#222222").weight("4")}));
    EXPECT_THAT(idleOf(*study, {.kept = {false, false, true, true}}), ElementsAre("1"));
}

// ---- Full stores ----------------------------------------------------------------------------------------------------

// Each takes one slot and draws nothing: a type's label type, which they address as well, comes before it. The first
// types are left to the tests.
std::vector<std::string> rulesForAllSlotsButOne() {
    std::vector<std::string> rules;
    for (int type = EMAPCUSTOMSTYLE_OTHERLABEL; rules.size() + 1 < kStyleSlotCount; --type) {
        for (int level = 3; level <= 21 && rules.size() + 1 < kStyleSlotCount; ++level) {
            RuleBuilder filler = rule(catalogue().GetFeatureTypeName(type), "labels.text.topsurface").color("#112233");
            if (level > 3) filler.level(std::to_string(level));
            rules.push_back(filler.json());
        }
    }
    return rules;
}

struct LastSlotCase {
    const char* name;
    RuleBuilder refused;
    const char* levels;  // at which the refused rule would have an effect
};

const LastSlotCase kLastSlots[] = {
    {"AtALevel", rule("water", "fill").color("#111111").level("9"), "9"},
    {"AtAllLevels", rule("water", "fill").color("#111111"), "all levels"},
};

class LastSlot : public testing::TestWithParam<LastSlotCase> {};

TEST_P(LastSlot, GoesToARefusedRuleOnceTheOneThatTookItIsLeftOut) {
    std::vector<std::string> rules = rulesForAllSlotsButOne();
    const std::size_t fillers = rules.size();
    rules.push_back(rule("green", "labels.text.topsurface").color("#112233").json());
    rules.push_back(GetParam().refused.json());
    const auto study = loadedText(testMapping(), fmt::format("[{}]", fmt::join(rules, ",")));
    ASSERT_THAT(study->steps().back().refused, testing::SizeIs(1));
    const Proofs proofs = proveEffects(*study, {.kept = std::vector<bool>(fillers, true), .details = true});
    ASSERT_EQ(proofs.effects.size(), 2U);
    EXPECT_EQ(levelsText(proofs.effects[0].effect.styles), GetParam().levels);
    EXPECT_FALSE(proofs.effects[0].isIdle);
    EXPECT_TRUE(proofs.effects[1].isIdle);
}

INSTANTIATE_TEST_SUITE_P(Proofs, LastSlot, testing::ValuesIn(kLastSlots), caseName);

struct FreedSlotsCase {
    const char* name;
    std::vector<RuleBuilder> last;
    std::vector<std::string> idle;
};

// No question finds the style id of the water. Rule 1240 takes the last slot but one, and rule 1241 the last one.
const RuleBuilder kTakesTheLastSlot = rule("water", "fill").color("#111111");
const RuleBuilder kTakesTheFirstFreedSlot = rule("water", "fill").color("#222222").level("9");
const RuleBuilder kShowsOnceItHasASlot = rule("green", "fill").color("#333333");

const FreedSlotsCase kFreedSlots[] = {
    {"ToTheRuleThatShows", {kTakesTheLastSlot, kTakesTheFirstFreedSlot, kShowsOnceItHasASlot}, {"1241 color"}},
    {"ToALaterRuleForTheKeyThatIsLeftOut",
     {kTakesTheLastSlot, kTakesTheFirstFreedSlot, rule("water", "fill").color("#444444"), kShowsOnceItHasASlot},
     {"1240 color", "1241 color"}},
};

class FreedSlots : public testing::TestWithParam<FreedSlotsCase> {};

TEST_P(FreedSlots, OfIdleRulesGo) {
    std::vector<std::string> rules = rulesForAllSlotsButOne();
    std::vector<bool> kept(rules.size(), true);
    for (const RuleBuilder& each : GetParam().last) rules.push_back(each.json());
    kept.back() = false;
    kept.push_back(false);
    kept.resize(rules.size(), true);
    const std::string mapping =
        mappingText([](int type) { return std::vector{type == EMAPCUSTOMSTYLE_WATER ? -5 : 7}; });
    const auto study = loadedText(mapping, fmt::format("[{}]", fmt::join(rules, ",")));
    EXPECT_EQ(idleOf(*study, {.kept = kept}), GetParam().idle);
}

INSTANTIATE_TEST_SUITE_P(Proofs, FreedSlots, testing::ValuesIn(kFreedSlots), caseName);

// No question finds the style ids of the water and the green. Rule 1242 takes the last slot, so that all rules make one
// part.
TEST(Proofs, KeepTheFirstRuleThatHidesEveryIconAmongOthersOfItsPart) {
    std::vector<std::string> rules = rulesForAllSlotsButOne();
    std::vector<bool> kept(rules.size(), true);
    for (const RuleBuilder& each :
         {kHidesEveryIcon, rule("water", "fill").color("#111111"), rule("water", "fill").weight("3"), kHidesEveryIcon,
          rule("green", "fill").color("#222222")}) {
        rules.push_back(each.json());
        kept.push_back(false);
    }
    const std::string mapping =
        mappingText([](int type) { return std::vector{type <= EMAPCUSTOMSTYLE_WATER ? -5 : 7}; });
    const auto study = loadedText(mapping, fmt::format("[{}]", fmt::join(rules, ",")));
    ASSERT_THAT(study->steps().back().refused, testing::SizeIs(1));
    EXPECT_THAT(idleOf(*study, {.kept = kept}),
                ElementsAre("1242 color", "1243 weight", "1244 visibility", "1245 color"));
}

TEST(Parts, HoldTheRulesThatShareRecords) {
    const auto study = loadedText(
        testMapping(), styleOf({rule("water", "fill").color("#222222"), rule("highway", "all").color("#111111"),
                                rule("highwaylabel", "labels").color("#111111"), rule("grid", "fill").color("#111111"),
                                rule("lake", "fill").color("#111111")}));
    EXPECT_THAT(independentParts(study->steps()),
                testing::UnorderedElementsAre(ElementsAre(1, 2), ElementsAre(0), ElementsAre(3)));
}

// ---- Random styles --------------------------------------------------------------------------------------------------

// Loads the style without some stylers, another way than the proof does.
std::unique_ptr<CustomConfig> loadedWithout(const StyleStudy& study, const std::vector<bool>& leftOut) {
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(parsed(study.mapping().text()).get());
    for (std::size_t i = 0; i < study.singles().size(); ++i) {
        if (!leftOut[i]) config->ParseCustomConfig(study.singles()[i].document().get());
    }
    return config;
}

std::vector<bool> stepsOf(const StyleStudy& study, const ProvenEffect& effect) {
    std::vector<bool> steps(study.steps().size());
    const auto [begin, end] = study.stepsOf(effect.rule);
    for (std::size_t i = effect.step.value_or(begin); i < (effect.step ? *effect.step + 1 : end); ++i) steps[i] = true;
    return steps;
}

class ProofOfARandomStyle : public testing::TestWithParam<unsigned> {
protected:
    void SetUp() override {
        RandomFiles files(GetParam());
        std::string mapping = files.mapping();
        m_study = loadedText(GetParam() % 10 != 0 ? mapping : Mapping::everyMap().text(), randomStyle(files, 30));
    }

    std::unique_ptr<StyleStudy> m_study;
};

// From the last rule to the first, each before its stylers, and those from the last to the first.
std::vector<ProvenEffect> inProofOrder(std::vector<ProvenEffect> effects) {
    std::ranges::sort(effects, std::greater(), [](const ProvenEffect& effect) {
        return std::tuple(effect.rule, !effect.step, effect.step.value_or(0));
    });
    return effects;
}

std::vector<bool> both(std::vector<bool> left, const std::vector<bool>& right) {
    for (std::size_t i = 0; i < left.size(); ++i) left[i] = left[i] || right[i];
    return left;
}

bool isSameWithout(const StyleStudy& study, const std::vector<bool>& leftOut) {
    return !differenceBetween(study.config(), *loadedWithout(study, leftOut)).any();
}

TEST_P(ProofOfARandomStyle, HoldsForAllThatIsIdleTogether) {
    const ComponentGuard guard;
    std::vector<bool> leftOut(m_study->steps().size());
    for (const ProvenEffect& effect : proveEffects(*m_study).effects) {
        if (effect.isIdle) leftOut = both(leftOut, stepsOf(*m_study, effect));
    }
    EXPECT_FALSE(fullDifferenceBetween(m_study->config(), *loadedWithout(*m_study, leftOut)).any());
}

TEST_P(ProofOfARandomStyle, FindsAllThatIsIdleByItselfAndWithoutWhatIsIdleAfterIt) {
    const ComponentGuard guard;
    std::vector<bool> leftOut(m_study->steps().size());
    for (const ProvenEffect& effect : inProofOrder(proveEffects(*m_study).effects)) {
        const std::vector<bool> steps = stepsOf(*m_study, effect);
        const bool isIdleAlone = isSameWithout(*m_study, steps);
        EXPECT_EQ(effect.isIdle, isIdleAlone && isSameWithout(*m_study, both(leftOut, steps))) << effect.rule + 1;
        EXPECT_EQ(effect.effect.any(), !isIdleAlone) << effect.rule + 1;
        if (effect.isIdle) leftOut = both(leftOut, steps);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ProofOfARandomStyle, testing::Range(0u, 40u));

const char* oneOf(RandomFiles& files, std::initializer_list<const char*> texts) {
    return texts.begin()[files.below(static_cast<int>(texts.size()))];
}

// The colour of the grid, alone or with the records of its type, or every icon.
RuleBuilder settingOfTheMap(RandomFiles& files) {
    if (files.oneIn(3)) return rule("all", "icon").visibility("off");
    RuleBuilder grid = rule("grid", "all");
    if (!files.oneIn(3)) grid.color(oneOf(files, {"#111111", "#222222"}));
    if (files.oneIn(3)) grid.visibility("off");
    return grid;
}

// Few types with style ids in common. Most rules draw nothing, but make their type answer for the icon, so that they
// often cover for each other.
std::unique_ptr<StyleStudy> styleOfCoveringRules(RandomFiles& files) {
    const std::string mapping = mappingText([&](int) {
        return files.oneIn(4) ? std::vector{5, -8} : std::vector{7, 5};
    });
    std::vector<std::string> rules;
    for (int i = 3 + files.below(6); i > 0; --i) {
        const char* const type = oneOf(files, {"highway", "highwaylabel", "hotellabel", "poilabel", "roadlabel"});
        RuleBuilder drawsNothing = rule(type, "labels.text.topsurface").color(oneOf(files, {"#111111", "#222222"}));
        if (files.oneIn(4)) drawsNothing.level("9");
        if (files.oneIn(3)) rules.push_back(rule(type, "icon").visibility(oneOf(files, {"off", "on"})).json());
        if (files.oneIn(5)) rules.push_back(settingOfTheMap(files).json());
        rules.push_back(drawsNothing.json());
    }
    return loadedText(mapping, fmt::format("[{}]", fmt::join(rules, ",")));
}

void expectIdleOnesToGoOneByOneInBothOrders(const StyleStudy& study, const ProofOptions& options = {}) {
    const ComponentGuard guard;
    std::vector<std::vector<bool>> idle;
    for (const ProvenEffect& effect : proveEffects(study, options).effects) {
        const std::vector<bool> steps = stepsOf(study, effect);
        EXPECT_EQ(effect.effect.any(), !isSameWithout(study, steps)) << study.source().text();
        if (effect.isIdle) idle.push_back(steps);
    }
    for (const bool isReverse : {false, true}) {
        if (isReverse) std::ranges::reverse(idle);
        std::vector<bool> leftOut(study.steps().size());
        for (const std::vector<bool>& each : idle) {
            EXPECT_TRUE(isSameWithout(study, each));
            leftOut = both(leftOut, each);
            EXPECT_TRUE(isSameWithout(study, leftOut)) << study.source().text();
        }
    }
}

class ProofOfCoveringRules : public testing::TestWithParam<unsigned> {};

TEST_P(ProofOfCoveringRules, LetsIdleOnesGoOneByOneInBothOrders) {
    RandomFiles files(GetParam());
    expectIdleOnesToGoOneByOneInBothOrders(*styleOfCoveringRules(files));
}

INSTANTIATE_TEST_SUITE_P(Seeds, ProofOfCoveringRules, testing::Range(0u, 100u));

class ProofInAFullStore : public testing::TestWithParam<unsigned> {};

TEST_P(ProofInAFullStore, LetsIdleOnesGoOneByOneInBothOrders) {
    RandomFiles files(GetParam());
    std::vector<std::string> rules = rulesForAllSlotsButOne();
    std::vector<bool> kept(rules.size() - 3, true);
    kept.resize(rules.size());
    for (int i = 0; i < 8; ++i) {
        const char* const type = oneOf(files, {"land", "green", "water"});
        RuleBuilder last = files.oneIn(3) ? rule(type, "icon").visibility("off")
                                          : rule(type, "labels.text.topsurface").color("#112233");
        if (!files.oneIn(3)) last.level(oneOf(files, {"9", "10"}));
        rules.push_back(last.json());
        kept.push_back(files.oneIn(3));
    }
    const std::string mapping =
        mappingText([](int type) { return std::vector{type == EMAPCUSTOMSTYLE_WATER ? -5 : 7}; });
    expectIdleOnesToGoOneByOneInBothOrders(*loadedText(mapping, fmt::format("[{}]", fmt::join(rules, ","))),
                                           {.kept = kept});
}

INSTANTIATE_TEST_SUITE_P(Seeds, ProofInAFullStore, testing::Range(0u, 4u));

}  // namespace
}  // namespace customstyle_test
