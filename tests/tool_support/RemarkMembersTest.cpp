#include <gtest/gtest.h>

#include <ostream>
#include <regex>

#include "tests/support/CaseName.h"
#include "tools/vocabulary/RemarkMembers.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

struct MemberCase {
    const char* name;
    const char* member;
    bool isRemark;
};

void PrintTo(const MemberCase& each, std::ostream* out) {
    *out << each.member;
}

class MemberName : public testing::TestWithParam<MemberCase> {};

TEST_P(MemberName, SaysWhetherItIsARemark) {
    EXPECT_EQ(isRemark(GetParam().member), GetParam().isRemark);
}

TEST_P(MemberName, MatchesThePatternOfRemarksAccordingly) {
    EXPECT_EQ(std::regex_search(GetParam().member, std::regex(remarkPattern())), GetParam().isRemark);
}

INSTANTIATE_TEST_SUITE_P(
    Names, MemberName,
    testing::Values(MemberCase{"Note", "note", true}, MemberCase{"LetterCaseDoesNotCount", "ToDo", true},
                    MemberCase{"Description", "description", true}, MemberCase{"LongerName", "notes2", false},
                    MemberCase{"NameWithin", "my note", false}, MemberCase{"Underscore", "_why", true},
                    MemberCase{"Dollar", "$comment", true}, MemberCase{"NumberSign", "#1", true},
                    MemberCase{"TwoSlashes", "// why", true}, MemberCase{"OneSlash", "/why", false},
                    MemberCase{"SignBehind", "why_", false}, MemberCase{"Styler", "color", false},
                    MemberCase{"NearlyAStyler", "Colour", false}, MemberCase{"Empty", "", false}),
    caseName);

}  // namespace
}  // namespace customstyle_test
