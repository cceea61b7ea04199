// Prints the theme that the peer of the benchmarks resolves: what a loaded style says of ten properties of each style
// id at each level of the frames, as JSON:
//     ThemeAnswers <mapping directory>/ <style file>
// Colours are packed as in the record; an id that the style does not customise is left out.
#include <cinttypes>
#include <cstdio>
#include <set>

#include "bench/support/Loading.h"
#include "bench/support/Scenes.h"
#include "customstyle/StoredRecords.h"

namespace {

using namespace customstyle_bench;
using namespace _orvik_framework;

constexpr const char* kProperties = R"({"colours": ["fill", "border", "textFill", "textStroke", "topSurface"],
 "numbers": ["fillWeight", "borderWeight", "textFillWeight", "textStrokeWeight", "fontSize"],
 "levels": {)";

std::set<unsigned int> mappedIds(const CustomConfig& config) {
    std::set<unsigned int> ids;
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) ids.insert(entry.styleId());
    }
    return ids;
}

void printLevel(const CustomConfig& config, const std::set<unsigned int>& ids, int level) {
    const char* separator = "";
    for (const unsigned int id : ids) {
        tagCustomStyle style{};
        if (config.GetStyleFromConfig(style, id, level) == -1) continue;
        std::printf("%s\n  [%u, [%" PRIu64 ", %" PRIu64 ", %" PRIu64 ", %" PRIu64 ", %" PRIu64
                    "], [%d, %d, %d, %d, %d]]",
                    separator, id, style.m_fillColor, style.m_borderColor, style.m_textFillColor,
                    style.m_textStrokeColor, style.m_topSurfaceColor, style.m_fillWeight, style.m_borderWeight,
                    style.m_textFillWeight, style.m_textStrokeWeight, style.m_fontSize);
        separator = ",";
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return std::fprintf(stderr, "usage: ThemeAnswers <mapping directory>/ <style file>\n"), 2;
    CustomConfig config;
    init(config, {argv[1], argv[2]});
    g_zrsdk_custom_style_enable = 1;
    const std::set<unsigned int> ids = mappedIds(config);
    std::fputs(kProperties, stdout);
    const char* separator = "";
    for (const int level : kFrameLevels) {
        std::printf("%s\"%d\": [", separator, level);
        printLevel(config, ids, level);
        std::fputs("]", stdout);
        separator = ",\n ";
    }
    std::puts("}}");
    return std::ferror(stdout) == 0 ? 0 : 1;
}
