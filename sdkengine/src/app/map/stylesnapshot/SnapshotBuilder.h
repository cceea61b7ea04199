// SnapshotBuilder: compiles a store into a StyleSnapshot.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "customstyle/StyleSnapshot.h"
#include "stylesnapshot/NumberTable.h"

namespace _orvik_framework {

/// Fills one snapshot from one store and is then thrown away.
///
/// It reads each record once, in the order in which the renderer's questions ask the feature types. Style ids whose
/// records say the same share a row of answers by level, so the time grows with the records, not with records times
/// levels.
class __attribute__((visibility("hidden"))) SnapshotBuilder {
public:
    SnapshotBuilder(const CustomConfig& config, StyleSnapshot& snapshot) : m_config(config), m_snapshot(snapshot) {}

    void build();

private:
    // A style key that questions ask for.
    struct Key {
        int featureType;
        bool allLevels;
        int level;                     // of a key for one level
        const CVMapPtrToPtr* records;  // null where the key has no slot
        std::size_t firstClass;        // in m_keyClasses: the level classes at which the key is in effect
        std::size_t classesEnd;
    };

    // What the record of one key says about a style id.
    struct Entry {
        std::uint32_t key;
        std::uint32_t style;
        int iconHidden;
        bool isCustom;
        bool sharesRecord;
        std::uint32_t next = kNone;  // entry about the same style id

        bool saysTheSame(const Entry& other) const {
            return key == other.key && style == other.style && iconHidden == other.iconHidden &&
                   isCustom == other.isCustom && sharesRecord == other.sharesRecord;
        }
    };

    // A style id and the entries about it, in the order of the questions.
    struct StyleId {
        std::uint32_t id = 0;
        std::uint32_t first = kNone;
        std::uint32_t last = kNone;
        std::uint32_t hash = 0;  // of the entries
    };

    // The answer for one style id at one level.
    struct Answer {
        std::uint32_t style = 0;
        int featureType = -1;
        bool sharesRecord = false;
        bool isIconDecided = false;
        int iconHidden = 0;

        bool isSame(const Answer& other) const {
            return style == other.style && featureType == other.featureType && sharesRecord == other.sharesRecord &&
                   iconHidden == other.iconHidden;
        }
    };

    static constexpr std::uint32_t kNone = NumberTable::kNone;

    void collectKeys();
    void collectKey(std::string_view text, int allLevels);
    void collectLevels();
    void findEffect();

    void makeRoom();
    void readRecords(std::uint32_t key);
    std::uint32_t idNumber(std::uint32_t styleId, std::size_t place);
    std::uint32_t styleNumber(const tagCustomStyle& record, int shownId);
    void append(StyleId& id, const Entry& entry);

    void findRows();
    std::uint32_t rowOf(std::uint32_t idNumber);
    bool haveSameEntries(std::uint32_t leftId, std::uint32_t rightId) const;
    void appendRow(const StyleId& id);
    static void applyTo(Answer& answer, const Entry& entry, int featureType);
    std::uint32_t rowNumberOfLast();
    std::uint32_t rowCount() const { return static_cast<std::uint32_t>(m_answers.size() / m_levels.size()); }

    void storeCells();
    StyleSnapshot::Cell cellOf(const Answer& answer);
    void storeLevels();

    const CustomConfig& m_config;
    StyleSnapshot& m_snapshot;
    std::vector<Key> m_keys;    // in the order of the questions
    std::vector<int> m_levels;  // one of each level class; the first represents all levels that no key names
    std::vector<std::uint32_t> m_keyClasses;
    std::vector<StyleId> m_ids;
    NumberTable m_idNumbers;
    std::vector<std::uint32_t> m_idsOfType;  // in the order of the type's records
    std::vector<Entry> m_entries;
    std::vector<tagCustomStyle> m_styles;
    NumberTable m_styleNumbers;
    std::uint32_t m_lastStyle = kNone;
    std::vector<std::uint32_t> m_storedStyles;  // by style: its place in the snapshot, or none
    std::vector<Answer> m_answers;              // row after row
    NumberTable m_rowNumbers;                   // by answers
    NumberTable m_idsOfRows;                    // by entries: an id with the row
    std::vector<std::uint32_t> m_rowsOfIds;
};

}  // namespace _orvik_framework
