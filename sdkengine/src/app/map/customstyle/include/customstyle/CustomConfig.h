// CustomConfig: the custom style of one map view, from its two files to the renderer's answers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>

#include "customstyle/ShortTextTable.h"
#include "vi/vos/VJson.h"
#include "vi/vos/VMap.h"
#include "vi/vos/VString.h"

namespace [[gnu::visibility("default")]] _orvik_framework {

/// Feature types: the classes of map content that a rule can address. The values are fixed; files name them in lower
/// case, as GetFeatureTypeName gives them.
enum EMAPCUSTOMSTYLE : int {
    EMAPCUSTOMSTYLE_LAND = 0,
    EMAPCUSTOMSTYLE_GREEN,
    EMAPCUSTOMSTYLE_WATER,
    EMAPCUSTOMSTYLE_BUILDING,
    EMAPCUSTOMSTYLE_MANMADE,
    EMAPCUSTOMSTYLE_SUBWAYSTATION,
    EMAPCUSTOMSTYLE_EDUCATION,
    EMAPCUSTOMSTYLE_MEDICAL,
    EMAPCUSTOMSTYLE_SCENICSPOTS,
    EMAPCUSTOMSTYLE_ENTERTAINMENT,
    EMAPCUSTOMSTYLE_ESTATE,
    EMAPCUSTOMSTYLE_SHOPPING,
    EMAPCUSTOMSTYLE_TRANSPORTATION,
    EMAPCUSTOMSTYLE_HIGHWAY,
    EMAPCUSTOMSTYLE_NATIONALWAY,
    EMAPCUSTOMSTYLE_PROVINCIALWAY,
    EMAPCUSTOMSTYLE_CITYHIGHWAY,
    EMAPCUSTOMSTYLE_ARTERIAL,
    EMAPCUSTOMSTYLE_TERTIARYWAY,
    EMAPCUSTOMSTYLE_FOURLEVELWAY,
    EMAPCUSTOMSTYLE_LOCAL,
    EMAPCUSTOMSTYLE_SCENICSPOTSWAY,
    EMAPCUSTOMSTYLE_UNIVERSITYWAY,
    EMAPCUSTOMSTYLE_VACATIONWAY,
    EMAPCUSTOMSTYLE_RAILWAY,
    EMAPCUSTOMSTYLE_SUBWAY,
    EMAPCUSTOMSTYLE_SUBWAYLABEL,
    EMAPCUSTOMSTYLE_ROADLABEL,
    EMAPCUSTOMSTYLE_HIGHWAYLABEL,
    EMAPCUSTOMSTYLE_HIGHWAYENTRANCE,
    EMAPCUSTOMSTYLE_HIGHWAYSIGN,
    EMAPCUSTOMSTYLE_NATIONALWAYLABEL,
    EMAPCUSTOMSTYLE_NATIONALWAYSIGN,
    EMAPCUSTOMSTYLE_PROVINCIALWAYLABEL,
    EMAPCUSTOMSTYLE_PROVINCIALWAYSIGN,
    EMAPCUSTOMSTYLE_CITYHIGHWAYLABEL,
    EMAPCUSTOMSTYLE_ARTERIALLABEL,
    EMAPCUSTOMSTYLE_ARTERIALENTRANCE,
    EMAPCUSTOMSTYLE_TERTIARYWAYLABEL,
    EMAPCUSTOMSTYLE_TERTIARYWAYSIGN,
    EMAPCUSTOMSTYLE_FOURLEVELWAYLABEL,
    EMAPCUSTOMSTYLE_LOCALLABEL,
    EMAPCUSTOMSTYLE_SCENICSPOTSWAYLABEL,
    EMAPCUSTOMSTYLE_UNIVERSITYWAYLABEL,
    EMAPCUSTOMSTYLE_VACATIONWAYLABEL,
    EMAPCUSTOMSTYLE_DISTRICTLABEL,
    EMAPCUSTOMSTYLE_BOUNDARY,
    EMAPCUSTOMSTYLE_CONTINENT,
    EMAPCUSTOMSTYLE_COUNTRY,
    EMAPCUSTOMSTYLE_PROVINCE,
    EMAPCUSTOMSTYLE_CITY,
    EMAPCUSTOMSTYLE_DISTRICT,
    EMAPCUSTOMSTYLE_TOWN,
    EMAPCUSTOMSTYLE_POILABEL,
    EMAPCUSTOMSTYLE_AIRPORTLABEL,
    EMAPCUSTOMSTYLE_SCENICSPOTSLABEL,
    EMAPCUSTOMSTYLE_EDUCATIONLABEL,
    EMAPCUSTOMSTYLE_MEDICALLABEL,
    EMAPCUSTOMSTYLE_ENTERTAINMENTLABEL,
    EMAPCUSTOMSTYLE_ESTATELABEL,
    EMAPCUSTOMSTYLE_BUSINESSTOWERLABEL,
    EMAPCUSTOMSTYLE_COMPANYLABEL,
    EMAPCUSTOMSTYLE_GOVERNMENTLABEL,
    EMAPCUSTOMSTYLE_RESTAURANTLABEL,
    EMAPCUSTOMSTYLE_HOTELLABEL,
    EMAPCUSTOMSTYLE_SHOPPINGLABEL,
    EMAPCUSTOMSTYLE_LIFESERVICELABEL,
    EMAPCUSTOMSTYLE_CARSERVICELABEL,
    EMAPCUSTOMSTYLE_TRANSPORTATIONLABEL,
    EMAPCUSTOMSTYLE_FINANCELABEL,
    EMAPCUSTOMSTYLE_OTHERLABEL,
    EMAPCUSTOMSTYLE_GRID,
    EMAPCUSTOMSTYLE_ALL,
};

/// The style record that the renderer receives, copied whole.
///
/// A value applies only while its flag, the member of the same name with Set, is 1. Colours are packed: alpha, blue,
/// green, red from bit 31 down, the upper 32 bits 0; colour 0 is fully transparent. Weights and the font size are whole
/// numbers 0 to 255 without unit.
struct tagCustomStyle {
    int m_ID;  ///< renderer style id
    std::uint64_t m_textFillColor;
    std::uint64_t m_textStrokeColor;
    int m_textFillColorSet;
    int m_textStrokeColorSet;
    std::uint8_t m_textFillWeight;
    std::uint8_t m_textStrokeWeight;
    int m_textFillWeightSet;
    int m_textStrokeWeightSet;
    std::uint8_t m_fontSize;
    int m_fontSizeSet;
    std::uint64_t m_fillColor;    ///< of the geometry
    std::uint64_t m_borderColor;  ///< of the geometry's stroke
    std::uint8_t m_fillWeight;
    std::uint8_t m_borderWeight;
    int m_fillColorSet;
    int m_borderColorSet;
    int m_iconHidden;  ///< 1 when the icon is hidden, 0 when it is shown
    int m_fillWeightSet;
    int m_borderWeightSet;
    std::uint64_t m_topSurfaceColor;  ///< of extruded geometry
    int m_topSurfaceColorSet;
    int m_custom;  ///< not 0 when the record is customised; style queries skip the others
};

using _orvik_vi::cJSON;
using _orvik_vi::CVMapPtrToPtr;
using _orvik_vi::CVString;

inline constexpr int kFeatureTypeCount = 73;  // 0 to 72
inline constexpr int kStyleSlotCount = 1241;  // rules can name more keys; a key without a slot is refused

/// What the visibility styling notes about a rule.
struct stFeatureTypeStyleRecorder {
    int m_featureType;
    CVString m_elementType;
    int m_recorded;  ///< 1 when the entry has been filled
};

/// All custom style state of one map view.
///
/// @code
///     _orvik_framework::CustomConfig config;
///     if (config.Init("examples/map/", "examples/styles/night.json") == 0) return;  // the log says why
///     g_zrsdk_custom_style_enable = 1;
///
///     _orvik_framework::tagCustomStyle style;
///     const int featureType = config.GetStyleFromConfig(style, styleId, level);
///     if (featureType != -1 && style.m_fillColorSet == 1) fillWith(style.m_fillColor);
/// @endcode
///
/// The host constructs it, calls Init once, and then lets the renderer ask. Questions answer 1 for yes and 0 for no, or
/// a feature type id and -1 for none; output parameters stay untouched on 0 and -1. Problems are logged, one line each,
/// and never thrown; only the standard library's std::bad_alloc can pass through. Compiled without exceptions and
/// run-time types it works the same, but then the engine's operator new decides how running out of memory ends.
///
/// Not synchronised: loading and questions must not overlap, while any number of threads may ask at the same time.
/// Everything is public, because host tools and tests read the store directly.
class CustomConfig {
public:
    /// @name Lifecycle
    /// @{

    /// An empty store with the feature type tables filled.
    CustomConfig();

    /// Frees every record.
    ~CustomConfig();

    CustomConfig(const CustomConfig&) = delete;
    CustomConfig& operator=(const CustomConfig&) = delete;

    /// Loads the mapping file and the style file, adding to what an earlier call left.
    ///
    /// @param mappingDirectory  directory of the file "CustomIndex", with its trailing separator: the name is appended
    /// @param styleFile         path of the style file
    /// @return 1 when both files were read as JSON and the mapping names every feature type, even when every rule was
    ///         refused; otherwise 0 with one log line (none for an empty argument). What was stored by then stays.
    int Init(const CVString& mappingDirectory, const CVString& styleFile);

    /// Frees all records and forgets which slot each key has. Which keys are in effect, the slot counter, the grid
    /// colour and the icon switch stay: it is the first step of destruction, not a way to reuse the object.
    void ReleaseCustomRes();
    /// @}

    /// @name The renderer's questions
    /// They allocate nothing and change nothing.
    /// @{

    /// Copies out the customised style of one renderer style at one zoom level.
    ///
    /// Of several feature types that customise the style id the lowest answers, the parents 4, 45 and 53 last. Where a
    /// type has styles of its own for the level, its styles for all levels are not consulted.
    ///
    /// @param style    receives the whole record; untouched when the answer is -1
    /// @param styleId  renderer style id; from 2^31 on it finds nothing where pointers have 64 bits
    /// @param level    zoom level; a level that no rule names sees the all-levels styles only; files name levels 4
    ///                 to 21
    /// @return the feature type id 0 to 71 that supplied the record, or -1 for none
    int GetStyleFromConfig(tagCustomStyle& style, unsigned int styleId, int level) const;

    /// The style of the first parent type that customises the style id; does not look at the global switch.
    int GetParentFeatureTypeCustomStyle(tagCustomStyle& style, int level, unsigned int styleId) const;

    /// The style that one feature type has for the style id; does not look at the global switch.
    int GetParentFeatureTypeCustomStyle(tagCustomStyle& style, int level, int featureType, unsigned int styleId) const;

    /// Whether the icon of a renderer style is hidden at a level (1) or shown (0). The lowest feature type that holds
    /// the style id decides, customised or not. Where only parents hold it, one that hides the icon is enough. While
    /// m_allIconsHidden is set, the answer is 1 for every style id.
    int IsCustomizedIconVisible(unsigned int styleId, int level) const;

    /// Whether a parent feature type (4, 45 or 53) hides the icon of a style id; other types answer 0. Does not look at
    /// the global switch.
    int IsParentFeatureTypeIconCustomizedVisibility(int featureType, unsigned int styleId, int level) const;

    /// Whether the land background has a custom colour at a level: that of the first record of "land", if customised.
    /// @param color  receives the packed colour
    int IsCustomBackRegionEnable(std::uint64_t& color, int level) const;

    /// Whether the background grid has a custom colour; it is the same at every level.
    /// @param color  receives the packed colour
    int IsCustomGridBackRegionEnable(std::uint64_t& color, int level) const;
    /// @}

    /// @name Feature types
    /// @{

    /// Fill the two tables of feature types; called by the constructor. Existing names and ids stay.
    void initFeatureTypeIdMap();
    void initFeatureTypeNameMap();

    /// The name of a feature type id, or the empty text outside 0 to 72.
    std::string GetFeatureTypeName(int id) const;

    /// The id of an exactly equal name, or -1.
    int GetFeatureTypeId(const std::string& name) const;

    /// Whether the type can carry labels: 1 to 70.
    int IsFeatureTypeIncludeLabels(int id) const;

    /// The companion type that holds the labels of a geometry type ("highway" has "highwaylabel"), the id itself where
    /// there is none, or -1 above 70 and below 0.
    int UpdateFeatureTypeId(int id) const;

    /// Whether the type is one of the parents that answer last: 4 "manmade", 45 "districtlabel" and 53 "poilabel".
    int IsParentFeatureType(int id) const;

    /// Formats the base styles for inspection in a debugger; without visible effect.
    void PrintAllFeartureType() const;
    /// @}

    /// @name Loading
    /// The component only reads the trees and keeps nothing of them.
    /// @{

    /// Makes the base records of a mapping document; null has no feature types.
    /// @return 1, or 0 at the first feature type 0 to 71 that is absent or not an array; the types before it keep their
    ///         records
    int ParseMappingConfig(const cJSON* document);

    /// Applies the rules of a style document in their order; null has no rules.
    /// @return always 1; each refused rule leaves a log line
    int ParseCustomConfig(const cJSON* root);

    /// Reads the "level" of a rule's stylers; null has none.
    /// @param level  receives 4 to 21, or 0 when the rule holds for all levels; never null
    /// @return 1 for all levels ("level" is absent or not a text), 0 for one level
    int ParseCustomStyleGivenLevel(const cJSON* stylers, int* level) const;

    /// Names the stylers that a rule carries as texts: color;visibility;weight;fontsize, absent ones left out but not
    /// their semicolons; null has none. The names are given as the file spells them.
    CVString ParseCustomStyler(const cJSON* stylers) const;

    /// Packs a colour text `#RRGGBB` or `#RRGGBBAA`; null is read as the empty text. The first character is ignored;
    /// characters that are missing or not hexadecimal digits count as 0. Without alpha, and always for "boundary", the
    /// colour is opaque.
    int CalculateColorValue(const char* text, int featureType) const;

    /// Reads a weight: decimal, 255 for larger values; null is read as the empty text, which is 0. Other
    /// characters than digits add nothing but still shift the digits before them: "1.5" is 105.
    int CalculateWeightValue(const char* text) const;

    /// Whether the text is not empty and all ASCII digits.
    int IsValueAllDigit(std::string text) const;
    /// @}

    /// @name Styling: dispatchers
    /// They check a rule's value and hand it to record writers.
    ///
    /// `elementType` is the last word of the rule's element path, `includesLabels` is not 0 when the whole path names
    /// "labels" or "all", `allLevels` is 1 for a rule without level and 0 for one at `level`. `stylers` may be null:
    /// then the styler is absent, which is logged (a weight for "boundary" is ignored without a line). The parameters
    /// named `unused` may be null or anything else.
    /// @{

    void SetCustomColorStyle(int featureType, CVString elementType, const cJSON* stylers, int includesLabels,
                             stFeatureTypeStyleRecorder* unused, int allLevels, int level);
    /// @param recorders  notes of all rules; entry `ruleIndex` is filled for each valid "on" and "off". Null: no notes.
    void SetCustomVisibilityStyle(int featureType, CVString elementType, const cJSON* stylers, int includesLabels,
                                  stFeatureTypeStyleRecorder* recorders, int ruleIndex, int allLevels, int level);
    void SetCustomWeightStyle(int featureType, CVString elementType, const cJSON* stylers, int includesLabels,
                              stFeatureTypeStyleRecorder* unused, int allLevels, int level);
    void SetCustomFontSizeStyle(int featureType, CVString elementType, const cJSON* stylers, int includesLabels,
                                stFeatureTypeStyleRecorder* unused, int allLevels, int level);
    /// @}

    /// @name Styling: record writers
    /// They change the fields that `elementType` names in every record of the feature type, at all levels or at one. An
    /// element type that a writer does not know leaves the records without their customised mark, except that the icon
    /// writer marks every record.
    /// @{

    void SetTypeColor(int featureType, const CVString& elementType, std::uint64_t color, int allLevels, int level);
    void SetFontColorStyle(int featureType, CVString elementType, std::uint64_t color, int allLevels, int level);
    /// @param hide  1 to hide the icon, 0 to show it; stored as it is
    void SetCustomIconInvisible(int featureType, const CVString& elementType, int hide, int allLevels, int level);
    /// @param weight  0 to 255; the low 8 bits are stored
    void SetTypeWeight(int featureType, const CVString& elementType, int weight, int allLevels, int level);
    /// @param weight  0 to 255; the low 8 bits are stored
    void SetFontWeightStyle(int featureType, const CVString& elementType, int weight, int allLevels, int level);
    void setFontSizeStyle(int featureType, const CVString& elementType, unsigned char size, int allLevels, int level);

    /// Sets the colour of the background grid.
    void SetGridColorStyle(std::uint64_t color);
    /// @}

    /// @name Store
    /// A style key is the decimal feature type id ("13", all levels), or id and level joined by a colon ("13:15").
    /// @{

    /// Registers the style key of a feature type at all levels or at one; a new key gets a slot with copies of
    /// the type's base records. A key beyond the last slot and a type outside 0 to 72 are refused: nothing is
    /// registered.
    /// @param keyOut     receives the key with its terminating zero; room for 16 characters, never null
    /// @param allLevels  not 0: all levels, and `level` is ignored
    void UpdateCustomStyleMap(char* keyOut, int featureType, int allLevels, int level);

    /// Whether rules wrote this key for one level, respectively for all levels. Null answers 0.
    int IsStyleEffectAtGivenLevel(const char* key) const;
    int IsStyleEffectAtAllLevel(const char* key) const;

    /// Logs a message of the component after its prefix; an empty one is dropped.
    void CustomMapPrintLog(CVString message) const;

    /// Base records of each feature type, by style id: all 0 but m_ID. Owned.
    CVMapPtrToPtr m_typeStyleMaps[kFeatureTypeCount];
    /// Colour of the background grid; meaningful while m_gridColorSet is 1.
    std::uint64_t m_gridColor = 0;
    int m_gridColorSet = 0;
    /// 1 once a rule on "all" addressed the icons: every icon is hidden.
    int m_allIconsHidden = 0;
    /// Style key to 1 (all levels) or 0 (one level).
    ShortTextTable<int> m_styleEffectLevels;
    /// Style key to its slot in m_levelStyleMaps. Borrowed.
    ShortTextTable<CVMapPtrToPtr*> m_keyStyleMaps;
    /// Customised records, by style id, in the order in which their keys were first seen. Owned.
    CVMapPtrToPtr m_levelStyleMaps[kStyleSlotCount];
    /// Number of slots handed out, and index of the next free one.
    int m_usedLevelSlots = 0;
    /// Feature type name to id, and id to name.
    ShortTextTable<int> m_featureTypeIds;
    std::unordered_map<int, std::string> m_featureTypeNames;
    /// @}

private:
    // Names each element of the two arrays of maps: the only way to give all of them their block size.
    template <std::size_t... kTypes, std::size_t... kSlots>
    [[gnu::visibility("hidden")]] CustomConfig(std::index_sequence<kTypes...> types,
                                               std::index_sequence<kSlots...> slots);
};

}  // namespace _orvik_framework

/// Whether the renderer's queries answer from the custom style: 0 (as at the start) means that they all answer "none".
/// Defined by the component, which only reads it; set by the host. Loading does not depend on it.
extern __attribute__((visibility("default"))) int g_zrsdk_custom_style_enable;
