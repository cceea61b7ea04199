// Every call that Init makes to the engine, in order, for each way in which it ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/loading/TracedHost.h"
#include "tests/support/CaseName.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using Steps = std::vector<std::string>;

const std::string kMapping = testMapping();
const std::string kStyle = "[" + rule("highway", "geometry").color("#112233").json() + "]";
const std::string kNotJson = "[nonsense";

struct OrderCase {
    const char* name;
    const char* mapping;  // null: the file does not exist
    const char* style;
    std::size_t refusedSize;
    int answer;
    Steps steps;
};

Steps operator+(Steps head, const Steps& tail) {
    head.insert(head.end(), tail.begin(), tail.end());
    return head;
}

Steps opened(const char* path) {
    return {"open " + std::string(path) + " in mode 257"};
}

Steps mappingOpened() {
    return opened("/m/CustomIndex");
}

Steps styleOpened() {
    return opened("/s.json");
}

Steps readInto(const std::string& content) {
    const std::string size = std::to_string(content.size());
    return {"allocate " + size, "read " + size + " into zeros"};
}

Steps refused(const std::string& content) {
    return {"allocate " + std::to_string(content.size())};
}

Steps logged(const char* message) {
    return {"log ZRX Custom Map: " + std::string(message)};
}

// A file that was not opened is not closed, and a text that is not JSON is not released.
const Steps kEnd{"destroy file"};
const Steps kClosed{"close"};
const Steps kAllReleased{"release buffer", "free tree", "close"};
const Steps kNothingReleased{"release null", "close"};
const Steps kMappingLoaded = mappingOpened() + readInto(kMapping) + kAllReleased;

const OrderCase kCases[] = {
    {"Loaded", kMapping.c_str(), kStyle.c_str(), 0, 1,
     kMappingLoaded + styleOpened() + readInto(kStyle) + kAllReleased + kEnd},
    {"EveryRuleRefused", kMapping.c_str(), "[5]", 0, 1,
     kMappingLoaded + styleOpened() + readInto("[5]") + logged(R"(warning, "featureType" is  illegal or absent)") +
         kAllReleased + kEnd},
    {"NoMapping", nullptr, kStyle.c_str(), 0, 0, mappingOpened() + logged("CustomIndex file open failed") + kEnd},
    {"NoMemoryForTheMapping", kMapping.c_str(), kStyle.c_str(), kMapping.size(), 0,
     mappingOpened() + refused(kMapping) + logged("CustomIndex file parse failed") + kClosed + kEnd},
    {"MappingIsNotJson", kNotJson.c_str(), kStyle.c_str(), 0, 0,
     mappingOpened() + readInto(kNotJson) + Steps{"free tree"} + logged("CustomIndex file parse failed, format error") +
         kNothingReleased + kEnd},
    {"MappingRefused", "{}", kStyle.c_str(), 0, 0,
     mappingOpened() + readInto("{}") + logged("CustomIndex file parse failed") + kAllReleased + kEnd},
    {"NoStyle", kMapping.c_str(), nullptr, 0, 0, kMappingLoaded + styleOpened() + logged("open failed") + kEnd},
    {"NoMemoryForTheStyle", kMapping.c_str(), kStyle.c_str(), kStyle.size(), 0,
     kMappingLoaded + styleOpened() + refused(kStyle) + logged("custom config file parse failed") + kClosed + kEnd},
    {"StyleIsNotJson", kMapping.c_str(), kNotJson.c_str(), 0, 0,
     kMappingLoaded + styleOpened() + readInto(kNotJson) + Steps{"free tree"} +
         logged("custom config file parse failed, format error") + kNothingReleased + kEnd},
};

void PrintTo(const OrderCase& param, std::ostream* stream) {
    *stream << param.name;
}

class Init : public testing::TestWithParam<OrderCase> {};

TEST_P(Init, AsksTheEngineForTheseStepsInThisOrder) {
    TracedHost host;
    if (GetParam().mapping != nullptr) host.provide("/m/CustomIndex", GetParam().mapping);
    if (GetParam().style != nullptr) host.provide("/s.json", GetParam().style);
    if (GetParam().refusedSize > 0) host.refuseBuffer(GetParam().refusedSize);
    CustomConfig config;
    EXPECT_EQ(config.Init("/m/", "/s.json"), GetParam().answer);
    EXPECT_EQ(host.steps(), GetParam().steps);
}

INSTANTIATE_TEST_SUITE_P(Order, Init, testing::ValuesIn(kCases), caseName);

TEST(InitWithoutAPath, AsksTheEngineForNothing) {
    const TracedHost host;
    CustomConfig config;
    EXPECT_EQ(config.Init("", "/s.json"), 0);
    EXPECT_EQ(config.Init("/m/", ""), 0);
    for (const std::string& step : host.steps()) EXPECT_EQ(step, "destroy file");
}

}  // namespace
}  // namespace customstyle_test
