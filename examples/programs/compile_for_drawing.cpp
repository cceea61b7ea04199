// For busy maps: compile the loaded styles once, then ask in constant time from as many threads as draw.
#include <cstdio>
#include <memory>

#include "customstyle/StyleSnapshot.h"

int main(int argumentCount, char** arguments) {
    if (argumentCount < 3) return std::puts("usage: compile_for_drawing MAPPING_DIRECTORY/ STYLE_FILE"), 2;
    auto config = std::make_unique<_orvik_framework::CustomConfig>();
    if (config->Init(arguments[1], arguments[2]) == 0) return 1;  // the log says why
    const _orvik_framework::StyleSnapshot snapshot(*config);
    config.reset();  // the snapshot stands alone
    g_zrsdk_custom_style_enable = 1;

    const auto [featureType, style] = snapshot.FindStyle(1001, 15);
    if (style != nullptr && style->m_fillColorSet == 1) {
        std::printf("feature type %d, filled with %08llx; the snapshot holds %zu bytes\n", featureType,
                    static_cast<unsigned long long>(style->m_fillColor), snapshot.bytes());
    }
    return 0;
}
