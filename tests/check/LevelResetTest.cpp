// What is lost to a later rule for the same level stays where the remedy is followed.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/check/CheckedText.h"
#include "tests/support/CaseName.h"
#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kLevel = 12;

struct ResetCase {
    const char* name;
    const char* featureType;
    const char* lostField;
    std::vector<std::pair<const char*, const char*>> rules;   // element and stylers; some value is lost at the level
    std::vector<std::pair<const char*, const char*>> mended;  // by the remedy
};

void PrintTo(const ResetCase& reset, std::ostream* out) {
    *out << reset.name;
}

class LevelReset : public testing::TestWithParam<ResetCase> {
protected:
    static CheckedFile checked(const std::vector<std::pair<const char*, const char*>>& rules) {
        std::vector<std::string> texts;
        for (const auto& [element, stylers] : rules) {
            texts.push_back(ruleText(GetParam().featureType, element, stylers));
        }
        return checkedStyle(fmt::format("[{}]", fmt::join(texts, ",\n")));
    }

    // Whether the renderer receives the value at the level.
    static bool hasValue(const CheckedFile& file) {
        const ComponentGuard guard;
        const int type = catalogue().GetFeatureTypeId(GetParam().featureType);
        const unsigned int styleId = file.study->mapping().questionIdsOf(type).front();
        return fieldIn(ask(file.study->config(), styleId, kLevel), fieldIndex(GetParam().lostField)).has_value();
    }
};

TEST_P(LevelReset, IsReported) {
    const CheckedFile file = checked(GetParam().rules);
    EXPECT_FALSE(hasValue(file));
    EXPECT_THAT(messagesOf(file, Code::LevelReset), Contains(HasSubstr(GetParam().lostField)));
}

TEST_P(LevelReset, IsGoneWhereTheRemedyIsFollowed) {
    const CheckedFile file = checked(GetParam().mended);
    EXPECT_TRUE(hasValue(file));
    EXPECT_THAT(messagesOf(file, Code::LevelReset), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Remedies, LevelReset,
                         testing::Values(ResetCase{"TheOthersForAllLevels",
                                                   "nationalway",
                                                   "stroke",
                                                   {{"geometry.fill", R"({"color": "#3366cc"})"},
                                                    {"geometry.stroke", R"({"color": "#cc3366", "level": "12"})"},
                                                    {"geometry.fill", R"({"weight": "6", "level": "12"})"}},
                                                   {{"geometry.fill", R"({"color": "#3366cc"})"},
                                                    {"geometry.stroke", R"({"color": "#cc3366"})"},
                                                    {"geometry.fill", R"({"weight": "6", "level": "12"})"}}},
                                         ResetCase{"NoStyleForAllLevels",
                                                   "nationalway",
                                                   "stroke",
                                                   {{"geometry.fill", R"({"color": "#3366cc"})"},
                                                    {"geometry.stroke", R"({"color": "#cc3366", "level": "12"})"},
                                                    {"geometry.fill", R"({"weight": "6", "level": "12"})"}},
                                                   {{"geometry.fill", R"({"color": "#3366cc", "level": "12"})"},
                                                    {"geometry.stroke", R"({"color": "#cc3366", "level": "12"})"},
                                                    {"geometry.fill", R"({"weight": "6", "level": "12"})"}}},
                                         ResetCase{"TheOtherStylerForAllLevels",
                                                   "town",
                                                   "text fill",
                                                   {{"labels.text.stroke", R"({"color": "#3366cc"})"},
                                                    {"labels.text.fill",
                                                     R"({"color": "#cc3366", "fontsize": "12", "level": "12"})"}},
                                                   {{"labels.text.stroke", R"({"color": "#3366cc"})"},
                                                    {"labels.text.fill", R"({"color": "#cc3366"})"},
                                                    {"labels.text.fill", R"({"fontsize": "12", "level": "12"})"}}}),
                         caseName);

// Rules that write several times, after one for all levels.
std::vector<std::string> resetsOfItself(const char* featureType, const char* element, const char* stylers) {
    return messagesOf(checkedStyle(fmt::format("[{},{}]", ruleText(featureType, "all", R"({"color": "#3366cc"})"),
                                               ruleText(featureType, element, stylers))),
                      Code::LevelResetsItself);
}

TEST(LevelResetsItself, IsReportedForWhateverWritesSeveralTimes) {
    EXPECT_THAT(resetsOfItself("city", "all", R"({"weight": "3", "level": "12"})"),
                ElementsAre(HasSubstr("fill weight, stroke weight does not stay at level 12")));
    EXPECT_THAT(resetsOfItself("city", "labels", R"({"visibility": "off", "level": "12"})"), SizeIs(1));
    EXPECT_THAT(resetsOfItself("city", "labels.text.fill", R"({"weight": "3", "level": "12"})"), IsEmpty());
    EXPECT_THAT(resetsOfItself("city", "all", R"({"weight": "3"})"), IsEmpty());
}

}  // namespace
}  // namespace customstyle_test
