// The least that an engine does: load a map's two files, then ask for each style that it draws.
#include <cstdio>

#include "customstyle/CustomConfig.h"

int main(int argumentCount, char** arguments) {
    if (argumentCount < 3) return std::puts("usage: ask_while_drawing MAPPING_DIRECTORY/ STYLE_FILE"), 2;
    _orvik_framework::CustomConfig config;
    if (config.Init(arguments[1], arguments[2]) == 0) return 1;  // the log says why
    g_zrsdk_custom_style_enable = 1;

    const unsigned int styleId = 1001;  // a motorway of the example map
    const int level = 15;
    _orvik_framework::tagCustomStyle style;
    const int featureType = config.GetStyleFromConfig(style, styleId, level);
    if (featureType != -1 && style.m_fillColorSet == 1) {
        std::printf("style %u is %s, filled with %08llx (alpha, blue, green, red)\n", styleId,
                    config.GetFeatureTypeName(featureType).c_str(), static_cast<unsigned long long>(style.m_fillColor));
    }
    if (config.IsCustomizedIconVisible(styleId, level) == 1) std::puts("its icon is hidden");
    return 0;
}
