// Mapping: the style ids that a style is studied over.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "customstyle/CustomConfig.h"

namespace customstyle_tool {

/// A style id that speaks for all that are listed under the same feature types: each rule treats the records of a type
/// alike, so their answers are the same.
struct Speaker {
    unsigned int styleId;
    std::vector<int> types;  ///< ascending; none for the style id that the mapping does not list
};

/// Immutable; copies share what is known of it.
class Mapping {
public:
    enum class Kind : std::uint8_t {
        EveryMap,  ///< tells apart all that any mapping can tell apart
        Standard,  ///< one style id for each feature type, see defaultMapping()
        Given,     ///< a mapping file's text
    };

    /// Each feature type has a style id of its own, and one in common with each other type. An id under three types or
    /// more adds nothing, because the renderer's questions go through the types in one order and stop at the first that
    /// answers.
    static Mapping everyMap();
    static Mapping standard();
    /// @param text  of a mapping file that the component accepts
    static Mapping given(std::string text);

    Kind kind() const { return m_known->kind; }

    /// "every map", "one style id for each feature type", "the given mapping".
    std::string_view name() const;

    const std::string& text() const { return m_known->text; }

    /// As the component holds them after loading, in the order of its records.
    const std::vector<int>& idsOf(int featureType) const { return m_known->ids[static_cast<std::size_t>(featureType)]; }

    /// Those that a question of the renderer finds, ascending; of one type, and of all.
    const std::vector<unsigned int>& questionIdsOf(int featureType) const {
        return m_known->questionIds[static_cast<std::size_t>(featureType)];
    }
    std::vector<unsigned int> questionIds() const;

    /// The feature types under which a question of the renderer finds the style id, ascending.
    std::vector<int> typesOf(unsigned int styleId) const;

    /// A few style ids that speak for all, those under one type first; the last is one that the mapping does not list.
    const std::vector<Speaker>& speakers() const { return m_known->speakers; }

    /// A style id that the mapping does not list.
    unsigned int unlistedId() const { return speakers().back().styleId; }

    /// The text of a mapping with the speakers only.
    std::string speakersText() const;

    /// The text of a mapping in which each feature type that has style ids has one of its own, see defaultStyleId: each
    /// rule does the same to all records of a type, so one shows what happens to all.
    std::string tracedText() const;

    /// These two texts as the component reads them, parsed once for all studies over the mapping.
    const _orvik_vi::cJSON* speakersTree() const { return m_known->speakersTree.get(); }
    const _orvik_vi::cJSON* tracedTree() const { return m_known->tracedTree.get(); }

private:
    struct Known {
        Kind kind;
        std::string text;
        std::vector<std::vector<int>> ids;                   // by feature type
        std::vector<std::vector<unsigned int>> questionIds;  // by feature type
        std::vector<Speaker> speakers;
        std::shared_ptr<const _orvik_vi::cJSON> speakersTree{};
        std::shared_ptr<const _orvik_vi::cJSON> tracedTree{};
    };

    Mapping(Kind kind, std::string text);

    std::shared_ptr<const Known> m_known;
};

/// The style id that is listed under two feature types, or under one alone, in the mapping of every map.
int sharedStyleId(int left, int right);

/// Whether a question of the renderer can find a style id that a mapping lists.
bool canBeAskedFor(int styleId);

/// Whether the component accepts a mapping.
bool isAcceptedMapping(std::string_view text);

}  // namespace customstyle_tool
