#include <algorithm>

#include "customstyle/CustomConfig.h"
#include "customstyle/StoredRecords.h"
#include "customstyle/model/FeatureTypeTable.h"

namespace _orvik_framework {
namespace {

// Types whose labels stay with them, although four of them have a namesake among the label types.
constexpr EMAPCUSTOMSTYLE kTypesKeepingTheirLabels[] = {EMAPCUSTOMSTYLE_WATER, EMAPCUSTOMSTYLE_EDUCATION,
                                                        EMAPCUSTOMSTYLE_MEDICAL, EMAPCUSTOMSTYLE_SCENICSPOTS,
                                                        EMAPCUSTOMSTYLE_DISTRICT};

constexpr char kLabelWord[] = "label";

bool canBeCompanion(int id) {
    return id >= EMAPCUSTOMSTYLE_MANMADE && id <= EMAPCUSTOMSTYLE_OTHERLABEL;
}

}  // namespace

void CustomConfig::initFeatureTypeIdMap() {
    for (const FeatureTypeRow& row : kFeatureTypes) m_featureTypeIds.emplace(row.name, row.id);
}

void CustomConfig::initFeatureTypeNameMap() {
    for (const FeatureTypeRow& row : kFeatureTypes) m_featureTypeNames.emplace(row.id, row.name);
}

std::string CustomConfig::GetFeatureTypeName(int id) const {
    if (!isFeatureType(id)) return {};
    const auto found = m_featureTypeNames.find(id);
    return found == m_featureTypeNames.end() ? std::string() : found->second;
}

int CustomConfig::GetFeatureTypeId(const std::string& name) const {
    if (name.empty()) return -1;
    const auto found = m_featureTypeIds.find(name);
    return found == m_featureTypeIds.end() || !isFeatureType(found->second) ? -1 : found->second;
}

int CustomConfig::IsFeatureTypeIncludeLabels(int id) const {
    return id >= EMAPCUSTOMSTYLE_GREEN && id <= EMAPCUSTOMSTYLE_OTHERLABEL;
}

int CustomConfig::UpdateFeatureTypeId(int id) const {
    if (id < EMAPCUSTOMSTYLE_LAND || id > EMAPCUSTOMSTYLE_OTHERLABEL) return -1;
    if (std::ranges::find(kTypesKeepingTheirLabels, id) != std::end(kTypesKeepingTheirLabels)) return id;
    const auto named = m_featureTypeNames.find(id);
    if (named == m_featureTypeNames.end() || named->second.empty()) return -1;
    const std::string& name = named->second;
    if (name.find(kLabelWord) != std::string::npos) return id;
    const auto companion = m_featureTypeIds.find(name + kLabelWord);
    return companion != m_featureTypeIds.end() && canBeCompanion(companion->second) ? companion->second : id;
}

int CustomConfig::IsParentFeatureType(int id) const {
    return isParentFeatureType(id);
}

void CustomConfig::PrintAllFeartureType() const {
    CVString text;  // looked at in a debugger; it goes nowhere else
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType) {
        text.Format("featureType %d", featureType);
        for (const StoredRecord& entry : StoredRecords(m_typeStyleMaps[featureType])) {
            if (entry.record == nullptr) continue;
            const tagCustomStyle& record = *entry.record;
            text.Format("key: %d,  m_ID %d, m_fillColor %lld, m_borderColor %lld, m_custom %d", entry.id(), record.m_ID,
                        static_cast<long long>(record.m_fillColor), static_cast<long long>(record.m_borderColor),
                        record.m_custom);
        }
    }
}

}  // namespace _orvik_framework
