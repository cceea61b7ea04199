// What Init tells the engine's JSON parser, with a parser that takes notes in place of the base library's.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VJson.h"

namespace {

std::vector<std::pair<std::string, int>> g_calls;

}  // namespace

namespace _orvik_vi {

cJSON* cJSON_Parse(std::string_view text, int reserved) {
    g_calls.emplace_back(text, reserved);
    return cJSON_ParseWithLength(text.data(), text.size());
}

cJSON* cJSON_GetObjectItem(const cJSON* object, const char* name) {
    return ::cJSON_GetObjectItem(object, name);
}

}  // namespace _orvik_vi

namespace customstyle_test {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(InitParser, IsGivenEachWholeFileAndTheNumberThatItReserves) {
    const TemporaryDirectory directory;
    const std::string rules = "[" + rule("highway", "geometry").color("#112233").json() + "]";
    directory.write("CustomIndex", testMapping());
    const std::string style = directory.write("style.json", rules);
    CustomConfig config;
    EXPECT_EQ(config.Init(directory.prefix().c_str(), style.c_str()), 1);
    EXPECT_THAT(g_calls, ElementsAre(Pair(testMapping(), 1), Pair(rules, 1)));
    EXPECT_EQ(firstRecordAt(config, "13").m_fillColor, 0xff332211U);
}

}  // namespace
}  // namespace customstyle_test
