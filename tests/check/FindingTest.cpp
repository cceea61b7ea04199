// The order of findings, which is the same wherever the tool was compiled.
#include <gtest/gtest.h>

#include <algorithm>
#include <ranges>
#include <string_view>

#include "tools/check/Finding.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

Finding findingOf(Code code, std::size_t begin = 0, const char* message = "") {
    static const SourceFile file("style.json", "[]");
    return {code, file, {begin, begin + 1}, "$", message};
}

std::vector<std::string_view> namesOf(const std::vector<Finding>& findings) {
    std::vector<std::string_view> names;
    for (const Finding& finding : findings) names.emplace_back(infoOf(finding.code).name);
    return names;
}

TEST(FindingOrder, IsThatOfTheCodesNamesAtOnePlace) {
    std::vector<Finding> findings;
    for (const CodeInfo& info : codeInfos()) findings.push_back(findingOf(info.code));
    std::vector<std::string_view> sorted = namesOf(findings);
    std::ranges::sort(sorted);

    for (auto order : {0, 1}) {
        if (order == 1) std::ranges::reverse(findings);
        sortFindings(findings);
        EXPECT_EQ(namesOf(findings), sorted);
    }
}

TEST(FindingOrder, PutsThePlaceBeforeTheCodeAndTheMessageAfterIt) {
    std::vector<Finding> findings = {findingOf(Code::RuleNotObject, 9), findingOf(Code::TypeUnknown, 2, "a"),
                                     findingOf(Code::MemberUnknown, 2, "c"), findingOf(Code::MemberUnknown, 2, "b")};
    sortFindings(findings);
    ASSERT_EQ(findings.size(), 4U);
    EXPECT_EQ(findings[0].message, "b");
    EXPECT_EQ(findings[1].message, "c");
    EXPECT_EQ(findings[2].message, "a");
    EXPECT_EQ(findings[3].range.begin, 9U);
}

TEST(FindingOrder, DropsRepetitions) {
    std::vector<Finding> findings = {findingOf(Code::TypeUnknown, 2, "a"), findingOf(Code::TypeUnknown, 1, "a"),
                                     findingOf(Code::TypeUnknown, 2, "a")};
    sortFindings(findings);
    EXPECT_EQ(findings.size(), 2U);
}

}  // namespace
}  // namespace customstyle_test
