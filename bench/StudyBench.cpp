// What it takes to check a style anew after each keystroke, beside loading it.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "bench/support/MapFiles.h"
#include "tools/check/StyleCheck.h"
#include "tools/study/DefaultMapping.h"

namespace {

using namespace customstyle_tool;

constexpr std::size_t kRules = 200;

// The style with a colour that is another one each time.
std::string editedStyle(int edit) {
    std::string text = customstyle_bench::styleText(kRules);
    text.insert(text.find('{'), R"({"featureType": "water", "elementType": "all", "stylers": {"color": "#)" +
                                    std::to_string(100000 + edit % 900000) + R"("}}, )");
    return text;
}

// @param damage  inserted after the first comma: of a file that is not JSON the other rules are checked
void checkAnew(benchmark::State& state, const std::string& damage) {
    int edit = 0;
    std::size_t findings = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::string text = editedStyle(++edit);
        text.insert(text.find(',') + 1, damage);
        auto file = std::make_shared<SourceFile>("style.json", std::move(text));
        state.ResumeTiming();
        findings = checkStyle(std::move(file), Mapping::everyMap()).findings.size();
    }
    if (findings == 0) std::abort();  // so many random rules are never without
    state.SetItemsProcessed(state.iterations());
}

void checkedStyleText(benchmark::State& state) {
    checkAnew(state, "");
}
BENCHMARK(checkedStyleText)->Name("check/200")->Unit(benchmark::kMillisecond);

void checkedBrokenText(benchmark::State& state) {
    checkAnew(state, "]");
}
BENCHMARK(checkedBrokenText)->Name("check_broken/200")->Unit(benchmark::kMillisecond);

void loadedStyle(benchmark::State& state) {
    const std::string mapping = defaultMapping();
    int edit = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string style = editedStyle(++edit);
        state.ResumeTiming();
        benchmark::DoNotOptimize(storeOf(mapping, style));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(loadedStyle)->Name("load/200")->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
