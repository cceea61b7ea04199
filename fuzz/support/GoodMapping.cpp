#include "fuzz/support/GoodMapping.h"

#include "customstyle/CustomConfig.h"

namespace customstyle_fuzz {

const std::string& goodMapping() {
    static const std::string mapping = [] {
        const _orvik_framework::CustomConfig catalogue;
        std::string json;
        for (int type = 0; type <= 71; ++type) {
            json += (type == 0 ? "{\"" : ",\"") + catalogue.GetFeatureTypeName(type) + "\":[" +
                    std::to_string(100 + type / 2) + "," + std::to_string(200 + type) + "]";
        }
        return json + "}";
    }();
    return mapping;
}

}  // namespace customstyle_fuzz
