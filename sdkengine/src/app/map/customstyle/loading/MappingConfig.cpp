#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/model/RecordStorage.h"

namespace _orvik_framework {
namespace {

// A run of equal ids makes one record, and 0 counts as seen before the first. An id that recurs after another one
// replaces its earlier record.
void makeBaseRecords(CVMapPtrToPtr& records, const cJSON* styleIds) {
    int previousId = 0;
    _orvik_vi::forEachChild(styleIds, [&](const cJSON& element) {
        const int styleId = element.valueint;
        if (styleId == previousId) return;
        tagCustomStyle record{};
        record.m_ID = styleId;
        storeCopy(records, record);
        previousId = styleId;
    });
}

}  // namespace

int CustomConfig::ParseMappingConfig(const cJSON* document) {
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType) {
        const std::string name = GetFeatureTypeName(featureType);
        if (name.empty()) continue;
        const cJSON* styleIds = _orvik_vi::cJSON_GetObjectItem(document, name.c_str());
        if (_orvik_vi::cJSON_IsArray(styleIds) == 0) return 0;
        makeBaseRecords(m_typeStyleMaps[featureType], styleIds);
    }
    return 1;
}

}  // namespace _orvik_framework
