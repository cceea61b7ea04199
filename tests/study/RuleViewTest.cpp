// What is known of a rule by its members.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/study/Sources.h"
#include "tests/support/CaseName.h"
#include "tools/study/RuleView.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kWithoutStylers[] = R"({"featureType":"water","elementType":"all"})";

std::string withStylers(const std::string& stylers) {
    return R"({"featureType":"water","elementType":"all","stylers":)" + stylers + "}";
}

// Of a style with one rule.
class OneRule {
public:
    explicit OneRule(const std::string& json) : m_style("[" + json + "]"), m_views(viewsOf(m_style.source())) {}

    const RuleView& view() const { return m_views.front(); }

    std::string textIn(TextRange range) const {
        return std::string(m_style.source().file().text().substr(range.begin, range.size()));
    }

private:
    StyleText m_style;
    std::vector<RuleView> m_views;
};

std::vector<std::string> valuesOf(const std::string& json, std::string_view member) {
    const OneRule rule(json);
    std::vector<std::string> values;
    for (const JsonValue& value : rule.view().members(member)) values.emplace_back(value.source());
    return values;
}

TEST(RuleView, HasAllMembersWithAName) {
    EXPECT_THAT(valuesOf(withStylers(R"({"color":"#111111","weight":"3","Color":7})"), "color"),
                ElementsAre("\"#111111\"", "7"));
    EXPECT_THAT(valuesOf(withStylers(R"({"color":"#111111"})"), "weight"), IsEmpty());
    EXPECT_THAT(valuesOf(kWithoutStylers, "color"), IsEmpty());
}

TEST(RuleView, PlacesAStylerWithItsNameAndARuleWithoutOneAtItsStart) {
    const OneRule rule(withStylers(R"({"":"x","color" : "#111111"})"));
    EXPECT_EQ(rule.textIn(rule.view().stylerRange("color")), R"("color" : "#111111")");
    EXPECT_EQ(rule.textIn(rule.view().stylerRange("")), "{");
}

struct SuspectCase {
    const char* name;
    std::string rule;
    const char* suspect;  // empty for none
};

const SuspectCase kSuspects[] = {
    {"ARuleWithoutStylersHasNone", kWithoutStylers, ""},
    {"StylersThatAreNoObjectHaveNone", withStylers(R"([{"color":7}])"), ""},
    {"AStylerThatIsNoText", withStylers(R"({"foo":"x","Weight":"3","color":7})"), "color"},
    {"AStylerThatIsHiddenByOneBeforeItIsNone", withStylers(R"({"color":"#111111","color":7})"), ""},
    {"OtherLetterCaseBeforeAnUnknownName", withStylers(R"({"foo":"x","Weight":"3","COLOR":"#111111"})"), "Weight"},
    {"TheFirstUnknownName", withStylers(R"({"foo":"x","bar":"y"})"), "foo"},
    {"MembersOfTheRuleAndRemarksAreNone", withStylers(R"({"ElementType":"all","_note":"x","level":"9"})"), ""},
};

class Suspect : public testing::TestWithParam<SuspectCase> {};

TEST_P(Suspect, IsTheMemberThatItsAuthorMayHaveMeant) {
    const OneRule rule(GetParam().rule);
    const auto suspect = rule.view().suspect();
    EXPECT_EQ(suspect ? suspect->name() : "", GetParam().suspect);
}

INSTANTIATE_TEST_SUITE_P(Members, Suspect, testing::ValuesIn(kSuspects), caseName);

}  // namespace
}  // namespace customstyle_test
