// Drawing frames: what the query benchmarks time.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "bench/support/Allocations.h"
#include "bench/support/SameRecord.h"
#include "bench/support/Scenes.h"

namespace customstyle_bench {

using _orvik_framework::tagCustomStyle;

/// Draws the scene's frame at each of the frame levels, asking `ask(style, styleId, level)` for each feature.
template <typename Ask>
void drawFrames(const Scene& scene, Ask ask) {
    tagCustomStyle style{};
    for (const int level : kFrameLevels) {
        for (const unsigned int styleId : scene.frame) {
            const int answer = ask(style, styleId, level);
            benchmark::DoNotOptimize(answer);
            benchmark::DoNotOptimize(style);
        }
    }
}

inline std::size_t questionsIn(const Scene& scene) {
    return scene.frame.size() * std::size(kFrameLevels);
}

/// Registers a benchmark that draws the scene's frames by `draw()`. It counts questions as items, and the allocations
/// that they make.
template <typename Draw>
benchmark::internal::Benchmark* addFrames(const Scene& scene, const std::string& contender, Draw draw) {
    const auto run = [&scene, draw](benchmark::State& state) {
        std::size_t allocations = 0;
        for (auto _ : state) {
            const std::size_t before = allocationCount();
            draw();
            allocations += allocationCount() - before;
        }
        state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(questionsIn(scene)));
        state.counters["allocations"] = static_cast<double>(allocations);
    };
    return benchmark::RegisterBenchmark((scene.name + "/" + contender).c_str(), run);
}

/// The same for a contender that answers one question at a time.
template <typename Ask>
benchmark::internal::Benchmark* addContender(const Scene& scene, const std::string& contender, Ask ask) {
    return addFrames(scene, contender, [&scene, ask] { drawFrames(scene, ask); });
}

/// Somebody who answers style queries, under the name that complaints give.
struct Answerer {
    const char* name;
    std::function<int(tagCustomStyle& style, unsigned int styleId, int level)> ask;
};

/// Ends the program unless everybody answers each question of the scene as its store does, to the last field.
inline void requireStoresAnswers(const Scene& scene, const std::vector<Answerer>& answerers) {
    for (const unsigned int styleId : distinctIds(scene)) {
        for (const int level : kFrameLevels) {
            tagCustomStyle expected{};
            const int expectedAnswer = scene.store->config->GetStyleFromConfig(expected, styleId, level);
            for (const Answerer& answerer : answerers) {
                tagCustomStyle style{};
                if (answerer.ask(style, styleId, level) == expectedAnswer && sameRecord(style, expected)) continue;
                std::fprintf(stderr, "%s, %s: wrong style for id %u at level %d\n", scene.name.c_str(), answerer.name,
                             styleId, level);
                std::exit(1);
            }
        }
    }
}

}  // namespace customstyle_bench
