// What does a style query of the class cost against the walk over feature types in its plainest form?
#include "bench/support/Frames.h"
#include "bench/support/LiteralWalk.h"

namespace {

using namespace customstyle_bench;

// One walk for each scene; scenes of one store could share it, but it is small.
std::vector<LiteralWalk> makeWalks(const std::vector<Scene>& scenes) {
    std::vector<LiteralWalk> walks;
    for (const Scene& scene : scenes) walks.emplace_back(*scene.store->config);
    return walks;
}

void addScene(const Scene& scene, const LiteralWalk& walk) {
    const auto askWalk = [&walk](tagCustomStyle& style, unsigned int styleId, int level) {
        return walk.getStyle(style, styleId, level);
    };
    const auto askClass = [&config = *scene.store->config](tagCustomStyle& style, unsigned int styleId, int level) {
        return config.GetStyleFromConfig(style, styleId, level);
    };
    requireStoresAnswers(scene, {{"literal walk", askWalk}});
    addContender(scene, "literal", askWalk);
    addContender(scene, "class", askClass);
}

}  // namespace

int main(int argc, char** argv) {
    countAllocations();
    benchmark::Initialize(&argc, argv);
    const std::vector<Scene> scenes = makeScenes({argv + 1, argv + argc});
    const std::vector<LiteralWalk> walks = makeWalks(scenes);
    for (std::size_t i = 0; i < scenes.size(); ++i) addScene(scenes[i], walks[i]);
    benchmark::RunSpecifiedBenchmarks();
}
