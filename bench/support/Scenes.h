// What the query benchmarks draw: a loaded store and the style ids of a frame.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_bench {

/// A loaded store and the style ids that its mapping holds.
struct Store {
    std::string name;
    std::unique_ptr<const _orvik_framework::CustomConfig> config;
    std::vector<unsigned int> styleIds;
};

struct Scene {
    std::string name;
    std::shared_ptr<const Store> store;
    std::vector<unsigned int> frame;
};

/// Zoom levels of the frames that a benchmark draws in turn.
inline constexpr int kFrameLevels[] = {12, 15, 17};

/// The scenes with synthetic ids, and one for each stream file: that uses the example map in the night style and is
/// named after the file. Turns the renderer's queries on.
std::vector<Scene> makeScenes(std::span<char* const> streamFiles);

/// Style ids of a scene's frame, each once.
std::vector<unsigned int> distinctIds(const Scene& scene);

}  // namespace customstyle_bench
