// Reading the two files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "tests/support/CaseName.h"
#include "tests/support/FaultyMemory.h"
#include "tests/support/LogCapture.h"
#include "tests/support/OpenFiles.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

int recordsIn(const CustomConfig& config) {
    int records = 0;
    for (const auto& typeRecords : config.m_typeStyleMaps) records += typeRecords.GetCount();
    return records;
}

// ---- What the files hold --------------------------------------------------------------------------------------------

struct FilesCase {
    const char* name;
    std::optional<std::string> mapping;  ///< none: the file does not exist
    std::optional<std::string> style;
    int result;
    const char* message;
    int records;  ///< base records in the end
    int blocks;   ///< never given back
    int bytes;
};

const std::string kGood = testMapping();
const std::optional<std::string> kNone;
constexpr char kMappingMissing[] = "CustomIndex file open failed";
constexpr char kMappingRefused[] = "CustomIndex file parse failed";
constexpr char kMappingNotJson[] = "CustomIndex file parse failed, format error";
constexpr char kStyleMissing[] = "open failed";
constexpr char kStyleNotJson[] = "custom config file parse failed, format error";

const std::string kUpToGrid = kGood.substr(0, kGood.rfind(",\n")) + "}";

const FilesCase kFiles[] = {
    {"Good", kGood, "[]", 1, "", kTestRecords, 0, 0},
    {"NoFiles", kNone, kNone, 0, kMappingMissing, 0, 0, 0},
    {"NoMapping", kNone, "[]", 0, kMappingMissing, 0, 0, 0},
    {"MappingIsNotJson", "not JSON", "[]", 0, kMappingNotJson, 0, 1, 8},
    {"MappingIsCut", R"({"land": [1, 2)", "[]", 0, kMappingNotJson, 0, 1, 14},
    {"MappingIsEmpty", "", "[]", 0, kMappingNotJson, 0, 1, 0},
    {"MappingIsBlank", " \n", "[]", 0, kMappingNotJson, 0, 1, 2},
    {"MappingIsAnEmptyObject", "{}", "[]", 0, kMappingRefused, 0, 0, 0},
    {"MappingIsAnArray", "[]", "[]", 0, kMappingRefused, 0, 0, 0},
    {"MappingIsANumber", "5", "[]", 0, kMappingRefused, 0, 0, 0},
    {"MappingLacksTheGrid", kUpToGrid, "[]", 0, kMappingRefused, kTestRecords - 2, 0, 0},
    {"MappingHasATypeThatIsNoArray", R"({"land":[1],"green":5})", "[]", 0, kMappingRefused, 1, 0, 0},
    {"BothAreWrong", "not JSON", "not JSON", 0, kMappingNotJson, 0, 1, 8},
    {"NoStyle", kGood, kNone, 0, kStyleMissing, kTestRecords, 0, 0},
    {"StyleIsNotJson", kGood, "not JSON", 0, kStyleNotJson, kTestRecords, 1, 8},
    {"StyleIsCut", kGood, R"([{"featureType": "la)", 0, kStyleNotJson, kTestRecords, 1, 20},
    {"StyleIsEmpty", kGood, "", 0, kStyleNotJson, kTestRecords, 1, 0},
    {"StyleHasHalfAByteOrderMark", kGood, "\xEF\xBB", 0, kStyleNotJson, kTestRecords, 1, 2},
    {"StyleIsAllNul", kGood, "\0\0\0"s, 0, kStyleNotJson, kTestRecords, 1, 3},
    {"StyleBeginsWithNul", kGood, "\0[]"s, 0, kStyleNotJson, kTestRecords, 1, 3},
    {"StyleHasNulInItsArray", kGood, "[\0]"s, 0, kStyleNotJson, kTestRecords, 1, 3},
    {"StyleHasNulInAText", kGood, "[\"a\0b\"]"s, 0, kStyleNotJson, kTestRecords, 1, 7},
    {"StyleHasAByteOrderMark", kGood, "\xEF\xBB\xBF[]", 1, "", kTestRecords, 0, 0},
    {"StyleIsFollowedByText", kGood, "[] and more", 1, "", kTestRecords, 0, 0},
    {"StyleIsFollowedByNuls", kGood, "[]\0\0"s, 1, "", kTestRecords, 0, 0},
    {"StyleIsFollowedByNulAndText", kGood, "[]\0 x"s, 1, "", kTestRecords, 0, 0},
    {"MappingIsFollowedByText", kGood + "]", "[]", 1, "", kTestRecords, 0, 0},
    {"MappingHasAByteOrderMark", "\xEF\xBB\xBF" + kGood, "[]", 1, "", kTestRecords, 0, 0},
    {"StyleIsAnObject", kGood, "{}", 1, "", kTestRecords, 0, 0},
    {"StyleIsAText", kGood, R"("")", 1, "", kTestRecords, 0, 0},
    {"StyleIsANumber", kGood, "0", 1, "", kTestRecords, 0, 0},
    {"StyleIsALongNumber", kGood, "1234567890", 1, "", kTestRecords, 0, 0},
    {"StyleIsTrue", kGood, "true", 1, "", kTestRecords, 0, 0},
    {"StyleIsNull", kGood, "null", 1, "", kTestRecords, 0, 0},
    {"RulesAreRefused", kGood, "[{}]", 1, R"(warning, "featureType" is  illegal or absent)", kTestRecords, 0, 0},
};

class Files : public testing::TestWithParam<FilesCase> {
protected:
    std::string write(const char* name, const std::optional<std::string>& content) const {
        return content ? m_directory.write(name, *content) : m_directory.prefix() + name;
    }

    TemporaryDirectory m_directory;
    LogCapture m_log;
};

TEST_P(Files, AreLoadedOrReported) {
    const FilesCase& param = GetParam();
    write("CustomIndex", param.mapping);
    const std::string style = write("style.json", param.style);
    CustomConfig config;
    EXPECT_EQ(config.Init(m_directory.prefix().c_str(), style.c_str()), param.result);
    EXPECT_EQ(recordsIn(config), param.records);
    const std::string line = *param.message == '\0' ? "" : std::string("ZRX Custom Map: ") + param.message;
    EXPECT_EQ(m_log.take(), line.empty() ? std::vector<std::string>() : std::vector{line});
    for (const auto priority : m_log.priorities()) EXPECT_EQ(priority, 5);
}

TEST_P(Files, LeaveBehindTheTextThatIsNotJsonAndNothingElse) {
    write("CustomIndex", GetParam().mapping);
    const std::string style = write("style.json", GetParam().style);
    const int filesBefore = openFiles();
    const MemoryAccounts accounts;
    CustomConfig().Init(m_directory.prefix().c_str(), style.c_str());
    m_log.take();
    EXPECT_EQ(accounts.blocks(), GetParam().blocks);
    EXPECT_EQ(accounts.bytes(), GetParam().bytes);
    EXPECT_EQ(openFiles(), filesBefore);
}

INSTANTIATE_TEST_SUITE_P(Init, Files, testing::ValuesIn(kFiles), caseName);

// ---- Paths ----------------------------------------------------------------------------------------------------------

class Init : public testing::Test {
protected:
    int load(const std::string& mappingDirectory, const std::string& style) {
        return m_config.Init(mappingDirectory.c_str(), style.c_str());
    }

    /// Loads the test mapping and the rules, the usual way.
    int load(std::initializer_list<RuleBuilder> rules) {
        m_directory.write("CustomIndex", testMapping());
        return load(m_directory.prefix(), m_directory.write("style.json", styleOf(rules)));
    }

    TemporaryDirectory m_directory;
    LogCapture m_log;
    CustomConfig m_config;
};

TEST_F(Init, EmptyPathsAreRefusedInSilence) {
    m_directory.write("CustomIndex", testMapping());
    const std::string style = m_directory.write("style.json", "[]");
    EXPECT_EQ(load("", style), 0);
    EXPECT_EQ(load(m_directory.prefix(), ""), 0);
    EXPECT_EQ(load("", ""), 0);
    EXPECT_EQ(recordsIn(m_config), 0);
}

TEST_F(Init, ADirectoryWithoutSeparatorIsAPrefixOfTheFileName) {
    m_directory.write("bCustomIndex", testMapping());
    const std::string style = m_directory.write("style.json", "[]");
    EXPECT_EQ(load(m_directory.prefix() + "b", style), 1);
    EXPECT_EQ(recordsIn(m_config), kTestRecords);
}

TEST_F(Init, ADirectoryWithoutSeparatorDoesNotFindTheFileInside) {
    m_directory.write("CustomIndex", testMapping());
    EXPECT_EQ(load(m_directory.path().string(), m_directory.write("style.json", "[]")), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: CustomIndex file open failed"));
}

TEST_F(Init, TheStylePathStandsForItself) {
    m_directory.write("CustomIndex", testMapping());
    m_directory.write("style.json", "[]");
    EXPECT_EQ(load(m_directory.prefix(), "style.json"), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: open failed"));
}

TEST_F(Init, ADirectoryIsNoMappingFile) {
    m_directory.makeDirectory("CustomIndex");
    EXPECT_EQ(load(m_directory.prefix(), m_directory.write("style.json", "[]")), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: CustomIndex file open failed"));
}

TEST_F(Init, ADirectoryIsNoStyleFile) {
    m_directory.write("CustomIndex", testMapping());
    EXPECT_EQ(load(m_directory.prefix(), m_directory.path().string()), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: open failed"));
}

TEST_F(Init, PathsAreUtf8) {
    m_directory.makeDirectory("地图");
    m_directory.write("地图/CustomIndex", testMapping());
    EXPECT_EQ(load(m_directory.prefix() + "地图/", m_directory.write("façade.json", "[]")), 1);
}

TEST_F(Init, BothFilesMayBeOneAndTheSame) {
    const std::string mapping = m_directory.write("CustomIndex", testMapping());
    EXPECT_EQ(load(m_directory.prefix(), mapping), 1);
    EXPECT_EQ(m_log.take().size(), 72U);  // its members are not rules
}

// ---- Results --------------------------------------------------------------------------------------------------------

TEST_F(Init, AppliesTheRulesToTheRecordsOfTheMapping) {
    EXPECT_EQ(load({rule("highway", "geometry.fill").color("#112233")}), 1);
    EXPECT_EQ(firstRecordAt(m_config, "13").m_fillColor, 0xff332211U);
}

TEST_F(Init, RulesThatAreAllRefusedStillSucceed) {
    EXPECT_EQ(load({rule("lake", "fill").color("#112233"), rule("land", "icon").color("#112233")}), 1);
    EXPECT_THAT(m_log.take(), ElementsAre(R"(ZRX Custom Map: warning, "featureType:lake" is illegal)",
                                          R"(ZRX Custom Map: warning, "elementType" is invalid.)"));
}

TEST_F(Init, ARefusedMappingAppliesNoRule) {
    m_directory.write("CustomIndex", R"({"land": [5]})");
    const std::string style = m_directory.write("style.json", styleOf({rule("land", "fill").color("#112233")}));
    EXPECT_EQ(load(m_directory.prefix(), style), 0);
    EXPECT_THAT(m_log.take(), ElementsAre("ZRX Custom Map: CustomIndex file parse failed"));
    EXPECT_EQ(recordsIn(m_config), 1);
    EXPECT_EQ(m_config.m_usedLevelSlots, 0);
}

TEST_F(Init, ASecondCallAddsRules) {
    EXPECT_EQ(load({rule("highway", "geometry.fill").color("#112233")}), 1);
    EXPECT_EQ(load({rule("highway", "geometry.stroke").color("#445566"), rule("water", "fill").color("#000000")}), 1);
    EXPECT_EQ(firstRecordAt(m_config, "13").m_fillColor, 0xff332211U);
    EXPECT_EQ(firstRecordAt(m_config, "13").m_borderColor, 0xff665544U);
    EXPECT_EQ(m_config.m_usedLevelSlots, 2);
    EXPECT_EQ(recordsIn(m_config), kTestRecords);
}

TEST_F(Init, ASecondCallDoesNotFreeTheRecordsThatItReplaces) {
    const MemoryAccounts accounts;
    {
        CustomConfig config;
        m_directory.write("CustomIndex", testMapping());
        const std::string style = m_directory.write("style.json", "[]");
        EXPECT_EQ(config.Init(m_directory.prefix().c_str(), style.c_str()), 1);
        EXPECT_EQ(config.Init(m_directory.prefix().c_str(), style.c_str()), 1);
    }
    EXPECT_EQ(accounts.blocks(), kTestRecords);
    EXPECT_EQ(accounts.bytes(),
              kTestRecords * static_cast<std::ptrdiff_t>(sizeof(std::uint64_t) + sizeof(tagCustomStyle)));
}

TEST_F(Init, WorksWhateverTheSwitchSays) {
    ASSERT_EQ(g_zrsdk_custom_style_enable, 0);
    EXPECT_EQ(load({rule("highway", "geometry.fill").color("#112233")}), 1);
    EXPECT_EQ(m_config.m_usedLevelSlots, 1);
    EXPECT_EQ(g_zrsdk_custom_style_enable, 0);
}

}  // namespace
}  // namespace customstyle_test
