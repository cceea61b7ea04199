// CVLog: lines to the host or to standard error.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "vi/vos/VLog.h"

namespace customstyle_test {
namespace {

using namespace _orvik_vi;

using Line = std::pair<int, std::string>;

class VLogSink : public testing::Test {
protected:
    VLogSink() {
        CVLog::SetSink(
            [this](ELOGPRIORITY priority, const std::string& utf8) { m_lines.emplace_back(priority, utf8); });
    }
    ~VLogSink() override { CVLog::SetSink({}); }

    std::vector<Line> m_lines;
};

TEST_F(VLogSink, ReceivesTextAndPriority) {
    CVLog::Log(ELOG_WARN, CVString("a line"));
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, "a line"}}));
}

TEST_F(VLogSink, ReceivesOneCallForEachLineInOrder) {
    CVLog::Log(ELOG_INFO, "first");
    CVLog::Log(ELOG_ERROR, "second");
    EXPECT_EQ(m_lines, (std::vector<Line>{{4, "first"}, {6, "second"}}));
}

TEST_F(VLogSink, PrioritiesRiseFromVerboseToError) {
    for (const ELOGPRIORITY priority : {ELOG_VERBOSE, ELOG_DEBUG, ELOG_INFO, ELOG_WARN, ELOG_ERROR})
        CVLog::Log(priority, "x");
    EXPECT_EQ(m_lines, (std::vector<Line>{{2, "x"}, {3, "x"}, {4, "x"}, {5, "x"}, {6, "x"}}));
}

TEST_F(VLogSink, APercentSignHasNoMeaningWithoutArguments) {
    CVLog::Log(ELOG_WARN, "100%s %n %d %% %");
    CVLog::Log(ELOG_WARN, CVString("%s%s%s%n"));
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, "100%s %n %d %% %"}, {5, "%s%s%s%n"}}));
}

TEST_F(VLogSink, ArgumentsAreFormatted) {
    CVLog::Log(ELOG_WARN, "%s has %d levels, 100%%", "highway", 18);
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, "highway has 18 levels, 100%"}}));
}

TEST_F(VLogSink, APercentSignInAnArgumentHasNoMeaning) {
    CVLog::Log(ELOG_WARN, "<%s>", "%d%n");
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, "<%d%n>"}}));
}

TEST_F(VLogSink, ReceivesUtf8AndReplacementsForMalformedBytes) {
    CVLog::Log(ELOG_WARN, "\xC3\xA9 \xF0\x9F\x98\x80 \xFF");
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, "\xC3\xA9 \xF0\x9F\x98\x80 \xEF\xBF\xBD"}}));
}

TEST_F(VLogSink, ReceivesTheTextAsItStandsControlCharactersIncluded) {
    CVLog::Log(ELOG_WARN, "a\nb\tc\x1B[0m");
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, "a\nb\tc\x1B[0m"}}));
}

TEST_F(VLogSink, ReceivesAnEmptyTextToo) {
    CVLog::Log(ELOG_WARN, "");
    EXPECT_EQ(m_lines, (std::vector<Line>{{5, ""}}));
}

TEST_F(VLogSink, KeepsItsLinesFromStandardError) {
    testing::internal::CaptureStderr();
    CVLog::Log(ELOG_ERROR, "a line");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(VLogSink, GivesWayToTheNextOne) {
    std::vector<std::string> others;
    CVLog::SetSink([&](ELOGPRIORITY, const std::string& utf8) { others.push_back(utf8); });
    CVLog::Log(ELOG_WARN, "a line");
    EXPECT_TRUE(m_lines.empty());
    EXPECT_EQ(others, std::vector<std::string>{"a line"});
}

TEST(VLog, AReplacedSinkIsLetGo) {
    const auto token = std::make_shared<int>(0);
    CVLog::SetSink([token](ELOGPRIORITY, const std::string&) {});
    EXPECT_EQ(token.use_count(), 2);
    CVLog::SetSink({});
    EXPECT_EQ(token.use_count(), 1);
}

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

std::string caseName(const testing::TestParamInfo<EscapeCase>& info) {
    return info.param.name;
}

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
