// SnapshotBuilder: compiles a store into a StyleSnapshot.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "customstyle/StyleSnapshot.h"

namespace _orvik_framework {

/// Fills one snapshot from one store and is then thrown away.
///
/// It walks the records in effect in the order in which the renderer's questions ask the feature types, so the first
/// record that answers for a style id stays. Levels and style ids are those that the store's keys and records name.
class __attribute__((visibility("hidden"))) SnapshotBuilder {
public:
    SnapshotBuilder(const CustomConfig& config, StyleSnapshot& snapshot) : m_config(config), m_snapshot(snapshot) {}

    void build();

private:
    // The answer for one style id at one level.
    struct Answer {
        std::uint32_t style = 0;
        int featureType = -1;
        bool sharesRecord = false;
        int iconHidden = 0;
        friend auto operator<=>(const Answer&, const Answer&) = default;
    };

    // The answers for one style id, by level class.
    struct Row {
        explicit Row(std::size_t levelClasses) : answers(levelClasses), iconDecided(levelClasses) {}
        std::vector<Answer> answers;
        std::vector<bool> iconDecided;
    };

    void collectLevels();
    void compileLevel(std::size_t levelClass);
    void compileType(int featureType, std::size_t levelClass);
    void enterStyle(Answer& answer, int featureType, std::uint32_t styleId, const tagCustomStyle& record);
    std::uint32_t placeOf(const tagCustomStyle& record);
    void enterIcon(Row& row, std::size_t levelClass, int featureType, const tagCustomStyle& record);
    void storeRows();
    std::uint32_t startOf(const std::vector<Answer>& answers);

    const CustomConfig& m_config;
    StyleSnapshot& m_snapshot;
    std::vector<int> m_levels;  // one of each level class
    std::unordered_map<std::uint32_t, Row> m_rows;
    std::unordered_map<std::string, std::uint32_t> m_stylePlaces;  // a record's bytes to its place
    std::map<std::vector<Answer>, std::uint32_t> m_rowStarts;
};

}  // namespace _orvik_framework
