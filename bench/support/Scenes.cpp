#include "bench/support/Scenes.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <stdexcept>

#include "bench/support/MapFiles.h"
#include "bench/support/StyleStreams.h"
#include "customstyle/StoredRecords.h"
#include "vi/vos/VJson.h"

namespace customstyle_bench {
namespace {

using namespace _orvik_framework;

constexpr std::size_t kRules = 300;
constexpr std::size_t kShortestFrame = 20000;

struct TreeDeleter {
    void operator()(cJSON* tree) const { _orvik_vi::cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<cJSON, TreeDeleter>;

Tree parsed(const std::string& text) {
    return Tree(_orvik_vi::cJSON_Parse(text, 1));
}

std::vector<unsigned int> mappedIds(const CustomConfig& config) {
    std::set<unsigned int> ids;
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) ids.insert(entry.styleId());
    }
    return {ids.begin(), ids.end()};
}

std::shared_ptr<const Store> makeStore(const std::string& name, std::unique_ptr<const CustomConfig> config) {
    std::vector<unsigned int> ids = mappedIds(*config);
    return std::make_shared<Store>(Store{name, std::move(config), std::move(ids)});
}

std::shared_ptr<const Store> syntheticStore(const std::string& name, const Mapping& mapping) {
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(parsed(mapping.text()).get());
    config->ParseCustomConfig(parsed(styleText(kRules)).get());
    return makeStore(name, std::move(config));
}

std::shared_ptr<const Store> exampleStore() {
    auto config = std::make_unique<CustomConfig>();
    if (config->Init(CUSTOMSTYLE_EXAMPLES "/map/", CUSTOMSTYLE_EXAMPLES "/styles/night.json") == 0) {
        throw std::runtime_error("the example map cannot be loaded");
    }
    return makeStore("example", std::move(config));
}

void addSyntheticScenes(std::vector<Scene>& scenes, std::size_t idCount) {
    const Mapping mapping(idCount);
    const std::string name = std::to_string(idCount);
    const auto store = syntheticStore(name, mapping);
    const std::size_t length = std::max(kShortestFrame, idCount);
    scenes.push_back({"draw_" + name, store, drawOrder(mapping, length)});
    scenes.push_back({"random_" + name, store, randomOrder(mapping, length)});
    scenes.push_back({"unstyled_" + name, store, unmappedOrder(mapping, kShortestFrame)});
}

}  // namespace

std::vector<Scene> makeScenes(std::span<char* const> streamFiles) {
    g_zrsdk_custom_style_enable = 1;
    std::vector<Scene> scenes;
    for (const std::size_t idCount : {500u, 5000u, 50000u}) addSyntheticScenes(scenes, idCount);
    if (streamFiles.empty()) return scenes;
    const auto store = exampleStore();
    for (const std::filesystem::path file : streamFiles) {
        scenes.push_back({file.stem().string(), store, readStream(file.string())});
    }
    return scenes;
}

std::vector<unsigned int> distinctIds(const Scene& scene) {
    const std::set<unsigned int> ids(scene.frame.begin(), scene.frame.end());
    return {ids.begin(), ids.end()};
}

}  // namespace customstyle_bench
