#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/check/CheckedText.h"
#include "tools/check/Report.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using nlohmann::json;
using testing::HasSubstr;

std::vector<CheckedFile> one(CheckedFile file) {
    std::vector<CheckedFile> files;
    files.push_back(std::move(file));
    return files;
}

const std::string kTwoMistakes = "[\n  " + ruleText("water", "geometry", R"({"color": "red"})") + ",\n  " +
                                 ruleText("lake", "geometry", R"({"color": "#3366cc"})") + "\n]";

TEST(FindingText, LooksLikeACompilersMessage) {
    const CheckedFile checked = checkedStyle(kTwoMistakes);
    EXPECT_EQ(findingText(checked.findings.at(1)),
              R"(style.json:3:19: error: unknown feature type "lake"; the rule is skipped [type-unknown]
    {"featureType": "lake", "elementType": "geometry", "stylers": {"color": "#3366cc"}}
                    ^^^^^^
  in: rule 2, $[1].featureType
  remedy: did you mean "water"? All names: customstyle list types
  log: ZRX Custom Map: warning, "featureType:lake" is illegal
)");
}

TEST(FindingText, ShowsNothingThatSteersATerminal) {
    const CheckedFile checked = checkedStyle("[" + ruleText("\\u001b[31m\x1b[2J", "all", "{}") + "]");
    const std::string text = findingText(checked.findings.at(0));
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_THAT(text, HasSubstr("\\u001b[31m\\u001b[2J"));
}

TEST(FindingText, CutsWhatALongNameWouldFill) {
    const CheckedFile checked = checkedStyle("[" + ruleText(std::string(100'000, 'x'), "all", "{}") + "]");
    EXPECT_LT(findingText(checked.findings.at(0)).size(), 2'000U);
    EXPECT_THAT(findingText(checked.findings.at(0)), HasSubstr("log: ZRX Custom Map: warning, \"featureType:xxx"));
}

TEST(JsonReport, HoldsEveryFinding) {
    const json report = json::parse(reportJson(one(checkedStyle(kTwoMistakes))));
    EXPECT_EQ(report.at("version"), 1);
    EXPECT_EQ(report.at("summary"), json({{"errors", 2}, {"warnings", 0}, {"notes", 0}}));
    const json& finding = report.at("files").at(0).at("findings").at(1);
    EXPECT_EQ(finding.at("code"), "type-unknown");
    EXPECT_EQ(finding.at("severity"), "error");
    EXPECT_EQ(finding.at("rule"), 2);
    EXPECT_EQ(finding.at("path"), "$[1].featureType");
    EXPECT_EQ(finding.at("range").at("begin").at("line"), 3);
    EXPECT_EQ(finding.at("range").at("begin").at("column"), 19);
    EXPECT_EQ(finding.at("range").at("end").at("column"), 25);
    EXPECT_EQ(finding.at("log"), "ZRX Custom Map: warning, \"featureType:lake\" is illegal");
}

TEST(JsonReport, HasNullForWhatIsNotThere) {
    const json report = json::parse(reportJson(one(checkedStyle("{}"))));
    const json& finding = report.at("files").at(0).at("findings").at(0);
    EXPECT_TRUE(finding.at("rule").is_null());
    EXPECT_TRUE(finding.at("log").is_null());
}

TEST(SarifReport, NamesARuleOfTheTableForEachResult) {
    const json run = json::parse(reportSarif(one(checkedStyle(kTwoMistakes)))).at("runs").at(0);
    const json& rules = run.at("tool").at("driver").at("rules");
    ASSERT_EQ(run.at("results").size(), 2U);
    for (const json& result : run.at("results")) {
        EXPECT_EQ(rules.at(result.at("ruleIndex").get<std::size_t>()).at("id"), result.at("ruleId"));
        EXPECT_EQ(result.at("level"), "error");
    }
}

TEST(SarifReport, PlacesAResultInItsFile) {
    const json run = json::parse(reportSarif(one(checkedStyle(kTwoMistakes)))).at("runs").at(0);
    const json& place = run.at("results").at(1).at("locations").at(0).at("physicalLocation");
    EXPECT_EQ(place.at("artifactLocation").at("uri"), "style.json");
    EXPECT_EQ(place.at("region").at("startLine"), 3);
    EXPECT_EQ(place.at("region").at("startColumn"), 19);
    EXPECT_EQ(place.at("region").at("endColumn"), 25);
}

TEST(SarifReport, EscapesPaths) {
    const auto uriOf = [](const std::string& path) {
        CheckedFile checked{std::make_unique<SourceFile>(path, "{}"), {}};
        checked.findings.emplace_back(Code::NoRules, *checked.file, TextRange{0, 1}, "$", "m");
        const json log = json::parse(reportSarif(one(std::move(checked))));
        return log.at("/runs/0/results/0/locations/0/physicalLocation/artifactLocation/uri"_json_pointer)
            .get<std::string>();
    };
    EXPECT_EQ(uriOf("my styles/a%b.json"), "my%20styles/a%25b.json");
    EXPECT_EQ(uriOf("/maps/a:b.json"), "file:///maps/a%3Ab.json");
}

TEST(Reports, TakeAnyBytes) {
    const std::vector<CheckedFile> files = one(checkedStyle("[" + ruleText("\xFF\xC0", "all", "{}") + "]"));
    EXPECT_TRUE(json::accept(reportJson(files)));
    EXPECT_TRUE(json::accept(reportSarif(files)));
    EXPECT_THAT(findingText(files[0].findings.at(0)), HasSubstr("\\xff\\xc0"));
}

TEST(FindingCounts, AddUpOverFiles) {
    std::vector<CheckedFile> files = one(checkedStyle(kTwoMistakes));
    files.push_back(checkedStyle("[]"));
    const FindingCounts counts = countFindings(files);
    EXPECT_EQ(counts.errors, 2U);
    EXPECT_EQ(counts.warnings, 0U);
    EXPECT_EQ(counts.notes, 1U);
}

}  // namespace
}  // namespace customstyle_test
