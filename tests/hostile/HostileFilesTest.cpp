// What the two paths may name: things that are not plain files, senseless files, huge numbers, very many rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "customstyle/StoredRecords.h"
#include "tests/support/CaseName.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/OpenFiles.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/Repeated.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StoredRecords;

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::ElementsAre;

constexpr char kMappingMissing[] = "CustomIndex file open failed";
constexpr char kMappingRefused[] = "CustomIndex file parse failed";
constexpr char kMappingNotJson[] = "CustomIndex file parse failed, format error";
constexpr char kStyleMissing[] = "open failed";
constexpr char kStyleNotJson[] = "custom config file parse failed, format error";
constexpr char kNoRule[] = R"(warning, "featureType" is  illegal or absent)";

class HostileFiles : public testing::Test {
protected:
    HostileFiles() {
        fs::permissions(m_directory.path(), fs::perms(0755));
        alarm(120);  // a load that hangs ends the program
    }
    ~HostileFiles() override { alarm(0); }

    fs::path path(const char* name) const { return m_directory.path() / name; }

    /// Loads what is in the directory. Only text that is not JSON may stay allocated.
    int load() {
        const int filesBefore = openFiles();
        const MemoryAccounts accounts;
        int result = 0;
        {
            CustomConfig config;
            const OrdinaryUser user;
            result = config.Init(m_directory.prefix().c_str(), path("style.json").string().c_str());
        }
        m_lines = m_log.take();
        const bool leavesText = !m_lines.empty() && m_lines[0].ends_with("format error");
        EXPECT_EQ(accounts.blocks(), leavesText ? 1 : 0);
        EXPECT_EQ(openFiles(), filesBefore);
        return result;
    }

    void expectLines(const char* message) const {
        EXPECT_EQ(m_lines, *message == '\0' ? std::vector<std::string>() : std::vector{logLine(message)});
    }

    TemporaryDirectory m_directory;
    LogCapture m_log;
    std::vector<std::string> m_lines;
};

// ---- Not plain files ------------------------------------------------------------------------------------------------

struct ObstacleCase {
    const char* name;
    void (*make)(const fs::path& path);
};

const ObstacleCase kObstacles[] = {
    {"Nothing", [](const fs::path&) {}},
    {"AFileWithoutPermission",
     [](const fs::path& path) {
         std::ofstream(path) << "[]";
         fs::permissions(path, fs::perms::none);
     }},
    {"ADirectory", [](const fs::path& path) { fs::create_directory(path); }},
    {"APipe", [](const fs::path& path) { ASSERT_EQ(mkfifo(path.c_str(), 0666), 0); }},
    {"TheDeviceWithoutContent", [](const fs::path& path) { fs::create_symlink("/dev/null", path); }},
    {"TheDeviceWithoutEnd", [](const fs::path& path) { fs::create_symlink("/dev/zero", path); }},
    {"TheTerminal", [](const fs::path& path) { fs::create_symlink("/dev/tty", path); }},
    {"ALinkToItself", [](const fs::path& path) { fs::create_symlink(path, path); }},
    {"ALinkToNothing", [](const fs::path& path) { fs::create_symlink("nothing", path); }},
    {"ALinkToADirectory", [](const fs::path& path) { fs::create_directory_symlink(".", path); }},
};

class Obstacle : public HostileFiles, public testing::WithParamInterface<ObstacleCase> {};

TEST_P(Obstacle, InPlaceOfTheMappingIsRefused) {
    GetParam().make(path("CustomIndex"));
    m_directory.write("style.json", "[]");
    EXPECT_EQ(load(), 0);
    expectLines(kMappingMissing);
}

TEST_P(Obstacle, InPlaceOfTheStyleIsRefused) {
    m_directory.write("CustomIndex", testMapping());
    GetParam().make(path("style.json"));
    EXPECT_EQ(load(), 0);
    expectLines(kStyleMissing);
}

INSTANTIATE_TEST_SUITE_P(HostileFiles, Obstacle, testing::ValuesIn(kObstacles), caseName);

TEST_F(HostileFiles, ALinkToAPlainFileIsThatFile) {
    m_directory.write("elsewhere", testMapping());
    fs::create_symlink("elsewhere", path("CustomIndex"));
    m_directory.write("style.json", "[]");
    EXPECT_EQ(load(), 1);
}

TEST_F(HostileFiles, PathsOfAnyLengthAreRefused) {
    const std::string longName(100000, 'x');
    CustomConfig config;
    EXPECT_EQ(config.Init(longName.c_str(), longName.c_str()), 0);
    EXPECT_THAT(m_log.take(), ElementsAre(logLine(kMappingMissing)));
    m_directory.write("CustomIndex", testMapping());
    EXPECT_EQ(config.Init(m_directory.prefix().c_str(), longName.c_str()), 0);
    EXPECT_THAT(m_log.take(), ElementsAre(logLine(kStyleMissing)));
}

// ---- Senseless contents ---------------------------------------------------------------------------------------------

struct ContentCase {
    const char* name;
    std::string content;
    const char* ofMapping;  ///< the line that it leaves as the mapping
    const char* ofStyle;    ///< and as the style; none where it loads
};

const ContentCase kContents[] = {
    {"OneLetter", "x", kMappingNotJson, kStyleNotJson},
    {"OneBracket", "[", kMappingNotJson, kStyleNotJson},
    {"OneQuote", "\"", kMappingNotJson, kStyleNotJson},
    {"OneBackslash", "\\", kMappingNotJson, kStyleNotJson},
    {"OneMinus", "-", kMappingNotJson, kStyleNotJson},
    {"OneDigit", "7", kMappingRefused, ""},
    {"OneNul", "\0"s, kMappingNotJson, kStyleNotJson},
    {"OneByteThatIsNoText", "\xFF", kMappingNotJson, kStyleNotJson},
    {"OneTab", "\t", kMappingNotJson, kStyleNotJson},
    {"OnlyAByteOrderMark", "\xEF\xBB\xBF", kMappingNotJson, kStyleNotJson},
    {"TwoByteOrderMarks", "\xEF\xBB\xBF\xEF\xBB\xBF[]", kMappingNotJson, kStyleNotJson},
    {"Utf16", "\xFF\xFE[\0]\0"s, kMappingNotJson, kStyleNotJson},
    {"Utf32", "[\0\0\0]\0\0\0"s, kMappingNotJson, kStyleNotJson},
    {"AByteThatIsNoText", "[\xFF]", kMappingNotJson, kStyleNotJson},
    {"ATextThatIsCutInALetter", "[\"\xE6\xA0", kMappingNotJson, kStyleNotJson},
    {"ATextThatEndsInABackslash", "[\"\\", kMappingNotJson, kStyleNotJson},
    {"ATextThatEndsInAnEscape", "[\"\\u12", kMappingNotJson, kStyleNotJson},
    {"HalfASurrogatePair", R"(["\ud800"])", kMappingNotJson, kStyleNotJson},
    {"AMemberWithoutValue", R"({"land":})", kMappingNotJson, kStyleNotJson},
    {"ANumberOfSixtyDigits", "[" + std::string(60, '9') + "]", kMappingRefused, kNoRule},
    {"AnExponentOfFiftyDigits", "[1e" + std::string(50, '9') + "]", kMappingRefused, kNoRule},
    {"NotANumber", "[NaN]", kMappingNotJson, kStyleNotJson},
    {"Nested1000Lists", nested("[", "", "]", 1000), kMappingRefused, kNoRule},
    {"Nested1001Lists", nested("[", "", "]", 1001), kMappingNotJson, kStyleNotJson},
    {"Nested1000Objects", nested("{\"a\":", "{}", "}", 999), kMappingRefused, kNoRule},
    {"Nested1001Objects", nested("{\"a\":", "{}", "}", 1000), kMappingNotJson, kStyleNotJson},
    {"NestedMillionLists", std::string(1000000, '['), kMappingNotJson, kStyleNotJson},
    {"MillionBlanks", std::string(1000000, ' '), kMappingNotJson, kStyleNotJson},
    {"MillionNuls", std::string(1000000, '\0'), kMappingNotJson, kStyleNotJson},
    {"MillionQuotes", std::string(1000000, '"'), kMappingRefused, ""},
};

class Content : public HostileFiles, public testing::WithParamInterface<ContentCase> {};

TEST_P(Content, OfTheMapping) {
    m_directory.write("CustomIndex", GetParam().content);
    m_directory.write("style.json", "[]");
    EXPECT_EQ(load(), 0);
    expectLines(GetParam().ofMapping);
}

TEST_P(Content, OfTheStyle) {
    m_directory.write("CustomIndex", testMapping());
    m_directory.write("style.json", GetParam().content);
    EXPECT_EQ(load(), std::string(GetParam().ofStyle) == kStyleNotJson ? 0 : 1);
    expectLines(GetParam().ofStyle);
}

INSTANTIATE_TEST_SUITE_P(HostileFiles, Content, testing::ValuesIn(kContents), caseName);

// A style may be cut anywhere; only the whole one is JSON.
TEST_F(HostileFiles, AStyleThatIsCutAnywhereIsRefused) {
    m_directory.write("CustomIndex", testMapping());
    const std::string whole =
        styleOf({rule("highway", "all").color("#112233").level("15"), rule("land", "\xE6\xA0\x87")});
    for (std::size_t size = 0; size < whole.size(); ++size) {
        m_directory.write("style.json", whole.substr(0, size));
        EXPECT_EQ(load(), 0) << size;
        expectLines(kStyleNotJson);
    }
}

// ---- Huge numbers ---------------------------------------------------------------------------------------------------

struct NumberCase {
    const char* name;
    const char* number;
    int styleId;  ///< 0: none
};

class StyleIdNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(StyleIdNumber, IsHeldWithinTheRange) {
    const LogCapture silent;
    CustomConfig config;
    config.ParseMappingConfig(parsed("{\"land\":[" + std::string(GetParam().number) + "]}").get());
    EXPECT_EQ(config.m_typeStyleMaps[0].GetCount(), GetParam().styleId == 0 ? 0 : 1);
    const tagCustomStyle* const record = StoredRecords(config.m_typeStyleMaps[0]).first().record;
    EXPECT_EQ(record == nullptr ? 0 : record->m_ID, GetParam().styleId);
}

INSTANTIATE_TEST_SUITE_P(HostileFiles, StyleIdNumber,
                         testing::Values(NumberCase{"OneAboveTheLargest", "2147483648", 2147483647},
                                         NumberCase{"OneBelowTheSmallest", "-2147483649", -2147483647 - 1},
                                         NumberCase{"BeyondDouble", "1e999", 2147483647},
                                         NumberCase{"BelowDouble", "-1e999", -2147483647 - 1},
                                         NumberCase{"NextToNothing", "1e-999", 0},
                                         NumberCase{"LessThanOne", "0.9999999999999", 0},
                                         NumberCase{"MinusNothing", "-0", 0},
                                         NumberCase{"ManyDigits", "1.00000000000000000000000000000000000000001", 1},
                                         NumberCase{"ListsInside", "[5]", 0}, NumberCase{"TextsInside", "\"5\"", 0}),
                         caseName);

// ---- Very many rules ------------------------------------------------------------------------------------------------

TEST_F(HostileFiles, TwoHundredThousandRulesAreReadToTheLastOne) {
    m_directory.write("style.json",
                      "[" + repeated("0,", 199'999) + rule("highway", "fill").color("#112233").json() + "]");
    m_directory.write("CustomIndex", testMapping());
    std::size_t refused = 0;
    _orvik_vi::CVLog::SetSink([&](_orvik_vi::ELOGPRIORITY, const std::string&) { ++refused; });
    CustomConfig config;
    EXPECT_EQ(config.Init(m_directory.prefix().c_str(), path("style.json").string().c_str()), 1);
    _orvik_vi::CVLog::SetSink({});
    EXPECT_EQ(refused, 199'999U);
    EXPECT_EQ(firstRecordAt(config, "13").m_fillColor, 0xff332211U);
}

TEST_F(HostileFiles, AHundredThousandMembersOfOneRuleAreSearchedInOrder) {
    const std::string style = "[{" + repeated("\"other\":0,", 100'000) +
                              R"("featureType":"highway","elementType":"fill","stylers":{"color":"#112233"}}])";
    CustomConfig config;
    config.ParseMappingConfig(parsed(testMapping()).get());
    config.ParseCustomConfig(parsed(style).get());
    EXPECT_EQ(firstRecordAt(config, "13").m_fillColor, 0xff332211U);
}

TEST_F(HostileFiles, AMillionStyleIdsOfOneTypeAreAllKept) {
    std::string ids;
    for (int i = 1; i <= 1000000; ++i) ids += (i == 1 ? "" : ",") + std::to_string(i * 7);
    CustomConfig config;
    config.ParseMappingConfig(parsed("{\"land\":[" + ids + "]}").get());
    EXPECT_EQ(config.m_typeStyleMaps[0].GetCount(), 1000000);
}

}  // namespace
}  // namespace customstyle_test
