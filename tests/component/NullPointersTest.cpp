// What each function of the interface that takes a pointer makes of a null.
#include <gmock/gmock.h>

#include <functional>

#include "customstyle/CustomConfig.h"
#include "tests/support/CaseName.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace {

using _orvik_framework::CustomConfig;
using customstyle_test::caseName;
using customstyle_test::LogCapture;
using customstyle_test::parsed;
using customstyle_test::testMapping;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Null, AsAMappingHasNoFeatureTypes) {
    CustomConfig config;
    EXPECT_EQ(config.ParseMappingConfig(nullptr), 0);
    EXPECT_EQ(config.m_typeStyleMaps[0].GetCount(), 0);
}

TEST(Null, AsAStyleHasNoRules) {
    LogCapture log;
    CustomConfig config;
    EXPECT_EQ(config.ParseCustomConfig(nullptr), 1);
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST(Null, AsStylersHasNoLevel) {
    int level = 15;
    EXPECT_EQ(CustomConfig().ParseCustomStyleGivenLevel(nullptr, &level), 1);
    EXPECT_EQ(level, 0);
}

TEST(Null, AsStylersNamesNone) {
    EXPECT_EQ(CustomConfig().ParseCustomStyler(nullptr).ToUtf8(), ";;;");
}

TEST(Null, AsATextIsEmpty) {
    const CustomConfig config;
    EXPECT_EQ(static_cast<std::uint32_t>(config.CalculateColorValue(nullptr, 13)), 0xFF000000);
    EXPECT_EQ(config.CalculateWeightValue(nullptr), 0);
}

TEST(Null, AsAKeyIsNotInEffect) {
    CustomConfig config;
    config.m_styleEffectLevels = {{"", 0}, {"13", 1}};
    EXPECT_EQ(config.IsStyleEffectAtGivenLevel(nullptr), 0);
    config.m_styleEffectLevels = {{"", 1}, {"13:15", 0}};
    EXPECT_EQ(config.IsStyleEffectAtAllLevel(nullptr), 0);
}

TEST(Null, AsRecordersTakesNoNotes) {
    CustomConfig config;
    config.ParseMappingConfig(parsed(testMapping()).get());
    config.SetCustomVisibilityStyle(13, "geometry", parsed(R"({"visibility": "off"})").get(), 0, nullptr, 7, 1, 0);
    EXPECT_EQ(customstyle_test::firstRecordAt(config, "13").m_fillColorSet, 1);
}

struct DispatcherCase {
    const char* name;
    std::function<void(CustomConfig&)> call;
    const char* logged;
};

const DispatcherCase kDispatchers[] = {
    {"Color", [](CustomConfig& config) { config.SetCustomColorStyle(13, "fill", nullptr, 0, nullptr, 1, 0); },
     R"(ZRX Custom Map: warning, "stylers" is illegal or absent)"},
    {"Visibility",
     [](CustomConfig& config) { config.SetCustomVisibilityStyle(13, "fill", nullptr, 0, nullptr, 0, 1, 0); },
     R"(ZRX Custom Map: warning, "stylers" is illegal or absent)"},
    {"Weight", [](CustomConfig& config) { config.SetCustomWeightStyle(13, "fill", nullptr, 0, nullptr, 1, 0); },
     R"(ZRX Custom Map: warning, "weight" is illegal or absent)"},
    {"FontSize", [](CustomConfig& config) { config.SetCustomFontSizeStyle(13, "fill", nullptr, 1, nullptr, 1, 0); },
     R"(ZRX Custom Map: Error, "fontsize" is illegal or absent)"},
};

class NullStylers : public testing::TestWithParam<DispatcherCase> {};

TEST_P(NullStylers, AreReportedAsAnAbsentValue) {
    LogCapture log;
    CustomConfig config;
    GetParam().call(config);
    EXPECT_THAT(log.take(), ElementsAre(GetParam().logged));
    EXPECT_THAT(config.m_styleEffectLevels, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Dispatchers, NullStylers, testing::ValuesIn(kDispatchers), caseName);

}  // namespace
