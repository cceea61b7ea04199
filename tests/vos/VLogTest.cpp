// CVLog: lines to the host.
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

}  // namespace
}  // namespace customstyle_test
