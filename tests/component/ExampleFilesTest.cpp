// The map and the styles that we ship as examples.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VFile.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CVString;
using _orvik_vi::CVFile;

std::string example(const std::string& path) {
    return std::string(CUSTOMSTYLE_EXAMPLES_DIR) + "/" + path;
}

Tree parsedExample(const std::string& path) {
    CVFile file;
    EXPECT_EQ(file.Open(CVString(example(path).c_str()), CVFile::kReadExisting), 1);
    std::string text(file.GetLength(), '\0');
    EXPECT_EQ(file.Read(text.data(), text.size()), text.size());
    return parsed(text);
}

int load(CustomConfig& config, const std::string& style) {
    return config.Init(CVString(example("map/").c_str()), CVString(example("styles/" + style + ".json").c_str()));
}

class ExampleStyle : public testing::TestWithParam<const char*> {};

TEST_P(ExampleStyle, LoadsWithoutALogLine) {
    const LogCapture silent;
    CustomConfig config;
    EXPECT_EQ(load(config, GetParam()), 1);
    EXPECT_GT(config.m_usedLevelSlots, 0);
}

INSTANTIATE_TEST_SUITE_P(ExampleFiles, ExampleStyle,
                         testing::Values("night", "pale", "transit", "no-labels", "main-roads"), [](const auto& each) {
                             std::string name = each.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST(ExampleMap, HasSeveralStyleIdsForEachType) {
    const LogCapture silent;
    CustomConfig config;
    EXPECT_EQ(load(config, "night"), 1);
    for (int type = 0; type <= 71; ++type) EXPECT_GT(config.m_typeStyleMaps[type].GetCount(), 1) << type;
}

/// Consecutive lines of the log with the same reason.
struct LinesOfLog {
    int count;
    const char* message;
};

const LinesOfLog kMistakes[] = {
    {3, R"(warning, "featureType" is  illegal or absent)"},  // absent, a number, null
    {1, R"(warning, "featureType:lake" is illegal)"},
    {1, R"(warning, "featureType:Highway" is illegal)"},
    {1, R"(warning, "featureType:highway " is illegal)"},
    {1, R"(warning, "featureType:" is illegal)"},
    {4, R"(warning, "featureType" is  illegal or absent)"},  // a text, null, a number and a list in place of a rule
    {2, R"(warning, "elementType" is illegal or absent)"},   // absent, a number
    {3, R"(warning, "stylers" is illegal or absent)"},       // absent, a list, a text
    {8, R"(warning, "stylers" is undefined)"},               // none, a level, two other names, four that are not texts
    {8, R"(warning, "elementType" is invalid.)"},            // elements without colour
    {3, R"(warning, "visibility" is illegal or absent)"},    // "OFF", "none", ""
    {1, R"(warning, "elementType" is invalid.)"},            // an element without visibility
    {5, R"(Error, "weight" contain alpha, is illegal)"},     // "2.5", "-2", "3px", " 3", ""
    {2, R"(warning, "elementType" is invalid.)"},            // elements without weight
    {3, R"(Error, "featureType" not include labels element)"},  // land, grid, all
    {1, R"(Error, "geometry" not include labels element)"},
    {1, R"(Error, "fill" not include labels element)"},
    {3, R"(Error, "fontsize" contain alpha, is illegal)"},  // "12px", "-1", ""
    {1, R"(warning, "icon" is not set for font size style.)"},
};

TEST(ExampleMistakes, LoadAndAreAllReportedInTheirOrder) {
    LogCapture log;
    CustomConfig config;
    EXPECT_EQ(load(config, "mistakes"), 1);
    std::vector<std::string> expected;
    for (const auto& [count, message] : kMistakes) {
        expected.insert(expected.end(), static_cast<std::size_t>(count), std::string("ZRX Custom Map: ") + message);
    }
    EXPECT_EQ(log.take(), expected);
}

/// What the note of a rule says of its log line; a rule that is not an object is one of the mistakes.
bool isSaidToBeLogged(const _orvik_vi::cJSON* rule) {
    const auto* note = _orvik_vi::cJSON_GetObjectItem(rule, "note");
    return note == nullptr || std::string(note->valuestring).starts_with("Logged");
}

TEST(ExampleMistakes, AreReportedWhereTheirNotesSaySo) {
    LogCapture log;
    CustomConfig config;
    config.ParseMappingConfig(parsedExample("map/CustomIndex").get());
    const Tree rules = parsedExample("styles/mistakes.json");
    int index = 0;
    while (Tree one{cJSON_DetachItemFromArray(rules.get(), 0)}) {
        const bool logged = isSaidToBeLogged(one.get());
        const Tree list(cJSON_CreateArray());
        cJSON_AddItemToArray(list.get(), one.release());
        config.ParseCustomConfig(list.get());
        EXPECT_EQ(log.take().size(), logged ? 1U : 0U) << "rule " << index;
        ++index;
    }
    EXPECT_GT(index, 100);
}

}  // namespace
}  // namespace customstyle_test
