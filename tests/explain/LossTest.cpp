// Each way in which a write can be lost, on a style as small as it takes.
#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/study/LoadedText.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "tools/explain/ExplanationText.h"

namespace customstyle_test {
namespace {

using customstyle_tool::Explainer;
using customstyle_tool::Explanation;
using customstyle_tool::Loss;
using customstyle_tool::LossKind;

constexpr int kShared = 5000;  // a style id under manmade, education, highway and poilabel

constexpr unsigned int kNeverFound = 4294967291;  // the renderer's view of -5, under the same types

// The test mapping with style ids that several types list.
std::string sharedMapping() {
    std::string mapping = testMapping();
    for (const char* type : {"\"manmade\": [", "\"education\": [", "\"highway\": [", "\"poilabel\": ["}) {
        const std::size_t at = mapping.find(type);
        if (at == std::string::npos) throw std::runtime_error("the test mapping has no member " + std::string(type));
        mapping.insert(at + std::string(type).size(), std::to_string(kShared) + ",-5,");
    }
    return mapping;
}

struct ExpectedLoss {
    std::size_t rule;  // from 1
    LossKind kind;
    std::size_t byRule;  // 0 for none
    int byType;          // -1 for none
    std::string reason;  // in words
    bool operator==(const ExpectedLoss&) const = default;
};

void PrintTo(const ExpectedLoss& loss, std::ostream* stream) {
    *stream << "rule " << loss.rule << " kind " << static_cast<int>(loss.kind) << " by rule " << loss.byRule
            << " by type " << loss.byType << ": " << loss.reason;
}

struct LossCase {
    const char* name;
    std::vector<RuleBuilder> rules;
    unsigned int styleId;
    int level;
    const char* topic;
    std::size_t winner;  // rule from 1; 0 for none
    std::vector<ExpectedLoss> losses;
};

void PrintTo(const LossCase& lossCase, std::ostream* stream) {
    *stream << lossCase.name;
}

// The ends of the lines about losses, in their order.
std::vector<std::string> reasonsIn(const std::string& text) {
    std::vector<std::string> reasons;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("  lost ")) reasons.push_back(line.substr(line.rfind(": ") + 2));
    }
    return reasons;
}

std::vector<ExpectedLoss> lossesOf(const Explainer& explainer, const std::vector<Loss>& losses,
                                   const std::vector<std::string>& reasons) {
    std::vector<ExpectedLoss> found;
    for (const Loss& loss : losses) {
        const std::size_t by = loss.byStep ? explainer.step(*loss.byStep).rule + 1 : 0;
        const std::string reason = found.size() < reasons.size() ? reasons[found.size()] : "no line";
        found.push_back({explainer.step(loss.write.step).rule + 1, loss.kind, by, loss.byType, reason});
    }
    return found;
}

class LostWrite : public testing::TestWithParam<LossCase> {};

TEST_P(LostWrite, IsFoundWithWhatEndedIt) {
    const QueriesEnabled enabled;
    const auto style = loadedText(sharedMapping(), styleOf(GetParam().rules));
    Explainer explainer(*style);
    const Explanation explanation = explainer.explain(GetParam().styleId, GetParam().level);
    const customstyle_tool::TopicName& topic = *customstyle_tool::findTopic(GetParam().topic);
    const auto& history = historyOf(explanation, topic);
    EXPECT_EQ(history.winner ? explainer.step(history.winner->step).rule + 1 : 0, GetParam().winner);
    const std::string text = topicText(explainer, explanation, topic, customstyle_tool::Swatches::None);
    EXPECT_EQ(lossesOf(explainer, history.losses, reasonsIn(text)), GetParam().losses);
}

RuleBuilder fill(const char* type) {
    return rule(type, "geometry.fill").color("#112233");
}

const unsigned int kOfHighway = firstStyleId(kHighway);

INSTANTIATE_TEST_SUITE_P(
    OneType, LostWrite,
    testing::Values(
        LossCase{"Overwritten",
                 {fill("highway"), fill("highway")},
                 kOfHighway,
                 10,
                 "fill",
                 2,
                 {{1, LossKind::Overwritten, 2, -1, "overwritten by rule 2 (color)"}}},
        LossCase{"OverwrittenAtTheLevel",
                 {fill("highway"), fill("highway").level("10")},
                 kOfHighway,
                 10,
                 "fill",
                 2,
                 {{1, LossKind::Overwritten, 2, -1, "overwritten by rule 2 (color)"}}},
        LossCase{"NotOverwrittenAtOtherLevels",
                 {fill("highway"), fill("highway").level("10")},
                 kOfHighway,
                 11,
                 "fill",
                 1,
                 {}},
        LossCase{"OverwrittenByStylerOfTheSameRule",
                 {fill("highway").visibility("off")},
                 kOfHighway,
                 10,
                 "fill",
                 1,
                 {{1, LossKind::Overwritten, 1, -1, "overwritten by rule 1 (visibility)"}}},
        LossCase{"ResetByTheNextRuleForTheLevel",
                 {rule("highway", "geometry").color("#445566"), fill("highway").level("10"),
                  rule("highway", "geometry.stroke").color("#778899").level("10")},
                 kOfHighway,
                 10,
                 "fill",
                 1,
                 {{2, LossKind::Reset, 3, -1, "rule 3 (color) starts over from the style for all levels"}}},
        LossCase{"ResetByTheNextStylerOfTheRule",
                 {rule("highway", "geometry").weight("3"), fill("highway").weight("5").level("10")},
                 kOfHighway,
                 10,
                 "fill",
                 0,
                 {{2, LossKind::Reset, 2, -1, "rule 2 (weight) starts over from the style for all levels"}}},
        LossCase{"ResetByItsOwnNextWrite",
                 {rule("highway", "geometry").weight("3"), rule("highway", "all").visibility("off").level("10")},
                 kOfHighway,
                 10,
                 "fill",
                 0,
                 {{2, LossKind::Reset, 2, -1, "its own next write starts over from the style for all levels"}}},
        LossCase{"NotResetWithoutStyleForAllLevels",
                 {fill("highway").level("10"), rule("highway", "geometry.stroke").color("#778899").level("10")},
                 kOfHighway,
                 10,
                 "fill",
                 1,
                 {}},
        LossCase{"TakenOut",
                 {fill("highway"), rule("highway", "labels.text.topsurface").color("#445566")},
                 kOfHighway,
                 10,
                 "fill",
                 0,
                 {{1, LossKind::TakenOut, 2, -1, "rule 2 (color) writes nothing and disables the record"}}},
        LossCase{"BackInAfterTheNextWrite",
                 {fill("highway"), rule("highway", "labels.text.topsurface").color("#445566"),
                  rule("highway", "geometry.stroke").color("#778899")},
                 kOfHighway,
                 10,
                 "fill",
                 1,
                 {}},
        LossCase{
            "ShutOutByAnEarlierLevelRule",
            {rule("highway", "geometry.stroke").color("#778899").level("10"), fill("highway")},
            kOfHighway,
            10,
            "fill",
            0,
            {{2, LossKind::ShutOut, 1, -1, "13 highway has a style of its own for level 10 since rule 1 (color)"}}},
        LossCase{"NotShutOutAtOtherLevels",
                 {rule("highway", "geometry.stroke").color("#778899").level("10"), fill("highway")},
                 kOfHighway,
                 11,
                 "fill",
                 2,
                 {}},
        LossCase{"LetInByALaterLevelRule",
                 {rule("highway", "geometry.stroke").color("#778899").level("10"), fill("highway"),
                  rule("highway", "geometry").weight("5").level("10")},
                 kOfHighway,
                 10,
                 "fill",
                 2,
                 {}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    SeveralTypes, LostWrite,
    testing::Values(LossCase{"ALowerTypeAnswersFirst",
                             {fill("highway"), fill("education")},
                             kShared,
                             10,
                             "fill",
                             2,
                             {{1, LossKind::LowerTypeFirst, 0, 6, "6 education answers first"}}},
                    LossCase{"AParentIsNotReached",
                             {fill("poilabel"), fill("manmade"), fill("highway")},
                             kShared,
                             10,
                             "fill",
                             3,
                             {{1, LossKind::ParentNotReached, 0, kHighway,
                               "13 highway answers, and 53 poilabel only answers if no other type does"},
                              {2, LossKind::ParentNotReached, 0, kHighway,
                               "13 highway answers, and 4 manmade only answers if no other type does"}}},
                    LossCase{"TheFirstParentAnswers",
                             {fill("poilabel"), fill("manmade")},
                             kShared,
                             10,
                             "fill",
                             2,
                             {{1, LossKind::ParentNotReached, 0, 4,
                               "4 manmade answers, and 53 poilabel only answers if no other type does"}}},
                    LossCase{
                        "ATypeThatWasTakenOutLetsTheNextAnswer",
                        {fill("education"), rule("education", "labels.topsurface").color("#445566"), fill("highway")},
                        kShared,
                        10,
                        "fill",
                        3,
                        {{1, LossKind::TakenOut, 2, -1, "rule 2 (color) writes nothing and disables the record"}}},
                    LossCase{"AStyleIdThatIsNeverFound",
                             {fill("highway")},
                             kNeverFound,
                             10,
                             "fill",
                             0,
                             {{1, LossKind::NeverFound, 0, -1, "the renderer finds no record for this style id"}}},
                    LossCase{"AnIconThatIsNeverFound",
                             {rule("highway", "all").visibility("off")},
                             kNeverFound,
                             10,
                             "icon",
                             0,
                             {{1, LossKind::NeverFound, 0, -1, "the renderer finds no record for this style id"}}},
                    LossCase{"ThroughTheCompanion",
                             {rule("highwaylabel", "labels.text.fill").color("#112233"),
                              rule("highway", "labels.text.fill").color("#445566")},
                             firstStyleId(28),
                             10,
                             "text fill",
                             2,
                             {{1, LossKind::Overwritten, 2, -1, "overwritten by rule 2 (color)"}}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    IconsAndBackgrounds, LostWrite,
    testing::Values(
        LossCase{"AnIconOverwritten",
                 {rule("highway", "all").visibility("off"), rule("highway", "all").visibility("on")},
                 kOfHighway,
                 10,
                 "icon",
                 2,
                 {{1, LossKind::Overwritten, 2, -1, "overwritten by rule 2 (visibility)"}}},
        LossCase{"EveryIconHidden",
                 {rule("highway", "all").visibility("on"), rule("all", "icon").visibility("on")},
                 kOfHighway,
                 10,
                 "icon",
                 2,
                 {{1, LossKind::EveryIconHidden, 2, -1, "rule 2 (visibility) hides every icon"}}},
        LossCase{"AnIconOfALowerType",
                 {rule("highway", "all").visibility("off"), rule("education", "all").visibility("on")},
                 kShared,
                 10,
                 "icon",
                 2,
                 {{1, LossKind::LowerTypeFirst, 0, 6, "6 education answers first"}}},
        LossCase{"AnIconThatASecondParentHides",
                 {rule("manmade", "icon").visibility("on"), rule("poilabel", "icon").visibility("off")},
                 kShared,
                 10,
                 "icon",
                 2,
                 {{1, LossKind::HiddenByOther, 0, 53, "53 poilabel hides the icon"}}},
        LossCase{"AnIconThatBothParentsShow",
                 {rule("poilabel", "icon").visibility("on"), rule("manmade", "icon").visibility("on")},
                 kShared,
                 10,
                 "icon",
                 2,
                 {}},
        LossCase{"AnIconResetByTheTextOfItsRule",
                 {rule("highway", "geometry").weight("3"), rule("highway", "labels").visibility("off").level("10")},
                 kOfHighway,
                 10,
                 "icon",
                 0,
                 {{2, LossKind::Reset, 2, -1, "its own next write starts over from the style for all levels"}}},
        LossCase{"TheLandOverwritten",
                 {fill("land"), fill("land")},
                 kShared,
                 10,
                 "land background",
                 2,
                 {{1, LossKind::Overwritten, 2, -1, "overwritten by rule 2 (color)"}}},
        LossCase{"TheLandShutOut",
                 {rule("land", "geometry.topsurface").color("#445566").level("10"), fill("land")},
                 kShared,
                 10,
                 "land background",
                 1,
                 {{2, LossKind::ShutOut, 1, -1, "0 land has a style of its own for level 10 since rule 1 (color)"}}},
        LossCase{"TheGridOverwritten",
                 {fill("grid"), fill("grid").level("4")},
                 kShared,
                 10,
                 "grid background",
                 2,
                 {{1, LossKind::Overwritten, 2, -1, "overwritten by rule 2 (color)"}}}),
    caseName);

}  // namespace
}  // namespace customstyle_test
