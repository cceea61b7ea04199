// Trees that no text yields: a host made them by hand, with members that lack a name or a text.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using testing::ElementsAre;

/// Puts members without a name in front of the named ones of an object and after them.
void addNamelessMembers(cJSON* object) {
    cJSON_InsertItemInArray(object, 0, cJSON_CreateString("#445566"));
    cJSON_InsertItemInArray(object, 0, cJSON_CreateObject());
    cJSON_AddItemToArray(object, cJSON_CreateString("15"));
}

cJSON* stylersOf(const Tree& style) {
    return _orvik_vi::cJSON_GetObjectItem(style->child, "stylers");
}

/// Takes the text from the string under a name.
void dropText(cJSON* object, const char* name) {
    cJSON* const member = _orvik_vi::cJSON_GetObjectItem(object, name);
    cJSON_free(member->valuestring);
    member->valuestring = nullptr;
}

class NamelessMembers : public testing::Test {
protected:
    LogCapture m_log;
    std::unique_ptr<CustomConfig> m_config = loadedWith({});
};

TEST_F(NamelessMembers, OfARuleArePassedOver) {
    const Tree style = parsed(styleOf({rule("land", "fill").color("#112233")}));
    addNamelessMembers(style->child);
    EXPECT_EQ(m_config->ParseCustomConfig(style.get()), 1);
    EXPECT_EQ(firstRecordAt(*m_config, "0").m_fillColor, 0xff332211U);
}

TEST_F(NamelessMembers, OfStylersArePassedOver) {
    const Tree style = parsed(styleOf({rule("land", "fill").color("#112233").weight("7")}));
    addNamelessMembers(stylersOf(style));
    EXPECT_EQ(m_config->ParseCustomConfig(style.get()), 1);
    EXPECT_EQ(firstRecordAt(*m_config, "0").m_fillColor, 0xff332211U);
    EXPECT_EQ(firstRecordAt(*m_config, "0").m_fillWeight, 7);
}

TEST_F(NamelessMembers, AreNoStylers) {
    const Tree style = parsed(styleOf({rule("land", "fill")}));
    addNamelessMembers(stylersOf(style));
    EXPECT_EQ(m_config->ParseCustomConfig(style.get()), 1);
    EXPECT_THAT(m_log.take(), ElementsAre(logLine(R"(warning, "stylers" is undefined)")));
}

TEST_F(NamelessMembers, AreNotInTheListOfStylersAndAreNoLevel) {
    const Tree stylers = parsed(R"({"fontsize":"9","color":"#112233"})");
    addNamelessMembers(stylers.get());
    EXPECT_EQ(m_config->ParseCustomStyler(stylers.get()).ToUtf8(), "color;;;fontsize");
    int level = -1;
    EXPECT_EQ(m_config->ParseCustomStyleGivenLevel(stylers.get(), &level), 1);
    EXPECT_EQ(level, 0);
}

TEST_F(NamelessMembers, OfAMappingArePassedOver) {
    const Tree mapping = parsed(testMapping());
    addNamelessMembers(mapping.get());
    CustomConfig config;
    EXPECT_EQ(config.ParseMappingConfig(mapping.get()), 1);
    EXPECT_EQ(config.m_typeStyleMaps[71].GetCount(), 2);
}

struct TextlessCase {
    const char* name;
    const char* member;
    std::vector<std::string> lines;
};

const TextlessCase kTextless[] = {
    {"FeatureType", "featureType", {R"(warning, "featureType" is  illegal or absent)"}},
    {"ElementType", "elementType", {R"(warning, "elementType" is illegal or absent)"}},
    {"Color", "color", {R"(warning, "stylers" is illegal or absent)"}},
    {"Visibility", "visibility", {R"(warning, "stylers" is illegal or absent)"}},
    {"Weight", "weight", {R"(warning, "weight" is illegal or absent)"}},
    {"FontSize", "fontsize", {R"(Error, "fontsize" is illegal or absent)"}},
    {"Level", "level", {}},
};

class StringWithoutText : public testing::TestWithParam<TextlessCase> {};

TEST_P(StringWithoutText, CountsAsAbsent) {
    const Tree style =
        parsed(styleOf({rule("highway", "labels").color("#1").visibility("on").weight("7").fontsize("9").level("15")}));
    const bool isOfRule = _orvik_vi::cJSON_GetObjectItem(style->child, GetParam().member) != nullptr;
    dropText(isOfRule ? style->child : stylersOf(style), GetParam().member);
    LogCapture log;
    EXPECT_EQ(loadedWith({})->ParseCustomConfig(style.get()), 1);
    std::vector<std::string> lines;
    for (const std::string& line : GetParam().lines) lines.push_back(logLine(line));
    EXPECT_EQ(log.take(), lines);
}

INSTANTIATE_TEST_SUITE_P(HandMadeTrees, StringWithoutText, testing::ValuesIn(kTextless), caseName);

}  // namespace
}  // namespace customstyle_test
