// What does an icon query of the class and of the snapshot cost against the walk in its plainest form?
#include "bench/support/Frames.h"
#include "bench/support/LiteralWalk.h"
#include "customstyle/StyleSnapshot.h"

namespace {

using namespace customstyle_bench;
using _orvik_framework::StyleSnapshot;

struct IconScene {
    explicit IconScene(const Scene& drawn) : scene(drawn), walk(*drawn.store->config), snapshot(*drawn.store->config) {}

    const Scene& scene;
    LiteralWalk walk;
    StyleSnapshot snapshot;
};

void requireStoresAnswers(const IconScene& icons) {
    for (const unsigned int styleId : distinctIds(icons.scene)) {
        for (const int level : kFrameLevels) {
            const int expected = icons.scene.store->config->IsCustomizedIconVisible(styleId, level);
            if (icons.walk.isIconHidden(styleId, level) == expected &&
                icons.snapshot.IsCustomizedIconVisible(styleId, level) == expected) {
                continue;
            }
            std::fprintf(stderr, "%s: wrong icon for id %u at level %d\n", icons.scene.name.c_str(), styleId, level);
            std::exit(1);
        }
    }
}

void addScene(const IconScene& icons) {
    requireStoresAnswers(icons);
    addContender(icons.scene, "literal", [&icons](tagCustomStyle&, unsigned int styleId, int level) {
        return icons.walk.isIconHidden(styleId, level);
    });
    addContender(icons.scene, "class",
                 [&config = *icons.scene.store->config](tagCustomStyle&, unsigned int styleId, int level) {
                     return config.IsCustomizedIconVisible(styleId, level);
                 });
    addContender(icons.scene, "snapshot", [&icons](tagCustomStyle&, unsigned int styleId, int level) {
        return icons.snapshot.IsCustomizedIconVisible(styleId, level);
    });
}

}  // namespace

int main(int argc, char** argv) {
    countAllocations();
    benchmark::Initialize(&argc, argv);
    const std::vector<Scene> scenes = makeScenes({argv + 1, argv + argc});
    std::vector<std::unique_ptr<const IconScene>> iconScenes;
    for (const Scene& scene : scenes) {
        iconScenes.push_back(std::make_unique<IconScene>(scene));
        addScene(*iconScenes.back());
    }
    benchmark::RunSpecifiedBenchmarks();
}
