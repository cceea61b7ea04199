// StyleSnapshot: every answer of a loaded custom style, compiled for the draw path.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "customstyle/PerfectIdIndex.h"

namespace [[gnu::visibility("default")]] _orvik_framework {

/// A style that stays with its snapshot.
struct BorrowedStyle {
    int featureType = -1;  ///< feature type id that supplied the style, -1 for none
    /// Null for none. Every field holds but m_ID: style ids that look alike share one record, whose m_ID is 0 then.
    const tagCustomStyle* style = nullptr;
};

/// Holds the answer to each of the renderer's questions for every style id and level.
///
/// Built once from a loaded CustomConfig and independent of it from then on; later changes of the store do not show.
/// Answers take constant time, allocate nothing and agree with CustomConfig's to the last field, the global switch
/// included. Immutable, so any number of threads may ask at the same time, without locks and without counting
/// references; to exchange styles while threads ask, build the next snapshot aside and exchange one pointer.
class StyleSnapshot {
public:
    /// Compiles the answers that `config` gives now. Throws std::bad_alloc when memory runs out.
    explicit StyleSnapshot(const CustomConfig& config);

    /// CustomConfig::GetStyleFromConfig: copies out the style of a style id at a level.
    /// @param style  receives the whole record; untouched when the answer is -1
    /// @return the feature type id that supplied it, or -1 for none
    int GetStyleFromConfig(tagCustomStyle& style, unsigned int styleId, int level) const {
        return copyOut(style, styleId, levelClassOf(level));
    }

    /// The same style without the copy. It lives as long as the snapshot.
    BorrowedStyle FindStyle(unsigned int styleId, int level) const {
        if (g_zrsdk_custom_style_enable == 0) return {};
        const Cell cell = m_cells[placeOf(styleId, levelClassOf(level))];
        if (cell.featureType < 0) return {};
        return {cell.featureType, &m_styles[cell.style]};
    }

    /// GetStyleFromConfig for a run of style ids at one level.
    /// @param styles        receives the record of the style id at the same place; untouched where there is none
    /// @param featureTypes  receives the feature type id at the same place, or -1; as long as styleIds, like `styles`
    void GetStylesFromConfig(std::span<const unsigned int> styleIds, int level, std::span<tagCustomStyle> styles,
                             std::span<int> featureTypes) const {
        const std::size_t levelClass = levelClassOf(level);
        for (std::size_t i = 0; i < styleIds.size(); ++i) {
            featureTypes[i] = copyOut(styles[i], styleIds[i], levelClass);
        }
    }

    /// CustomConfig::IsCustomizedIconVisible: whether the icon of a style id is hidden (1) or shown (0) at a level.
    int IsCustomizedIconVisible(unsigned int styleId, int level) const {
        if (g_zrsdk_custom_style_enable == 0) return 0;
        if (m_allIconsHidden) return 1;
        return m_iconsHidden[placeOf(styleId, levelClassOf(level))];
    }

    /// CustomConfig::IsCustomBackRegionEnable: 1 and the land's packed background colour, or 0.
    int IsCustomBackRegionEnable(std::uint64_t& colour, int level) const;

    /// CustomConfig::IsCustomGridBackRegionEnable: 1 and the grid's packed colour, or 0.
    int IsCustomGridBackRegionEnable(std::uint64_t& colour, int level) const;

    /// Memory that the snapshot holds, this object included.
    std::size_t bytes() const;

private:
    // The style of one style id at one level.
    struct Cell {
        std::uint32_t style = 0;        // place in m_styles
        std::int16_t featureType = -1;  // -1: no custom style
        std::int16_t sharesRecord = 0;  // the record stands for several ids, and each puts its own in
    };

    // The land's background at one level.
    struct Background {
        std::uint64_t color = 0;
        int isSet = 0;
    };

    static constexpr std::size_t kDenseLevels = 32;

    friend class SnapshotBuilder;

    // Levels that no key names are alike and make up class 0.
    std::size_t levelClassOf(int level) const {
        const auto place = static_cast<unsigned int>(level);
        return place < kDenseLevels ? m_denseLevelClasses[place] : sparseLevelClassOf(level);
    }
    std::size_t sparseLevelClassOf(int level) const;

    // Style ids with the same answers at all levels share one row. Row 0 answers for the ids that no type holds.
    std::size_t placeOf(unsigned int styleId, std::size_t levelClass) const {
        return m_rowStarts.find(styleId) + levelClass;
    }

    int copyOut(tagCustomStyle& style, unsigned int styleId, std::size_t levelClass) const {
        if (g_zrsdk_custom_style_enable == 0) return -1;
        const Cell cell = m_cells[placeOf(styleId, levelClass)];
        if (cell.featureType < 0) return -1;
        style = m_styles[cell.style];
        if (cell.sharesRecord != 0) style.m_ID = static_cast<int>(styleId);
        return cell.featureType;
    }

    struct SparseLevel {
        int level;
        std::uint16_t levelClass;
    };

    std::array<std::uint16_t, kDenseLevels> m_denseLevelClasses{};
    PerfectIdIndex m_rowStarts;
    std::vector<Cell> m_cells;       // rows of one cell for each level class
    std::vector<int> m_iconsHidden;  // the same rows of answers about icons
    std::vector<tagCustomStyle> m_styles;
    std::vector<SparseLevel> m_sparseLevels;  // ascending
    std::vector<Background> m_landBackgrounds;
    std::uint64_t m_gridColor = 0;
    bool m_gridColorSet = false;
    bool m_allIconsHidden = false;
};

}  // namespace _orvik_framework
