// Whatever the component logs about a style is in some finding.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "customstyle/CustomConfig.h"
#include "tests/check/CheckedText.h"
#include "tests/support/LogCapture.h"
#include "tests/support/RandomFiles.h"
#include "tools/study/SingleRules.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

std::set<std::string> linesOfLoading(const std::string& mapping, const std::string& style) {
    LogCapture log;
    const auto config = std::make_unique<_orvik_framework::CustomConfig>();
    config->ParseMappingConfig(componentTree(mapping).get());
    config->ParseCustomConfig(componentTree(style).get());
    const std::vector<std::string> lines = log.take();
    return {lines.begin(), lines.end()};
}

std::set<std::string> linesOfFindings(const CheckedFile& checked) {
    std::set<std::string> lines;
    for (const Finding& finding : checked.findings) {
        if (!finding.log.empty()) lines.insert(finding.log);
    }
    return lines;
}

class RandomStyles : public testing::TestWithParam<unsigned> {};

TEST_P(RandomStyles, HaveEveryLogLineInAFinding) {
    RandomFiles files(GetParam());
    const std::string mapping = files.mapping();
    std::string rules;
    for (int count = 40; count > 0; --count) rules += (rules.empty() ? "" : ",\n") + files.rule();
    const std::string style = fmt::format("[{}]", rules);
    const CheckedFile checked = checkedStyle(style, mapping);
    EXPECT_EQ(linesOfFindings(checked), linesOfLoading(mapping, style));
    EXPECT_THAT(messagesOf(checked, Code::OtherLogLine), testing::IsEmpty());
}

TEST_P(RandomStyles, AreCheckedAlikeInEachRun) {
    RandomFiles files(GetParam());
    const std::string style = fmt::format("[{},\n{},\n{}]", files.rule(), files.rule(), files.rule());
    EXPECT_EQ(codesWithPlaces(checkedStyle(style)), codesWithPlaces(checkedStyle(style)));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomStyles, testing::Range(0U, 12U));

}  // namespace
}  // namespace customstyle_test
