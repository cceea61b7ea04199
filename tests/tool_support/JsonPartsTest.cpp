#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tools/vocabulary/JsonParts.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

TEST(JsonText, ReplacesWhatIsNotUtf8) {
    EXPECT_EQ(jsonText({{"file", "\xFF.json"}}), "{\"file\":\"\xEF\xBF\xBD.json\"}");
    EXPECT_EQ(jsonText({{"id", 7}}, 2), "{\n  \"id\": 7\n}");
}

TEST(MemberName, HasUnderscoresForBlanks) {
    EXPECT_EQ(memberName("text stroke weight"), "text_stroke_weight");
    EXPECT_EQ(memberName("fill"), "fill");
}

TEST(ColorJson, KeepsAlphaApart) {
    EXPECT_EQ(colorJson(0x80FFDAAA).dump(), R"({"rgb":"#aadaff","alpha":128})");
}

TEST(LevelsJson, ListsLevelsAndTheOthersLast) {
    LevelSet levels;
    EXPECT_EQ(levelsJson(levels).dump(), "[]");
    levels.set(classOfLevel(4)).set(classOfLevel(21)).set(kOtherLevels);
    EXPECT_EQ(levelsJson(levels).dump(), R"([4,21,"other"])");
}

}  // namespace
}  // namespace customstyle_test
