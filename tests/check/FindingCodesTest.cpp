// The table of codes: every example causes its finding, and the documentation says what the table says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/check/CheckedText.h"
#include "tools/check/FindingCodes.h"
#include "tools/check/Report.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

std::vector<CodeInfo> infosWithExample() {
    std::vector<CodeInfo> infos;
    std::ranges::copy_if(codeInfos(), std::back_inserter(infos),
                         [](const CodeInfo& info) { return *info.example != '\0'; });
    return infos;
}

std::string codeName(const testing::TestParamInfo<CodeInfo>& info) {
    std::string name = info.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

class CodeExample : public testing::TestWithParam<CodeInfo> {};

TEST_P(CodeExample, HasThatFindingOnlyAndAtItsPlace) {
    const Example example = exampleOf(GetParam());
    const CheckedFile checked = GetParam().has(Trait::Mapping)
                                    ? checkedMapping(example.text)
                                    : checkedStyle(example.text, example.mapping, GetParam().has(Trait::OnRequest));
    // Nothing is hidden without what hides it.
    const std::size_t count = GetParam().code == Code::HiddenByRule ? 2 : 1;
    ASSERT_EQ(checked.findings.size(), count) << testing::PrintToString(codesWithPlaces(checked));
    EXPECT_EQ(infoOf(checked.findings[0].code).name, std::string_view(GetParam().name));
    EXPECT_EQ(checked.findings[0].range, example.place);
    EXPECT_FALSE(checked.findings[0].message.empty());
    EXPECT_FALSE(checked.findings[0].remedy.empty());
}

INSTANTIATE_TEST_SUITE_P(Codes, CodeExample, testing::ValuesIn(infosWithExample()), codeName);

TEST(FindingCodes, HaveAnExampleWhereAFileAloneCanBringThemAbout) {
    std::vector<std::string> names;
    for (const CodeInfo& info : codeInfos()) {
        if (*info.example == '\0') names.emplace_back(info.name);
    }
    EXPECT_THAT(names, testing::ElementsAre("effects-unproven", "other-log-line"));
}

TEST(FindingCodes, HaveNamesOfSmallLettersAndDashesEachOnce) {
    std::set<std::string> names;
    for (const CodeInfo& info : codeInfos()) {
        EXPECT_THAT(info.name, testing::MatchesRegex("[a-z]+(-[a-z]+)*"));
        EXPECT_TRUE(names.insert(info.name).second) << info.name;
    }
}

TEST(FindingCodes, AreFoundByTheirNames) {
    EXPECT_EQ(codeNamed("level-clamped"), Code::LevelClamped);
    EXPECT_EQ(codeNamed("level"), std::nullopt);
}

TEST(FindingCodes, AreDocumentedAsTheTableSays) {
    EXPECT_EQ(contentOf(CUSTOMSTYLE_DOCS_DIR "/check-codes.md"), codesMarkdown())
        << "write it anew: customstyle check --codes-markdown > docs/check-codes.md";
}

TEST(FindingCodes, AreListedWithTheirExamples) {
    const std::string text = codesText();
    for (const CodeInfo& info : codeInfos()) {
        EXPECT_THAT(text, testing::HasSubstr(std::string(info.name) + " (" + std::string(severityName(info.severity))));
    }
    EXPECT_THAT(text, testing::HasSubstr(R"("level": "12-14")"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("<<")));
}

}  // namespace
}  // namespace customstyle_test
