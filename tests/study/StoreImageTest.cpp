// Images of stores: what makes two of them differ.
#include <gtest/gtest.h>

#include <functional>

#include "tests/model/BaseRecords.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"
#include "tools/study/StoreImage.h"

namespace customstyle_test {
namespace {

using customstyle_tool::StoreImage;

struct ChangeCase {
    const char* name;
    std::function<void(CustomConfig&)> change;
};

const ChangeCase kChanges[] = {
    {"AField", [](CustomConfig& config) { ++firstRecordAt(config, "13").m_fillColor; }},
    {"AStyleId",
     [](CustomConfig& config) {
         auto& slot = config.m_levelStyleMaps[0];
         void* const record = slot[recordKey(firstStyleId(13))];
         slot[recordKey(99999)] = record;
         slot[recordKey(firstStyleId(13))] = nullptr;
     }},
    {"AKey",
     [](CustomConfig& config) {
         config.m_keyStyleMaps["14"] = config.m_keyStyleMaps.at("13");
         config.m_keyStyleMaps.erase("13");
     }},
    {"AnEffect", [](CustomConfig& config) { config.m_styleEffectLevels["13"] = 2; }},
    {"TheGridColour", [](CustomConfig& config) { ++config.m_gridColor; }},
    {"WhetherTheGridIsColoured", [](CustomConfig& config) { config.m_gridColorSet ^= 1; }},
    {"WhetherAllIconsAreHidden", [](CustomConfig& config) { config.m_allIconsHidden ^= 1; }},
};

class StoreImageChange : public testing::TestWithParam<ChangeCase> {};

TEST_P(StoreImageChange, MakesImagesUnlike) {
    const auto config = loadedWith({rule("highway", "geometry").color("#112233")});
    const StoreImage before(*config);
    EXPECT_EQ(before, StoreImage(*config));
    GetParam().change(*config);
    EXPECT_FALSE(before == StoreImage(*config));
}

INSTANTIATE_TEST_SUITE_P(StoreImages, StoreImageChange, testing::ValuesIn(kChanges), caseName);

TEST(StoreImage, PassesOverStyleIdsWithoutARecord) {
    const auto config = loadedWith({rule("highway", "geometry").color("#112233")});
    const StoreImage before(*config);
    config->m_levelStyleMaps[0][recordKey(99999)] = nullptr;
    EXPECT_EQ(before, StoreImage(*config));
}

}  // namespace
}  // namespace customstyle_test
