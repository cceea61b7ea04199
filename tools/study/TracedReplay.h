// TracedReplay: applies a style rule by rule through the component and notes what each styler of each rule does.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/study/SingleRules.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {

/// How a field of a record got the value that it has after a step.
enum class Origin : std::uint8_t {
    Kept,       ///< the step left it alone
    Inherited,  ///< the step copied it from the all-levels record of the same type and style id
    Written,    ///< the step wrote it, even if the value is the same
};

/// What a step did to one record. Steps visit a record even when they change no value in it.
struct RecordTouch {
    std::string key;           ///< "13" or "13:15"
    int featureType;           ///< of the key
    std::optional<int> level;  ///< of the key; none for all levels
    int styleId;
    tagCustomStyle before;  ///< a record that the step created began as a base record, all 0
    tagCustomStyle after;
    std::array<Origin, kStyleFieldCount> origins;  ///< by index in styleFields()
};

/// A value that a step wrote into a record for a level and lost at once, because its next write started the record over
/// from the one for all levels.
struct UndoneWrite {
    std::size_t touch;  ///< index in the step's touches
    std::size_t field;  ///< index in styleFields(); never the mark
    std::uint64_t value;
};

/// One styler of one rule, or a rule without a styler that the component acts on.
struct ReplayStep {
    std::size_t rule;                  ///< index of the rule, from 0
    std::string styler;                ///< "color", "visibility", "weight", "fontsize"; empty for a rule without one
    std::vector<std::string> log;      ///< the component's lines, prefix included
    std::vector<std::string> keys;     ///< every style key that the step addresses, in the order of the component
    std::vector<std::string> newKeys;  ///< those that got their slot in this step
    std::vector<std::string> refused;  ///< those that got none, because every slot is taken
    std::vector<RecordTouch> touches;  ///< in the order of the keys' slots
    std::vector<UndoneWrite> undone;   ///< in the order of the touches
    std::optional<std::uint64_t> gridColor;  ///< the grid colour that the step wrote
    bool hidesEveryIcon = false;
};

/// The history of a store.
///
/// Each styler of a rule is handed to the component alone, in the component's order, with the log captured; the outcome
/// is that of the whole file. Which fields a step wrote, and which it copied from the all-levels record, is found by
/// repeating the step over marked records: what still bears a mark was not written. So the component alone decides, and
/// nothing here knows its rules.
class TracedReplay {
public:
    /// @param mapping  that the component accepts, read only here; one style id for each type is enough
    TracedReplay(const _orvik_vi::cJSON* mapping, const std::vector<SingleRule>& rules);

    /// In the order in which the component acts, one for each of the rules.
    const std::vector<ReplayStep>& steps() const { return m_steps; }

    /// The store after the last rule.
    const _orvik_framework::CustomConfig& config() const { return *m_config; }

private:
    std::unique_ptr<_orvik_framework::CustomConfig> m_config;
    std::vector<ReplayStep> m_steps;
};

}  // namespace customstyle_tool
