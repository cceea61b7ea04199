// What does it cost to construct and destroy an object, against as many empty standard maps as it has record maps and
// its two tables of feature type names?
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace {

using namespace _orvik_framework;

constexpr int kRecordMaps = kFeatureTypeCount + kStyleSlotCount;

const std::vector<std::string>& typeNames() {
    static const std::vector<std::string> names = [] {
        const CustomConfig catalogue;
        std::vector<std::string> all;
        for (int type = 0; type < kFeatureTypeCount; ++type) all.push_back(catalogue.GetFeatureTypeName(type));
        return all;
    }();
    return names;
}

struct PlainObject {
    PlainObject() {
        int id = 0;
        for (const std::string& name : typeNames()) ids.emplace(name.c_str(), id++);
        id = 0;
        for (const std::string& name : typeNames()) names.emplace(id++, name.c_str());
    }

    std::unordered_map<void*, void*> maps[kRecordMaps];
    std::unordered_map<std::string, int> ids;
    std::unordered_map<int, std::string> names;
};

template <typename Object>
void construct(benchmark::State& state) {
    for (auto _ : state) {
        auto object = std::make_unique<Object>();
        benchmark::DoNotOptimize(object.get());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["bytes"] = sizeof(Object);
}

bool tablesAgree() {
    const CustomConfig config;
    const PlainObject plain;
    const std::map<std::string, int> ids(config.m_featureTypeIds.begin(), config.m_featureTypeIds.end());
    return ids == std::map<std::string, int>(plain.ids.begin(), plain.ids.end()) &&
           config.m_featureTypeNames == plain.names;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (!tablesAgree()) return 1;
    benchmark::RegisterBenchmark("construct/standard_maps", construct<PlainObject>);
    benchmark::RegisterBenchmark("construct/class", construct<CustomConfig>);
    benchmark::RunSpecifiedBenchmarks();
}
