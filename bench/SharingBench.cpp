// Do two threads disturb each other on one snapshot? Against two threads with a snapshot each, and against one thread.
#include "bench/support/Frames.h"
#include "customstyle/StyleSnapshot.h"

namespace {

using namespace customstyle_bench;
using _orvik_framework::StyleSnapshot;

struct Snapshots {
    explicit Snapshots(const Scene& scene) : first(*scene.store->config), second(*scene.store->config) {}

    StyleSnapshot first;
    StyleSnapshot second;
};

auto askerOf(const StyleSnapshot& snapshot) {
    return [&snapshot](tagCustomStyle& style, unsigned int styleId, int level) {
        return snapshot.GetStyleFromConfig(style, styleId, level);
    };
}

template <typename ChooseSnapshot>
benchmark::internal::Benchmark* addThreads(const Scene& scene, const std::string& name, ChooseSnapshot choose) {
    const auto run = [&scene, choose](benchmark::State& state) {
        const StyleSnapshot& snapshot = choose(state.thread_index());
        for (auto _ : state) drawFrames(scene, askerOf(snapshot));
        state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(questionsIn(scene)));
    };
    return benchmark::RegisterBenchmark((scene.name + "/" + name).c_str(), run)->UseRealTime();
}

void addScene(const Scene& scene, const Snapshots& snapshots) {
    requireStoresAnswers(
        scene, {{"first snapshot", askerOf(snapshots.first)}, {"second snapshot", askerOf(snapshots.second)}});
    const auto shared = [&snapshots](int) -> const StyleSnapshot& { return snapshots.first; };
    const auto own = [&snapshots](int thread) -> const StyleSnapshot& {
        return thread == 0 ? snapshots.first : snapshots.second;
    };
    addThreads(scene, "one", shared);
    addThreads(scene, "shared", shared)->Threads(2);
    addThreads(scene, "own", own)->Threads(2);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const std::vector<Scene> scenes = makeScenes({argv + 1, argv + argc});
    std::vector<std::unique_ptr<const Snapshots>> snapshots;
    for (const Scene& scene : scenes) {
        snapshots.push_back(std::make_unique<Snapshots>(scene));
        addScene(scene, *snapshots.back());
    }
    benchmark::RunSpecifiedBenchmarks();
}
