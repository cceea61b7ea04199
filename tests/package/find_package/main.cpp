// Another project's engine: includes the interface, links the component, asks one question.
#include "customstyle/CustomConfig.h"
#include "customstyle/StyleSnapshot.h"
#include "vi/vos/VString.h"

int main() {
    const _orvik_framework::CustomConfig config;
    const _orvik_framework::StyleSnapshot snapshot(config);
    _orvik_framework::tagCustomStyle style{};
    const _orvik_vi::CVString name = "highway";
    const bool answers =
        config.GetStyleFromConfig(style, 1, 10) == -1 && snapshot.GetStyleFromConfig(style, 1, 10) == -1;
    return answers && config.GetFeatureTypeId(name.ToUtf8()) == 13 ? 0 : 1;
}
