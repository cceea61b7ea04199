// Changes the style of a running map: two styles take turns while four threads draw.
#include <atomic>
#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

#include "examples/programs/SnapshotSwitch.h"

namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::StyleSnapshot;
using _orvik_framework::tagCustomStyle;

std::unique_ptr<const StyleSnapshot> compiled(const char* mappingDirectory, const char* styleFile) {
    CustomConfig config;
    if (config.Init(mappingDirectory, styleFile) == 0) return nullptr;
    return std::make_unique<StyleSnapshot>(config);
}

// Draws frames until told to stop; answers how many styles it was given.
std::size_t draw(SnapshotSwitch& styles, std::size_t reader, const std::atomic<bool>& stop) {
    std::size_t styled = 0;
    for (int frame = 0; !stop; ++frame) {
        const StyleSnapshot& snapshot = styles.beginFrame(reader);
        for (unsigned int styleId = 1000; styleId < 1100; ++styleId) {
            tagCustomStyle style;
            if (snapshot.GetStyleFromConfig(style, styleId, 4 + frame % 18) != -1) ++styled;
        }
        styles.endFrame(reader);
    }
    return styled;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 4) return std::puts("usage: swap_style MAPPING_DIRECTORY/ STYLE_FILE OTHER_STYLE_FILE"), 2;
    auto first = compiled(arguments[1], arguments[2]);
    if (first == nullptr) return 1;
    SnapshotSwitch styles(std::move(first));
    g_zrsdk_custom_style_enable = 1;

    std::atomic<bool> stop = false;
    std::atomic<std::size_t> styled = 0;
    std::vector<std::thread> renderers;
    for (std::size_t reader = 0; reader < 4; ++reader) {
        renderers.emplace_back([&, reader] { styled += draw(styles, reader, stop); });
    }
    int exchanges = 0;
    for (; exchanges < 100; ++exchanges) {
        auto next = compiled(arguments[1], arguments[exchanges % 2 == 0 ? 3 : 2]);
        if (next == nullptr) break;
        styles.exchange(std::move(next));
    }
    stop = true;
    for (std::thread& renderer : renderers) renderer.join();
    std::printf("%d exchanges while %zu styles were drawn\n", exchanges, styled.load());
    return exchanges == 100 && styled != 0 ? 0 : 1;
}
