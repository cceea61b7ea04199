#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include "tests/support/TemporaryDirectory.h"
#include "tools/host/LoadedMap.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::TemporaryDirectory;
using testing::HasSubstr;

TEST(HostSpread, HasALaneForEachProcessor) {
    EXPECT_EQ(hostSpread().lanes, std::max(1U, std::thread::hardware_concurrency()));
}

// Work keeps something for each lane, so that one lane more would be out of bounds. The pause gives each lane an item.
TEST(HostSpread, RunsEachItemOnceInTheLanesThatItNames) {
    const Spread spread = hostSpread();
    std::mutex mutex;
    std::multiset<std::size_t> items;
    std::set<std::size_t> lanes;
    spread.run(500, [&](std::size_t item, std::size_t lane) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        const std::lock_guard lock(mutex);
        items.insert(item);
        lanes.insert(lane);
    });
    EXPECT_EQ(items.size(), 500U);
    for (std::size_t item = 0; item < 500; ++item) EXPECT_EQ(items.count(item), 1U) << item;
    EXPECT_LT(*lanes.rbegin(), spread.lanes);
}

TEST(HostSpread, PassesOnWhatFailsInAnyLane) {
    const Spread spread = hostSpread();
    const auto work = [&](std::size_t, std::size_t lane) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (lane + 1 == spread.lanes) throw std::runtime_error("no memory");
    };
    EXPECT_THROW(spread.run(500, work), std::runtime_error);
}

std::string failureOf(const std::string& style, const std::optional<std::string>& mappingDirectory) {
    const auto study =
        studyOf(std::make_unique<SourceFile>("style.json", style), mappingDirectory, Mapping::standard());
    const auto* failure = std::get_if<ReadFailure>(&study);
    return failure == nullptr ? "" : failure->text;
}

TEST(StudyOf, SaysWhatIsWrongWithTheStyleOrTheMapping) {
    const TemporaryDirectory directory;
    const std::string missing = (directory.path() / "missing").string();
    EXPECT_EQ(failureOf("[]", {}), "");
    EXPECT_EQ(failureOf("[}", {}), "style.json:1:2: is not JSON: a value is missing here");
    EXPECT_THAT(failureOf("[]", missing), HasSubstr("missing: no such directory; give the directory"));
    EXPECT_THAT(failureOf("[]", directory.path().string()), HasSubstr(": has no file CustomIndex; give the directory"));
    directory.write("CustomIndex", "[");
    EXPECT_THAT(failureOf("[]", directory.path().string()), HasSubstr("CustomIndex:1:1: is not JSON: the ] of"));
}

}  // namespace
