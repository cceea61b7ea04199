// CVLog: lines to standard error.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/CaseName.h"
#include "vi/vos/VLog.h"

namespace customstyle_test {
namespace {

using namespace _orvik_vi;

/// What standard error receives while a text is logged.
std::string standardErrorOf(const CVString& text) {
    testing::internal::CaptureStderr();
    CVLog::Log(ELOG_WARN, text);
    return testing::internal::GetCapturedStderr();
}

TEST(VLog, WithoutASinkEachTextIsALineOfStandardError) {
    testing::internal::CaptureStderr();
    CVLog::Log(ELOG_WARN, "first %d");
    CVLog::Log(ELOG_ERROR, "%s %d", "second", 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "first %d\nsecond 2\n");
}

TEST(VLog, AnEmptySinkBringsStandardErrorBack) {
    CVLog::SetSink([](ELOGPRIORITY, const std::string&) {});
    EXPECT_EQ(standardErrorOf("unheard"), "");
    CVLog::SetSink({});
    EXPECT_EQ(standardErrorOf("heard"), "heard\n");
}

struct EscapeCase {
    const char* name;
    const char* text;
    const char* line;
};

class VLogLine : public testing::TestWithParam<EscapeCase> {};

TEST_P(VLogLine, IsWrittenToStandardError) {
    EXPECT_EQ(standardErrorOf(GetParam().text), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    VLog, VLogLine,
    testing::Values(EscapeCase{"PlainText", "warning, \"color\" is absent", "warning, \"color\" is absent\n"},
                    EscapeCase{"EmptyText", "", "\n"}, EscapeCase{"LineFeed", "a\nforged", "a\\x0aforged\n"},
                    EscapeCase{"CarriageReturn", "a\rb", "a\\x0db\n"}, EscapeCase{"Tab", "a\tb", "a\\x09b\n"},
                    EscapeCase{"FirstControl", "\x01", "\\x01\n"}, EscapeCase{"LastControl", "\x1F", "\\x1f\n"},
                    EscapeCase{"TerminalSequence", "\x1B[31mred", "\\x1b[31mred\n"}, EscapeCase{"Blank", " ", " \n"},
                    EscapeCase{"Tilde", "~", "~\n"}, EscapeCase{"Delete", "\x7F", "\\x7f\n"},
                    EscapeCase{"FirstOfTheUpperControls", "\xC2\x80", "\\x80\n"},
                    EscapeCase{"NextLine", "\xC2\x85", "\\x85\n"},
                    EscapeCase{"LastOfTheUpperControls", "\xC2\x9F", "\\x9f\n"},
                    EscapeCase{"NoBreakSpace", "\xC2\xA0", "\xC2\xA0\n"},
                    EscapeCase{"BeyondTheFirst65536", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80\n"},
                    EscapeCase{"Percent", "%s%n", "%s%n\n"}),
    caseName);

}  // namespace
}  // namespace customstyle_test
