// Why the renderer receives what it receives for one style id at one level.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {

/// One write of a styler. Grid colours are filed under "grid", hiding every icon under "all".
struct Write {
    std::size_t step;          ///< index in the replay's steps
    int featureType;           ///< of the record that was written
    std::optional<int> level;  ///< of the record that was written; none for all levels
    std::uint64_t value;
};

enum class LossKind : std::uint8_t {
    Overwritten,       ///< a later styler wrote the field again
    Reset,             ///< a rule for the level started over from the style for all levels
    TakenOut,          ///< a writer found nothing to write and took the record out of the style query
    ShutOut,           ///< the type has its own style for the level, so the one for all levels is not asked
    LowerTypeFirst,    ///< another feature type answers for the style id first
    ParentNotReached,  ///< another feature type answers, and this one only answers where none does
    HiddenByOther,     ///< several types are asked for the icon, and another one hides it
    EveryIconHidden,   ///< one rule hides every icon
    NeverFound,        ///< the component files the style id where the renderer's question does not look
};

/// A write that does not show in the answer.
struct Loss {
    Write write;
    LossKind kind;
    std::optional<std::size_t> byStep;  ///< the step that caused the loss, if it was a step
    int byType = -1;                    ///< the feature type that answers instead, if it was a type
};

/// A value with its history.
struct History {
    std::uint64_t value = 0;
    bool applies = false;
    std::optional<Write> winner;  ///< none where nothing that was written shows
    std::vector<Loss> losses;     ///< in the order of their stylers
};

/// All answers for one style id at one level. Values are those of the winners, not copies of the answers: if they
/// agree, the history is right.
struct Explanation {
    unsigned int styleId = 0;
    int level = 0;
    int featureType = -1;           ///< the type that answers, -1 for none
    std::optional<int> keyLevel;    ///< the level of the record that answers, none for all levels
    std::vector<int> featureTypes;  ///< every type under which the mapping lists the style id
    std::array<History, kStyleFieldCount>
        fields{};                    ///< of the record, by index in styleFields(); the mark has no losses
    History icon;                    ///< whether the icon is hidden
    std::vector<int> iconTypes;      ///< the types whose records are asked for the icon flag
    History land;                    ///< colour of the land's background
    std::optional<int> landStyleId;  ///< the style id whose record speaks for the land
    History grid;                    ///< colour of the grid's background
};

}  // namespace customstyle_tool
