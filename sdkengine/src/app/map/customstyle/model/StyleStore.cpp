#include <type_traits>
#include <utility>

#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/model/Messages.h"
#include "customstyle/model/RecordStorage.h"
#include "vi/vos/VLog.h"

int g_zrsdk_custom_style_enable = 0;

namespace _orvik_framework {
namespace {

constexpr float kRoomyLoadFactor = 0.25F;
constexpr int kBlockSize = 10;

// A function of its own, so that each of the 1,314 constructions is no more than a call.
[[gnu::noinline]] CVMapPtrToPtr emptyMap() noexcept(std::is_nothrow_constructible_v<CVMapPtrToPtr, int>) {
    return CVMapPtrToPtr(kBlockSize);
}

}  // namespace

CustomConfig::CustomConfig()
    : CustomConfig(std::make_index_sequence<kFeatureTypeCount>(), std::make_index_sequence<kStyleSlotCount>()) {}

template <std::size_t... kTypes, std::size_t... kSlots>
CustomConfig::CustomConfig(std::index_sequence<kTypes...> /*types*/, std::index_sequence<kSlots...> /*slots*/)
    : m_typeStyleMaps{(static_cast<void>(kTypes), emptyMap())...},
      m_levelStyleMaps{(static_cast<void>(kSlots), emptyMap())...} {
    // Most lookups of a query are for keys that no rule wrote; in a roomy table they end at an empty bucket.
    m_styleEffectLevels.max_load_factor(kRoomyLoadFactor);
    m_keyStyleMaps.max_load_factor(kRoomyLoadFactor);
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

void CustomConfig::CustomMapPrintLog(CVString message) const {
    if (message.IsEmpty()) return;
    _orvik_vi::CVLog::Log(_orvik_vi::ELOG_WARN, messages::kPrefix + message);
}

}  // namespace _orvik_framework
