// The example styles: the good ones have no findings, and in the one with mistakes each is found.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "tests/check/CheckedText.h"
#include "tests/support/LogCapture.h"
#include "tools/check/MappingCheck.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

const std::string kExamples = CUSTOMSTYLE_EXAMPLES_DIR;

std::string exampleMapping() {
    return contentOf(kExamples + "/map/CustomIndex");
}

std::string exampleStyle(const std::string& name) {
    return contentOf(kExamples + "/styles/" + name + ".json");
}

class GoodStyle : public testing::TestWithParam<const char*> {};

TEST_P(GoodStyle, HasNoFindings) {
    EXPECT_THAT(codesWithPlaces(checkedStyle(exampleStyle(GetParam()), exampleMapping())), testing::IsEmpty());
}

TEST_P(GoodStyle, HasNoFindingsWithoutAMappingFile) {
    EXPECT_THAT(codesWithPlaces(checkedStyle(exampleStyle(GetParam()))), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Examples, GoodStyle, testing::Values("main-roads", "night", "no-labels", "pale", "transit"),
                         [](const testing::TestParamInfo<const char*>& style) {
                             std::string name = style.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST(ExampleMapping, HasSharedStyleIdsOnly) {
    for (const Finding& finding : checkedMapping(exampleMapping()).findings) {
        EXPECT_EQ(finding.code, Code::MappingIdShared) << finding.message;
    }
}

// The rules of the style with mistakes say of themselves what is wrong with them: "Logged: ...", "Silent: ...",
// "Fine by itself ...".
class Mistakes : public testing::Test {
protected:
    std::string noteOf(std::size_t rule) const {
        const nlohmann::json& value = m_rules[rule];
        if (value.is_object()) return value.at("note");
        return "Logged: no object";
    }

    std::vector<Finding> findingsOf(std::size_t rule) const {
        std::vector<Finding> findings;
        std::ranges::copy_if(m_checked.findings, std::back_inserter(findings),
                             [&](const Finding& finding) { return finding.rule == rule; });
        return findings;
    }

    const nlohmann::json m_rules = nlohmann::json::parse(exampleStyle("mistakes"));
    const CheckedFile m_checked = checkedStyle(exampleStyle("mistakes"), exampleMapping());
};

TEST_F(Mistakes, AreNamedEachAtItsRule) {
    for (std::size_t rule = 0; rule < m_rules.size(); ++rule) {
        const bool isFine = noteOf(rule).starts_with("Fine by itself");
        const std::vector<Finding> findings = findingsOf(rule);
        const auto isWrong = [](const Finding& finding) { return infoOf(finding.code).severity != Severity::Note; };
        if (isFine) {
            const auto lost = [](const Finding& finding) {
                return finding.code == Code::NoEffect || finding.code == Code::HiddenByRule;
            };
            EXPECT_TRUE(std::ranges::none_of(findings, isWrong) || std::ranges::all_of(findings, lost)) << rule + 1;
        } else {
            EXPECT_FALSE(findings.empty()) << rule + 1 << ": " << noteOf(rule);
        }
    }
}

TEST_F(Mistakes, HaveALogLineWhereTheyAreLogged) {
    for (std::size_t rule = 0; rule < m_rules.size(); ++rule) {
        const std::vector<Finding> findings = findingsOf(rule);
        const bool hasLog = std::ranges::any_of(findings, [](const Finding& finding) { return !finding.log.empty(); });
        EXPECT_EQ(hasLog, noteOf(rule).starts_with("Logged")) << rule + 1;
    }
}

TEST_F(Mistakes, HaveOneFindingEach) {
    for (std::size_t rule = 0; rule < m_rules.size(); ++rule) {
        EXPECT_LE(findingsOf(rule).size(), 1U) << rule + 1 << ": " << noteOf(rule);
    }
}

// What concerns the file as a whole excludes all the rest, and the example map has style ids for each type.
TEST_F(Mistakes, AreOfEveryKindThatOneFileCanHold) {
    std::set<std::string> missing;
    for (const CodeInfo& info : codeInfos()) {
        if (info.has(Trait::Style) && !info.has(Trait::OnRequest)) missing.insert(info.name);
    }
    for (const Finding& finding : m_checked.findings) missing.erase(infoOf(finding.code).name);
    EXPECT_THAT(missing, testing::UnorderedElementsAre("json-syntax", "json-comment", "json-too-deep", "json-encoding",
                                                       "json-empty", "json-lenient", "text-after-end", "not-a-list",
                                                       "no-rules", "type-without-ids", "effects-unproven",
                                                       "slots-nearly-full", "slots-exceeded", "other-log-line"));
}

}  // namespace
}  // namespace customstyle_test
