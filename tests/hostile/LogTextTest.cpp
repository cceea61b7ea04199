// Names from a style file reach the log as data: they forge no line and format nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

struct NameCase {
    const char* name;
    std::string inFile;  ///< as the file has it, between the quotes
    std::string inLog;   ///< as the host receives it
    std::string onScreen;
};

const std::string kLong(1000000, 'n');
const std::string kReplacement = "\xEF\xBF\xBD";

const NameCase kNames[] = {
    {"Percent", "%s%n%d%1000000000d%", "%s%n%d%1000000000d%", "%s%n%d%1000000000d%"},
    {"LineFeed", R"(lake\nZRX Custom Map: forged)", "lake\nZRX Custom Map: forged", "lake\\x0aZRX Custom Map: forged"},
    {"RawLineFeed", "lake\nforged", "lake\nforged", "lake\\x0aforged"},
    {"CarriageReturn", R"(lake\rforged)", "lake\rforged", "lake\\x0dforged"},
    {"TerminalSequence", "\\u001b[2J\\u001b]0;title\\u0007", "\x1B[2J\x1B]0;title\x07", "\\x1b[2J\\x1b]0;title\\x07"},
    {"RawEscape", "\x1B[31m", "\x1B[31m", "\\x1b[31m"},
    {"UpperControl", R"(\u009b31m)",
     "\xC2\x9B"
     "31m",
     "\\x9b31m"},
    {"Backspace", R"(a\b\b\b)", "a\b\b\b", "a\\x08\\x08\\x08"},
    {"Delete", R"(a\u007f)", "a\x7F", "a\\x7f"},
    {"BytesThatAreNoText", "a\xFF\xC3(", "a" + kReplacement + kReplacement + "(",
     "a" + kReplacement + kReplacement + "("},
    {"Quotes", R"(\" is illegal)", "\" is illegal", "\" is illegal"},
    {"VeryLong", kLong, kLong, kLong},
};

class LoggedName : public testing::TestWithParam<NameCase> {
protected:
    void load() {
        m_directory.write("CustomIndex", testMapping());
        const std::string path =
            m_directory.write("style.json", R"([{"featureType":")" + GetParam().inFile + R"("},)" +
                                                R"({"featureType":"highway","elementType":"labels.)" +
                                                GetParam().inFile + R"(","stylers":{"fontsize":"1"}}])");
        CustomConfig config;
        EXPECT_EQ(config.Init(m_directory.prefix().c_str(), path.c_str()), 1);
    }

    TemporaryDirectory m_directory;
};

TEST_P(LoggedName, ReachesTheHostUnchanged) {
    LogCapture log;
    load();
    const std::string& name = GetParam().inLog;
    EXPECT_EQ(log.take(), (std::vector{logLine("warning, \"featureType:" + name + "\" is illegal"),
                                       logLine("warning, \"" + name + "\" is not set for font size style.")}));
}

TEST_P(LoggedName, IsOneLineOnStandardErrorWithoutControls) {
    testing::internal::CaptureStderr();
    load();
    const std::string& name = GetParam().onScreen;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              logLine("warning, \"featureType:" + name + "\" is illegal\n") +
                  logLine("warning, \"" + name + "\" is not set for font size style.\n"));
}

INSTANTIATE_TEST_SUITE_P(LogText, LoggedName, testing::ValuesIn(kNames), caseName);

}  // namespace
}  // namespace customstyle_test
