// Which step wrote the value of each field, and which steps overwrote which.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "tools/study/Explanation.h"
#include "tools/study/StyleKey.h"
#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// The step that a field's value comes from.
struct Owner {
    std::optional<std::size_t> step;  ///< index in the steps; none while the field is as in the base record
    bool ofLevel = false;             ///< written for the level, not inherited from all levels

    bool operator==(const Owner&) const = default;
};

using RecordOwners = std::array<Owner, kStyleFieldCount>;

/// What became of the records of a key.
struct RecordStory {
    RecordOwners owners;    ///< after the last step
    std::size_t firstStep;  ///< that touched them
    std::size_t lastStep;
};

/// The colour of the grid, which is in no record, as a field.
inline constexpr std::size_t kGridField = kStyleFieldCount;

/// A value that a step wrote and that was overwritten or reset. The customised mark does not count as a value.
struct LostWork {
    std::size_t victim;   ///< index in the steps
    std::size_t culprit;  ///< may be another styler of the same rule, or the victim itself
    LossKind kind;        ///< Overwritten or Reset
    StyleKey key;         ///< of the record in which it was lost
    std::size_t field;    ///< index in styleFields(), or kGridField
    bool ofLevel;         ///< written for the level, not inherited from all levels
    bool isChanged;       ///< whether the value changed
};

/// The one history of a replay: every value, which step wrote it, and which step overwrote or reset it.
class FieldHistory {
public:
    /// @param steps  must outlive the history
    explicit FieldHistory(const std::vector<ReplayStep>& steps);

    /// In the order of the culprits.
    const std::vector<LostWork>& losses() const { return m_losses; }

    /// What a step lost, and what it overwrote or reset.
    std::vector<LostWork> lossesOf(std::size_t victim) const;
    std::span<const LostWork> lossesBy(std::size_t culprit) const;

    /// Whether a value that a record has in the end comes from the step.
    bool ownsAnything(std::size_t step) const { return m_isOwner[step]; }

    /// Every key whose records some step touched.
    const std::map<StyleKey, RecordStory>& records() const { return m_records; }

    /// The story of a key; null where no step touched its records.
    const RecordStory* storyOf(const StyleKey& key) const;

    /// The value in a field of a record, and all other writes that a question for this record could have found:
    /// overwritten, reset or, in the record for all levels, shut out. Whether the record answers is not considered.
    History historyOf(const StyleKey& key, std::size_t field) const;

    /// The same for the colour of the grid.
    History gridHistory() const;

private:
    void follow(std::size_t step, const RecordTouch& touch);
    void followField(std::size_t step, const RecordTouch& touch, std::size_t field, Owner& owner);
    void followUndone(std::size_t step, const UndoneWrite& write);
    void followGrid(std::size_t step);
    void findOwners();
    std::optional<Write> standing(const StyleKey& key, std::size_t field) const;
    Write writeOf(std::size_t step, const StyleKey& key, std::size_t field) const;
    Loss lossOf(const LostWork& lost) const;

    const std::vector<ReplayStep>& m_steps;
    std::map<StyleKey, RecordStory> m_records;
    std::optional<std::size_t> m_gridOwner;
    std::vector<LostWork> m_losses;
    std::vector<std::uint32_t> m_byVictim;             // indices of the losses
    std::vector<std::vector<std::uint32_t>> m_byType;  // by feature type, indices of the losses
    std::vector<bool> m_isOwner;                       // by step
};

}  // namespace customstyle_tool
