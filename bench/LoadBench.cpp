// What does loading cost against reading, parsing and deleting the same two files, and what does building a snapshot of
// what was loaded? Are ids that are chosen to collide dearer than others? Small files, again and again in one process;
// LoadOnce answers for the large ones.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "bench/support/Loading.h"
#include "bench/support/MapFiles.h"
#include "customstyle/PerfectIdIndex.h"
#include "customstyle/StyleSnapshot.h"

namespace {

using namespace customstyle_bench;
using _orvik_framework::CustomConfig;
using _orvik_framework::PerfectIdIndex;
using _orvik_framework::StyleSnapshot;

// The files of one benchmark, removed with it.
class Files {
public:
    Files(std::size_t idCount, std::size_t ruleCount)
        : m_directory(std::filesystem::temp_directory_path() /
                      ("customstyle-load-bench-" + std::to_string(getpid()) + "-" + std::to_string(idCount) + "-" +
                       std::to_string(ruleCount))) {
        std::filesystem::create_directory(m_directory);
        writeFile(paths().mappingDirectory + "CustomIndex", Mapping(idCount).text());
        writeFile(paths().styleFile, styleText(ruleCount));
    }
    ~Files() { std::filesystem::remove_all(m_directory); }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    MapPaths paths() const { return {m_directory.string() + "/", (m_directory / "style.json").string()}; }

private:
    std::filesystem::path m_directory;
};

struct Size {
    const char* name;
    std::size_t ids;
    std::size_t rules;
};
constexpr Size kSizes[] = {{"theme", 750, 230},
                           {"rules_100", 600, 100},
                           {"rules_10000", 600, 10000},
                           {"ids_5000", 5000, 100},
                           {"ids_50000", 50000, 100}};

// Construction and destruction do not count.
void loadByInit(benchmark::State& state, const MapPaths& paths) {
    for (auto _ : state) {
        state.PauseTiming();
        auto config = std::make_unique<CustomConfig>();
        state.ResumeTiming();
        init(*config, paths);
        state.PauseTiming();
        config.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations());
}

void parseOnly(benchmark::State& state, const MapPaths& paths) {
    for (auto _ : state) readParseDelete(paths);
    state.SetItemsProcessed(state.iterations());
}

void buildSnapshot(benchmark::State& state, const MapPaths& paths) {
    CustomConfig config;
    init(config, paths);
    for (auto _ : state) {
        const StyleSnapshot snapshot(config);
        benchmark::DoNotOptimize(&snapshot);
    }
    state.SetItemsProcessed(state.iterations());
}

// The hash that the index of ids tries first, which decides on an id's bucket.
std::uint64_t firstHash(std::uint32_t id) {
    const std::uint64_t spread = (id + std::uint64_t{1}) * 0x9E3779B97F4A7C15;
    return (spread ^ spread >> 32) * 0xC2B2AE3D27D4EB4F;
}

// 10,000 ids in order of size: the first ones of which so many bits of the hash that choose a bucket are 0.
std::vector<PerfectIdIndex::Entry> idsThatShare(unsigned int bucketBits) {
    std::vector<PerfectIdIndex::Entry> entries;
    for (std::uint32_t id = 0; entries.size() < 10000; ++id) {
        if ((firstHash(id) >> 44) % (1u << bucketBits) == 0) entries.push_back({id, id});
    }
    return entries;
}

void indexIds(benchmark::State& state, unsigned int bucketBits) {
    const auto entries = idsThatShare(bucketBits);
    for (auto _ : state) {
        const PerfectIdIndex index(entries);
        benchmark::DoNotOptimize(&index);
    }
    state.SetItemsProcessed(state.iterations());
}

// Whether Init made what the mapping and the rules ask for.
bool loadsAll(const Files& files, const Size& size) {
    CustomConfig config;
    init(config, files.paths());
    std::size_t records = 0;
    for (const auto& map : config.m_typeStyleMaps) records += static_cast<std::size_t>(map.GetCount());
    return records >= size.ids && config.m_usedLevelSlots > 0;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::vector<std::unique_ptr<const Files>> files;
    for (const Size& size : kSizes) {
        files.push_back(std::make_unique<Files>(size.ids, size.rules));
        if (!loadsAll(*files.back(), size)) return 1;
        const MapPaths paths = files.back()->paths();
        const std::string name = std::string("load/") + size.name;
        benchmark::RegisterBenchmark((name + "/parse").c_str(), parseOnly, paths);
        benchmark::RegisterBenchmark((name + "/init").c_str(), loadByInit, paths);
        benchmark::RegisterBenchmark((name + "/snapshot").c_str(), buildSnapshot, paths);
    }
    // An index of 10,000 ids has 2^12 buckets.
    benchmark::RegisterBenchmark("index/any_ids", indexIds, 0u)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("index/chosen_ids", indexIds, 12u)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
}
