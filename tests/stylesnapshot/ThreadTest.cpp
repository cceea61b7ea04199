// Many threads ask at the same time. Meant to run under ThreadSanitizer; elsewhere it still compares the answers.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "customstyle/StyleSnapshot.h"
#include "examples/programs/SnapshotSwitch.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

using _orvik_framework::StyleSnapshot;

constexpr int kReaders = 4;
constexpr int kRounds = 10;

std::unique_ptr<CustomConfig> someStore() {
    return loadedWith({rule("highway", "all").color("#112233"), rule("highway", "geometry").weight("3").level("15"),
                       rule("poilabel", "labels").visibility("off"), rule("land", "geometry").color("#445566"),
                       rule("grid", "all").color("#778899")});
}

/// Answers of all questions over some style ids and levels, added up.
template <typename Styles>
std::uint64_t sumOfAnswers(const Styles& styles) {
    std::uint64_t sum = 0;
    for (unsigned id = 1000; id < 1720; ++id) {
        for (const int level : {3, 10, 15}) {
            tagCustomStyle style{};
            sum = sum * 31 + static_cast<std::uint64_t>(styles.GetStyleFromConfig(style, id, level) + 2);
            sum += style.m_fillColor + style.m_textFillColor + style.m_fillWeight;
            sum += static_cast<std::uint64_t>(styles.IsCustomizedIconVisible(id, level));
        }
    }
    std::uint64_t color = 0;
    sum += static_cast<std::uint64_t>(styles.IsCustomBackRegionEnable(color, 10));
    sum += color;
    sum += static_cast<std::uint64_t>(styles.IsCustomGridBackRegionEnable(color, 10));
    return sum + color;
}

int differingThreads(const std::function<bool()>& agrees) {
    std::atomic<int> differing = 0;
    std::vector<std::thread> readers;
    for (int reader = 0; reader < kReaders; ++reader) {
        readers.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) {
                if (!agrees()) ++differing;
            }
        });
    }
    for (std::thread& reader : readers) reader.join();
    return differing;
}

TEST(ManyThreads, AgreeOnOneStore) {
    const auto config = someStore();
    const QueriesEnabled enabled;
    const std::uint64_t expected = sumOfAnswers(*config);
    EXPECT_EQ(differingThreads([&] { return sumOfAnswers(*config) == expected; }), 0);
}

TEST(ManyThreads, AgreeOnOneSnapshot) {
    const auto config = someStore();
    const StyleSnapshot snapshot(*config);
    const QueriesEnabled enabled;
    const std::uint64_t expected = sumOfAnswers(*config);
    EXPECT_EQ(differingThreads([&] { return sumOfAnswers(snapshot) == expected; }), 0);
}

// Long enough for each reader to meet many exchanges, and bounded in any case.
constexpr int kExchanges = 200;

TEST(ManyThreads, SeeOneStyleOrTheOtherWholeWhileTheyAreExchanged) {
    const auto one = someStore();
    const auto other = loadedWith({rule("highway", "all").color("#ffeedd"), rule("land", "geometry").color("#010203")});
    const QueriesEnabled enabled;
    const std::uint64_t sums[] = {sumOfAnswers(*one), sumOfAnswers(*other)};
    SnapshotSwitch styles(std::make_unique<StyleSnapshot>(*one));
    std::atomic<int> torn = 0;
    std::atomic<int> frames = 0;
    std::atomic<bool> stop = false;
    std::vector<std::thread> readers;
    for (std::size_t reader = 0; reader < kReaders; ++reader) {
        readers.emplace_back([&, reader] {
            while (!stop) {
                const std::uint64_t sum = sumOfAnswers(styles.beginFrame(reader));
                styles.endFrame(reader);
                if (sum != sums[0] && sum != sums[1]) ++torn;
                ++frames;
            }
        });
    }
    for (int exchange = 0; exchange < kExchanges || frames < kReaders; ++exchange) {
        styles.exchange(std::make_unique<StyleSnapshot>(exchange % 2 == 0 ? *other : *one));
    }
    stop = true;
    for (std::thread& reader : readers) reader.join();
    EXPECT_EQ(torn, 0);
}

}  // namespace
}  // namespace customstyle_test
