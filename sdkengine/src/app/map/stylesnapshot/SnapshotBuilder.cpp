#include "stylesnapshot/SnapshotBuilder.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

#include "customstyle/queries/BackRegions.h"
#include "customstyle/queries/EffectiveStyles.h"

namespace _orvik_framework {
namespace {

// Compared as bytes. Where only padding differs, a record is stored twice, which is harmless.
constexpr std::size_t kAfterId = offsetof(tagCustomStyle, m_textFillColor);

const char* bytesAfterId(const tagCustomStyle& record) {
    return reinterpret_cast<const char*>(&record) + kAfterId;
}

bool looksLike(const tagCustomStyle& left, const tagCustomStyle& right) {
    return std::memcmp(bytesAfterId(left), bytesAfterId(right), sizeof left - kAfterId) == 0;
}

std::uint32_t hashOf(const tagCustomStyle& record) {
    std::uint32_t hash = 0;
    for (std::size_t i = kAfterId; i + sizeof(std::uint64_t) <= sizeof record; i += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, reinterpret_cast<const char*>(&record) + i, sizeof word);
        hash = mixed(hash, word);
    }
    return hash;
}

// The questions ask the parents last.
int rankOf(int featureType) {
    return isParentFeatureType(featureType) ? kFeatureTypesEnd + featureType : featureType;
}

// Reads a number from the front of `text` and removes it.
bool takeNumber(std::string_view& text, int& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}

}  // namespace

void SnapshotBuilder::build() {
    collectKeys();
    collectLevels();
    findEffect();
    makeRoom();
    for (std::uint32_t key = 0; key < m_keys.size(); ++key) readRecords(key);
    findRows();
    storeCells();
    storeLevels();
    m_snapshot.m_gridColor = m_config.m_gridColor;
    m_snapshot.m_gridColorSet = m_config.m_gridColorSet != 0;
    m_snapshot.m_allIconsHidden = m_config.m_allIconsHidden != 0;
}

void SnapshotBuilder::collectKeys() {
    for (const auto& [text, allLevels] : m_config.m_styleEffectLevels) collectKey(text, allLevels);
    std::ranges::sort(m_keys, {},
                      [](const Key& key) { return std::tuple(rankOf(key.featureType), key.allLevels, key.level); });
}

// Keys that no question spells, or that are registered for the other scope, are never found, so they are left out.
void SnapshotBuilder::collectKey(std::string_view text, int allLevels) {
    Key key{-1, true, 0, nullptr, 0, 0};
    std::string_view rest = text;
    if (!takeNumber(rest, key.featureType) || key.featureType < 0 || key.featureType >= kFeatureTypesEnd) return;
    if (!rest.empty()) {
        key.allLevels = false;
        rest.remove_prefix(1);  // the colon, as the comparison below makes sure
        if (!takeNumber(rest, key.level)) return;
    }
    const int scope = key.allLevels ? 1 : 0;
    const StyleKeyWords spelling = StyleKeys(key.featureType, key.level).ofScope(scope);
    if (allLevels != scope || textOf(spelling) != text) return;
    key.records = findSlot(m_config, spelling);
    m_keys.push_back(key);
}

void SnapshotBuilder::collectLevels() {
    std::vector<int> named;
    for (const Key& key : m_keys) {
        if (!key.allLevels) named.push_back(key.level);
    }
    std::ranges::sort(named);
    const auto repeated = std::unique(named.begin(), named.end());
    named.erase(repeated, named.end());
    int other = 0;
    while (std::ranges::binary_search(named, other)) ++other;
    m_levels.push_back(other);
    m_levels.insert(m_levels.end(), named.begin(), named.end());
}

// A type's key for one level comes before its key for all levels, which is in effect at the levels that are left.
void SnapshotBuilder::findEffect() {
    std::vector<int> takenBy(m_levels.size(), -1);
    for (Key& key : m_keys) {
        key.firstClass = m_keyClasses.size();
        if (!key.allLevels) {
            const auto found = std::ranges::lower_bound(m_levels.begin() + 1, m_levels.end(), key.level);
            const auto levelClass = static_cast<std::uint32_t>(found - m_levels.begin());
            takenBy[levelClass] = key.featureType;
            m_keyClasses.push_back(levelClass);
        } else {
            for (std::uint32_t levelClass = 0; levelClass < m_levels.size(); ++levelClass) {
                if (takenBy[levelClass] != key.featureType) m_keyClasses.push_back(levelClass);
            }
        }
        key.classesEnd = m_keyClasses.size();
    }
}

// For all records, and for the ids of the first key of each type: its other keys nearly always hold the same.
void SnapshotBuilder::makeRoom() {
    std::size_t records = 0;
    std::size_t ids = 0;
    int featureType = -1;
    for (const Key& key : m_keys) {
        if (key.records == nullptr) continue;
        const auto count = static_cast<std::size_t>(key.records->GetCount());
        records += count;
        if (key.featureType != featureType) ids += count;
        featureType = key.featureType;
    }
    m_entries.reserve(records);
    m_ids.reserve(ids);
    m_idNumbers.reserve(ids);
}

void SnapshotBuilder::readRecords(std::uint32_t key) {
    const CVMapPtrToPtr* records = m_keys[key].records;
    if (key == 0 || m_keys[key].featureType != m_keys[key - 1].featureType) m_idsOfType.clear();
    if (records == nullptr) return;
    std::size_t place = 0;
    for (const StoredRecord& stored : StoredRecords(*records)) {
        const std::uint32_t styleId = stored.styleId();
        // Sign-extended ids from 2^31 on have other keys than questions look for.
        if (stored.record == nullptr || stored.key != queriedKey(styleId)) continue;
        const tagCustomStyle& record = *stored.record;
        StyleId& id = m_ids[idNumber(styleId, place++)];
        const bool isCustom = record.m_custom != 0;
        const bool sharesRecord = isCustom && record.m_ID == static_cast<int>(styleId);
        const std::uint32_t style = isCustom ? styleNumber(record, sharesRecord ? 0 : record.m_ID) : 0;
        append(id, {key, style, record.m_iconHidden, isCustom, sharesRecord});
    }
}

// The keys of one type nearly always hold the same ids in the same order. Neighbouring ids are side by side in the
// table, which causes fewer cache misses.
std::uint32_t SnapshotBuilder::idNumber(std::uint32_t styleId, std::size_t place) {
    if (place < m_idsOfType.size() && m_ids[m_idsOfType[place]].id == styleId) return m_idsOfType[place];
    const auto next = static_cast<std::uint32_t>(m_ids.size());
    const std::uint32_t number = m_idNumbers.findOrEnter(
        mixed(0, styleId >> 4) + (styleId & 15), next, [&](std::uint32_t known) { return m_ids[known].id == styleId; });
    if (number == next) m_ids.push_back({styleId});
    if (place == m_idsOfType.size()) m_idsOfType.push_back(number);
    return number;
}

std::uint32_t SnapshotBuilder::styleNumber(const tagCustomStyle& record, int shownId) {
    const auto looksLikeIt = [&](std::uint32_t known) {
        return m_styles[known].m_ID == shownId && looksLike(m_styles[known], record);
    };
    if (m_lastStyle != kNone && looksLikeIt(m_lastStyle)) return m_lastStyle;
    const auto next = static_cast<std::uint32_t>(m_styles.size());
    m_lastStyle = m_styleNumbers.findOrEnter(hashOf(record), next, looksLikeIt);
    if (m_lastStyle == next) {
        m_styles.push_back(record);
        m_styles.back().m_ID = shownId;
    }
    return m_lastStyle;
}

void SnapshotBuilder::append(StyleId& id, const Entry& entry) {
    const auto place = static_cast<std::uint32_t>(m_entries.size());
    (id.first == kNone ? id.first : m_entries[id.last].next) = place;
    id.last = place;
    id.hash = mixed(id.hash, std::uint64_t{entry.key} << 32 | entry.style);
    m_entries.push_back(entry);
}

void SnapshotBuilder::findRows() {
    appendRow({});
    rowNumberOfLast();  // row 0: no answer at any level
    m_rowsOfIds.reserve(m_ids.size());
    std::vector<StyleIdIndex::Entry> numbers;
    for (std::uint32_t number = 0; number < m_ids.size(); ++number) {
        const std::uint32_t row = rowOf(number);
        m_rowsOfIds.push_back(row);
        if (row != 0) numbers.push_back({m_ids[number].id, row});
    }
    m_snapshot.m_rows = StyleIdIndex(std::move(numbers));
}

std::uint32_t SnapshotBuilder::rowOf(std::uint32_t idNumber) {
    const StyleId& id = m_ids[idNumber];
    const std::uint32_t like = m_idsOfRows.findOrEnter(
        id.hash, idNumber, [&](std::uint32_t known) { return haveSameEntries(known, idNumber); });
    if (like != idNumber) return m_rowsOfIds[like];
    appendRow(id);
    return rowNumberOfLast();
}

bool SnapshotBuilder::haveSameEntries(std::uint32_t leftId, std::uint32_t rightId) const {
    std::uint32_t left = m_ids[leftId].first;
    std::uint32_t right = m_ids[rightId].first;
    while (left != kNone && right != kNone && m_entries[left].saysTheSame(m_entries[right])) {
        left = m_entries[left].next;
        right = m_entries[right].next;
    }
    return left == right;  // both at the end
}

void SnapshotBuilder::appendRow(const StyleId& id) {
    const std::size_t start = m_answers.size();
    m_answers.resize(start + m_levels.size());
    for (std::uint32_t place = id.first; place != kNone; place = m_entries[place].next) {
        const Key& key = m_keys[m_entries[place].key];
        for (std::size_t i = key.firstClass; i < key.classesEnd; ++i) {
            applyTo(m_answers[start + m_keyClasses[i]], m_entries[place], key.featureType);
        }
    }
}

// The first customised record gives the style. The first record, customised or not, decides about the icon, but among
// the parents one that hides it is enough.
void SnapshotBuilder::applyTo(Answer& answer, const Entry& entry, int featureType) {
    if (answer.featureType == -1 && entry.isCustom) {
        answer.style = entry.style;
        answer.featureType = featureType;
        answer.sharesRecord = entry.sharesRecord;
    }
    if (answer.isIconDecided) return;
    if (!isParentFeatureType(featureType)) {
        answer.iconHidden = entry.iconHidden;
        answer.isIconDecided = true;
    } else if (entry.iconHidden != 0) {
        answer.iconHidden = 1;
    }
}

// The number of the last row; it is removed if an earlier one has the same answers.
std::uint32_t SnapshotBuilder::rowNumberOfLast() {
    const std::size_t levels = m_levels.size();
    const std::uint32_t last = rowCount() - 1;
    const auto rowAt = [&](std::uint32_t row) { return std::span(m_answers).subspan(row * levels, levels); };
    std::uint32_t hash = 0;
    for (const Answer& answer : rowAt(last)) {
        hash = mixed(hash, std::uint64_t{answer.style} << 32 | static_cast<std::uint32_t>(answer.featureType));
    }
    const std::uint32_t row = m_rowNumbers.findOrEnter(hash, last, [&](std::uint32_t known) {
        return std::ranges::equal(rowAt(known), rowAt(last),
                                  [](const Answer& left, const Answer& right) { return left.isSame(right); });
    });
    if (row != last) m_answers.resize(last * levels);
    return row;
}

void SnapshotBuilder::storeCells() {
    m_storedStyles.assign(m_styles.size(), kNone);
    m_snapshot.m_cells.reserve(m_answers.size());
    m_snapshot.m_iconsHidden.reserve(m_answers.size());
    for (std::size_t levelClass = 0; levelClass < m_levels.size(); ++levelClass) {
        for (std::size_t i = levelClass; i < m_answers.size(); i += m_levels.size()) {
            m_snapshot.m_cells.push_back(cellOf(m_answers[i]));
            m_snapshot.m_iconsHidden.push_back(m_answers[i].iconHidden);
        }
    }
    m_snapshot.m_styles.shrink_to_fit();
}

StyleSnapshot::Cell SnapshotBuilder::cellOf(const Answer& answer) {
    if (answer.featureType == -1) return {};
    std::uint32_t& stored = m_storedStyles[answer.style];
    if (stored == kNone) {
        stored = static_cast<std::uint32_t>(m_snapshot.m_styles.size());
        m_snapshot.m_styles.push_back(m_styles[answer.style]);
    }
    constexpr std::size_t kUnits = sizeof(tagCustomStyle) / StyleSnapshot::kStyleUnit;
    return {static_cast<std::uint32_t>(stored * kUnits),
            answer.sharesRecord ? answer.featureType : StyleSnapshot::kOwnRecord - answer.featureType};
}

void SnapshotBuilder::storeLevels() {
    m_snapshot.m_levels.reserve(m_levels.size());
    for (const int level : m_levels) {
        const tagCustomStyle* land = landBackground(m_config, level);
        m_snapshot.m_levels.push_back({land == nullptr ? 0 : land->m_fillColor, land == nullptr ? 0 : 1, level});
    }
    for (std::size_t i = 0; i < StyleSnapshot::kDenseLevels; ++i) {
        const int level = static_cast<int>(StyleSnapshot::kLowestDenseLevel + i);
        m_snapshot.m_denseLevels[i] = static_cast<std::uint32_t>(m_snapshot.levelClassOf(level) * rowCount());
    }
}

}  // namespace _orvik_framework
