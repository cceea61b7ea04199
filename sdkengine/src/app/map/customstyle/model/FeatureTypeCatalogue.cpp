#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/StoredRecords.h"

namespace _orvik_framework {
namespace {

constexpr char kLabelWord[] = "label";

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
    return applies(&FeatureTypeRow::carriesLabels, id);
}

int CustomConfig::UpdateFeatureTypeId(int id) const {
    const FeatureTypeRow* row = featureTypeRow(id);
    if (row == nullptr || row->labelOwner == LabelOwner::Nobody) return -1;
    if (row->labelOwner == LabelOwner::Itself) return id;
    const auto named = m_featureTypeNames.find(id);
    if (named == m_featureTypeNames.end() || named->second.empty()) return -1;
    const std::string& name = named->second;
    if (name.find(kLabelWord) != std::string::npos) return id;
    const auto companion = m_featureTypeIds.find(name + kLabelWord);
    const bool canTakeThem =
        companion != m_featureTypeIds.end() && applies(&FeatureTypeRow::canBeCompanion, companion->second);
    return canTakeThem ? companion->second : id;
}

int CustomConfig::IsParentFeatureType(int id) const {
    return isParentFeatureType(id);
}

void CustomConfig::PrintAllFeartureType() const {
    CVString text;  // for a debugger; nothing else uses it
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
