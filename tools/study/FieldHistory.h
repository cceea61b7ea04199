// Who wrote what stands in each field, and whose work was lost to whom.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// The step that a field's value goes back to.
struct Owner {
    std::optional<std::size_t> step;  ///< index in the steps; none while the field is as in the base record
    bool ofLevel = false;             ///< written for the level, not inherited from all levels

    bool operator==(const Owner&) const = default;
};

using RecordOwners = std::array<Owner, kStyleFieldCount>;

enum class LostHow : std::uint8_t {
    Overwritten,  ///< by a step that wrote the same field
    Reset,        ///< by a step that copied the style for all levels over it
};

/// The colour of the grid, which is in no record, as a field.
inline constexpr std::size_t kGridField = kStyleFieldCount;

/// A value that a step wrote and that a later one did away with. The customised mark is no value.
struct LostWork {
    std::size_t victim;   ///< index in the steps
    std::size_t culprit;  ///< may be another styler of the same rule
    LostHow kind;
    int featureType;
    std::optional<int> level;
    std::size_t field;  ///< place in styleFields(), or kGridField
    bool isChanged;     ///< whether the value became another one
};

/// The story of a replay's records.
class FieldHistory {
public:
    explicit FieldHistory(const std::vector<ReplayStep>& steps);

    const std::vector<LostWork>& losses() const { return m_losses; }

    /// Places in losses(): what a step lost, and what it did away with.
    const std::vector<std::size_t>& lossesOf(std::size_t victim) const { return m_byVictim[victim]; }
    const std::vector<std::size_t>& lossesBy(std::size_t culprit) const { return m_byCulprit[culprit]; }

    /// Whether a value that stands in a record in the end goes back to the step.
    bool ownsAnything(std::size_t step) const { return m_isOwner[step]; }

    /// The owners of a record's fields after the last step.
    const RecordOwners& ownersOf(const std::string& key, int styleId) const;

    /// Every record that some step touched.
    const std::map<std::pair<std::string, int>, RecordOwners>& records() const { return m_owners; }

private:
    void follow(std::size_t step, const RecordTouch& touch);
    void followGrid(const std::vector<ReplayStep>& steps, std::size_t step);
    void followField(std::size_t step, const RecordTouch& touch, std::size_t field, Owner& owner);

    std::map<std::pair<std::string, int>, RecordOwners> m_owners;
    std::optional<std::size_t> m_gridOwner;
    std::vector<LostWork> m_losses;
    std::vector<std::vector<std::size_t>> m_byVictim;   // by step
    std::vector<std::vector<std::size_t>> m_byCulprit;  // by step
    std::vector<bool> m_isOwner;                        // by step
};

}  // namespace customstyle_tool
