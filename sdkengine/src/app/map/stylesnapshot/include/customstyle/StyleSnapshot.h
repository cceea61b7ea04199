// StyleSnapshot: every answer of a loaded custom style, compiled for the draw path.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "customstyle/StyleIdIndex.h"

namespace [[gnu::visibility("default")]] _orvik_framework {

/// A style that stays with its snapshot.
struct BorrowedStyle {
    int featureType = -1;  ///< feature type id that supplied the style, -1 for none
    /// Null for none. Every field is valid except m_ID, which is 0 where style ids that look alike share the record.
    const tagCustomStyle* style = nullptr;
};

/// Holds the answer to each of the renderer's questions for every style id and level.
///
/// Built once from a loaded CustomConfig and independent of it from then on; later changes to the store do not affect
/// it. Answers take constant time (at levels outside 4 to 21 a search among the levels that keys name), allocate
/// nothing and agree with CustomConfig's to the last field, the global switch included. Immutable, so any number of
/// threads may ask at the same time, without locks and without counting references; to exchange styles while threads
/// ask, build the next snapshot separately and exchange one pointer. A snapshot that was moved from must not be asked.
class StyleSnapshot {
public:
    /// Compiles the answers that `config` gives now. Throws std::bad_alloc when memory runs out.
    explicit StyleSnapshot(const CustomConfig& config);

    /// CustomConfig::GetStyleFromConfig: copies out the style of a style id at a level.
    /// @param style  receives the whole record; untouched when the answer is -1
    /// @return the feature type id that supplied it, or -1 for none
    int GetStyleFromConfig(tagCustomStyle& style, unsigned int styleId, int level) const {
        if (g_zrsdk_custom_style_enable == 0) return -1;
        const Cell& cell = m_cells[firstCellOf(level) + m_rows.find(styleId)];
        if (cell.answer < 0) return copyOwn(style, cell);
        const int featureType = cell.answer;
        style = styleAt(cell);
        style.m_ID = static_cast<int>(styleId);
        return featureType;
    }

    /// The same style without the copy. It lives as long as the snapshot.
    BorrowedStyle FindStyle(unsigned int styleId, int level) const {
        if (g_zrsdk_custom_style_enable == 0) return {};
        const Cell& cell = m_cells[firstCellOf(level) + m_rows.find(styleId)];
        if (cell.answer == kNoStyle) return {};
        return {cell.answer < 0 ? kOwnRecord - cell.answer : cell.answer, &styleAt(cell)};
    }

    /// CustomConfig::IsCustomizedIconVisible: whether the icon of a style id is hidden (1) or shown (0) at a level.
    int IsCustomizedIconVisible(unsigned int styleId, int level) const {
        if (g_zrsdk_custom_style_enable == 0) return 0;
        if (m_allIconsHidden) return 1;
        return m_iconsHidden[firstCellOf(level) + m_rows.find(styleId)];
    }

    /// CustomConfig::IsCustomBackRegionEnable: 1 and the land's packed background colour, or 0.
    int IsCustomBackRegionEnable(std::uint64_t& color, int level) const;

    /// CustomConfig::IsCustomGridBackRegionEnable: 1 and the grid's packed colour, or 0.
    int IsCustomGridBackRegionEnable(std::uint64_t& color, int level) const;

    /// Memory that the snapshot holds, this object included.
    std::size_t bytes() const;

private:
    // The levels that rules can name.
    static constexpr unsigned int kLowestDenseLevel = 4;
    static constexpr std::size_t kDenseLevels = 18;

    static constexpr std::size_t kStyleUnit = alignof(tagCustomStyle);
    static constexpr std::int32_t kNoStyle = -1;
    static constexpr std::int32_t kOwnRecord = -2;

    // The style of one style id at one level.
    struct Cell {
        std::uint32_t style = 0;  // where in m_styles, counted in units of its alignment
        // One of: the feature type of a record that several style ids share, each putting in its own id; kNoStyle;
        // kOwnRecord minus the feature type of a record that shows the m_ID it has.
        std::int32_t answer = kNoStyle;
    };

    // A level with answers of its own.
    struct Level {
        std::uint64_t landColor = 0;
        int isLandSet = 0;
        int level = 0;
    };

    friend class SnapshotBuilder;

    // Levels that no key names are alike: the cells of all of them are the first.
    std::size_t firstCellOf(int level) const {
        const unsigned int place = static_cast<unsigned int>(level) - kLowestDenseLevel;
        return place < kDenseLevels ? m_denseLevels[place] : rowCount() * levelClassOf(level);
    }
    std::size_t levelClassOf(int level) const;
    std::size_t rowCount() const { return m_cells.size() / m_levels.size(); }

    int copyOwn(tagCustomStyle& style, const Cell& cell) const;

    const tagCustomStyle& styleAt(const Cell& cell) const {
        const char* const styles = reinterpret_cast<const char*>(m_styles.data());
        return *reinterpret_cast<const tagCustomStyle*>(styles + cell.style * kStyleUnit);
    }

    std::array<std::uint32_t, kDenseLevels> m_denseLevels{};  // by level: its first cell
    StyleIdIndex m_rows;  // style ids with the same answers at all levels share a row; row 0 is for ids without answers
    std::vector<Cell> m_cells;       // for each of m_levels a cell for each row
    std::vector<int> m_iconsHidden;  // the same cells of answers about icons
    std::vector<tagCustomStyle> m_styles;
    std::vector<Level> m_levels;  // the first is for all levels that no key names; the others ascend
    std::uint64_t m_gridColor = 0;
    bool m_gridColorSet = false;
    bool m_allIconsHidden = false;
};

}  // namespace _orvik_framework
