#include "CustomConfig.h"
#include "model/FeatureTypeTable.h"
#include "model/Messages.h"
#include "model/RecordStorage.h"
#include "vi/vos/VLog.h"

int g_zrsdk_custom_style_enable = 0;

namespace _orvik_framework {

CustomConfig::CustomConfig() {
    initFeatureTypeIdMap();
    initFeatureTypeNameMap();
}

CustomConfig::~CustomConfig() {
    ReleaseCustomRes();
}

void CustomConfig::ReleaseCustomRes() {
    m_keyStyleMaps.clear();
    for (CVMapPtrToPtr& records : m_levelStyleMaps) releaseRecords(records);
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType)
        releaseRecords(m_typeStyleMaps[featureType]);
}

void CustomConfig::CustomMapPrintLog(const CVString& message) const {
    if (message.IsEmpty()) return;
    _orvik_vi::CVLog::Log(_orvik_vi::ELOG_WARN, messages::kPrefix + message);
}

}  // namespace _orvik_framework
