#include "stylesnapshot/SnapshotBuilder.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <set>
#include <string_view>

#include "customstyle/queries/BackRegions.h"
#include "customstyle/queries/EffectiveStyles.h"

namespace _orvik_framework {
namespace {

// The number behind the colon of a level key, into `levels`. A type key has none.
void collectLevel(std::string_view key, std::set<int>& levels) {
    const std::size_t colon = key.find(':');
    if (colon == std::string_view::npos) return;
    int level = 0;
    const char* const end = key.data() + key.size();
    const std::from_chars_result read = std::from_chars(key.data() + colon + 1, end, level);
    if (read.ec == std::errc() && read.ptr == end) levels.insert(level);
}

}  // namespace

void SnapshotBuilder::build() {
    collectLevels();
    for (std::size_t levelClass = 0; levelClass < m_levels.size(); ++levelClass) compileLevel(levelClass);
    storeRows();
    m_snapshot.m_styles.shrink_to_fit();
    m_snapshot.m_gridColor = m_config.m_gridColor;
    m_snapshot.m_gridColorSet = m_config.m_gridColorSet != 0;
    m_snapshot.m_allIconsHidden = m_config.m_allIconsHidden != 0;
}

void SnapshotBuilder::collectLevels() {
    std::set<int> named;
    for (const auto& [key, allLevels] : m_config.m_styleEffectLevels) collectLevel(key, named);

    int other = 0;
    while (named.contains(other)) ++other;
    m_levels.push_back(other);
    for (const int level : named) {
        const auto levelClass = static_cast<std::uint16_t>(m_levels.size());
        m_levels.push_back(level);
        if (static_cast<unsigned int>(level) < StyleSnapshot::kDenseLevels) {
            m_snapshot.m_denseLevelClasses[static_cast<std::size_t>(level)] = levelClass;
        } else {
            m_snapshot.m_sparseLevels.push_back({level, levelClass});
        }
    }
}

void SnapshotBuilder::compileLevel(std::size_t levelClass) {
    for (int featureType = 0; featureType < kFeatureTypesEnd; ++featureType) {
        if (!isParentFeatureType(featureType)) compileType(featureType, levelClass);
    }
    for (const int parent : kParentFeatureTypes) compileType(parent, levelClass);

    const tagCustomStyle* land = landBackground(m_config, m_levels[levelClass]);
    m_snapshot.m_landBackgrounds.push_back(land == nullptr ? StyleSnapshot::Background{}
                                                           : StyleSnapshot::Background{land->m_fillColor, 1});
}

void SnapshotBuilder::compileType(int featureType, std::size_t levelClass) {
    const CVMapPtrToPtr* records = effectiveRecords(m_config, StyleKeys(featureType, m_levels[levelClass]));
    if (records == nullptr) return;
    for (const StoredRecord& entry : StoredRecords(*records)) {
        const std::uint32_t styleId = entry.styleId();
        // Sign-extended ids from 2^31 on have other keys than questions look for.
        if (entry.record == nullptr || entry.key != queriedKey(styleId)) continue;
        Row& row = m_rows.try_emplace(styleId, m_levels.size()).first->second;
        enterStyle(row.answers[levelClass], featureType, styleId, *entry.record);
        enterIcon(row, levelClass, featureType, *entry.record);
    }
}

void SnapshotBuilder::enterStyle(Answer& answer, int featureType, std::uint32_t styleId, const tagCustomStyle& record) {
    if (answer.featureType != -1 || record.m_custom == 0) return;
    tagCustomStyle shared = record;
    answer.sharesRecord = record.m_ID == static_cast<int>(styleId);
    if (answer.sharesRecord) shared.m_ID = 0;
    answer.style = placeOf(shared);
    answer.featureType = featureType;
}

std::uint32_t SnapshotBuilder::placeOf(const tagCustomStyle& record) {
    std::vector<tagCustomStyle>& styles = m_snapshot.m_styles;
    // Bytes instead of fields: should padding ever differ, a record is kept twice, which is harmless.
    std::string bytes(reinterpret_cast<const char*>(&record), sizeof record);
    const auto [known, isNew] = m_stylePlaces.try_emplace(std::move(bytes), static_cast<std::uint32_t>(styles.size()));
    if (isNew) styles.push_back(record);
    return known->second;
}

void SnapshotBuilder::enterIcon(Row& row, std::size_t levelClass, int featureType, const tagCustomStyle& record) {
    if (row.iconDecided[levelClass]) return;
    int& iconHidden = row.answers[levelClass].iconHidden;
    if (isParentFeatureType(featureType)) {
        // One parent that hides the icon is enough.
        if (record.m_iconHidden != 0) iconHidden = 1;
    } else {
        iconHidden = record.m_iconHidden;
        row.iconDecided[levelClass] = true;
    }
}

void SnapshotBuilder::storeRows() {
    startOf(std::vector<Answer>(m_levels.size()));  // row 0
    std::vector<PerfectIdIndex::Entry> entries;
    for (const auto& [styleId, row] : m_rows) {
        const std::uint32_t start = startOf(row.answers);
        if (start != 0) entries.push_back({styleId, start});
    }
    m_snapshot.m_cells.shrink_to_fit();
    m_snapshot.m_iconsHidden.shrink_to_fit();
    m_snapshot.m_rowStarts = PerfectIdIndex(entries);
}

std::uint32_t SnapshotBuilder::startOf(const std::vector<Answer>& answers) {
    const auto next = static_cast<std::uint32_t>(m_snapshot.m_cells.size());
    const auto [known, isNew] = m_rowStarts.try_emplace(answers, next);
    if (!isNew) return known->second;
    for (const Answer& answer : answers) {
        m_snapshot.m_cells.push_back({answer.style, static_cast<std::int16_t>(answer.featureType),
                                      static_cast<std::int16_t>(answer.sharesRecord)});
        m_snapshot.m_iconsHidden.push_back(answer.iconHidden);
    }
    return next;
}

}  // namespace _orvik_framework
