// What does a style query of the snapshot cost, copied and borrowed, against the direct index
// record[level][id], and against nothing but the copy of the record? And how much memory does the snapshot take?
#include <map>

#include "bench/support/DirectIndex.h"
#include "bench/support/Frames.h"
#include "customstyle/StyleSnapshot.h"

namespace {

using namespace customstyle_bench;
using _orvik_framework::StyleSnapshot;

// What is built once for a store.
struct Compiled {
    explicit Compiled(const Store& store) : snapshot(*store.config), direct(*store.config, store.styleIds) {}

    StyleSnapshot snapshot;
    DirectIndex direct;
};
using CompiledStores = std::map<const Store*, std::unique_ptr<const Compiled>>;

const Compiled& compiledFor(const Scene& scene, CompiledStores& stores) {
    auto& compiled = stores[scene.store.get()];
    if (compiled == nullptr) compiled = std::make_unique<Compiled>(*scene.store);
    return *compiled;
}

int askBorrowed(const StyleSnapshot& snapshot, tagCustomStyle& style, unsigned int styleId, int level) {
    const auto found = snapshot.FindStyle(styleId, level);
    if (found.style == nullptr) return -1;
    style = *found.style;
    style.m_ID = static_cast<int>(styleId);  // the borrowed record may stand for several ids
    return found.featureType;
}

// Draws with the records found beforehand, one after the other as the frame has them.
class BareCopies {
public:
    BareCopies(const Scene& scene, const StyleSnapshot& snapshot) {
        for (const int level : kFrameLevels) {
            for (const unsigned int styleId : scene.frame) {
                m_records.push_back(snapshot.FindStyle(styleId, level).style);
            }
        }
    }

    void draw() const {
        tagCustomStyle style{};
        for (const tagCustomStyle* record : m_records) {
            if (record != nullptr) style = *record;
            benchmark::DoNotOptimize(style);
        }
    }

private:
    std::vector<const tagCustomStyle*> m_records;
};

void addScene(const Scene& scene, const Compiled& compiled) {
    const StyleSnapshot& snapshot = compiled.snapshot;
    const auto askDirect = [&direct = compiled.direct](tagCustomStyle& style, unsigned int styleId, int level) {
        return direct.getStyle(style, styleId, level);
    };
    const auto askSnapshot = [&snapshot](tagCustomStyle& style, unsigned int styleId, int level) {
        return snapshot.GetStyleFromConfig(style, styleId, level);
    };
    const auto borrow = [&snapshot](tagCustomStyle&, unsigned int styleId, int level) {
        const auto found = snapshot.FindStyle(styleId, level);
        benchmark::DoNotOptimize(found.style);
        return found.featureType;
    };
    const auto askClass = [&config = *scene.store->config](tagCustomStyle& style, unsigned int styleId, int level) {
        return config.GetStyleFromConfig(style, styleId, level);
    };
    requireStoresAnswers(scene, {{"direct index", askDirect},
                                 {"snapshot", askSnapshot},
                                 {"borrowed style", std::bind_front(askBorrowed, std::cref(snapshot))}});
    addContender(scene, "direct", askDirect);
    addContender(scene, "snapshot", askSnapshot);
    addContender(scene, "borrow", borrow);
    addFrames(scene, "copy", [copies = std::make_shared<BareCopies>(scene, snapshot)] { copies->draw(); });
    addContender(scene, "class", askClass);
}

// Not a measurement of time: it carries the sizes into the report.
void addSize(const Store& store, const Compiled& compiled) {
    benchmark::RegisterBenchmark(("size/" + store.name).c_str(), [&](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(compiled.snapshot.bytes());
        state.counters["bytes"] = static_cast<double>(compiled.snapshot.bytes());
        state.counters["ids"] = static_cast<double>(store.styleIds.size());
        state.counters["direct_bytes"] = static_cast<double>(compiled.direct.bytes());
    });
}

}  // namespace

int main(int argc, char** argv) {
    countAllocations();
    benchmark::Initialize(&argc, argv);
    const std::vector<Scene> scenes = makeScenes({argv + 1, argv + argc});
    CompiledStores stores;
    for (const Scene& scene : scenes) addScene(scene, compiledFor(scene, stores));
    for (const auto& [store, compiled] : stores) addSize(*store, *compiled);
    benchmark::RunSpecifiedBenchmarks();
}
