#include <cstdio>

#include "customstyle/CustomConfig.h"

int main() {
    _orvik_framework::CustomConfig config;
    if (config.Init("examples/map/", "examples/styles/night.json") == 0) return 1;  // the log says why
    g_zrsdk_custom_style_enable = 1;
    _orvik_framework::tagCustomStyle style;
    const int type = config.GetStyleFromConfig(style, 1001, 15);
    if (type != -1) std::printf("style 1001 at level 15 is a %s\n", config.GetFeatureTypeName(type).c_str());
}
