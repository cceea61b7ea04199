// SpeakerAnswers: what the renderer would receive for the speakers of a mapping, asked once and remembered.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "tools/study/Answers.h"
#include "tools/study/Mapping.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {

/// Each answer is asked for when it is first needed. Not for several threads at once.
class SpeakerAnswers {
public:
    /// @param config    a store that no longer changes; has to outlive this
    /// @param speakers  have to outlive this
    SpeakerAnswers(const _orvik_framework::CustomConfig& config, const std::vector<Speaker>& speakers);

    /// @param speaker  one of the vector's
    const Answer& at(const Speaker& speaker, std::size_t levelClass) const;

private:
    using ByLevelClass = std::array<std::optional<Answer>, kLevelClassCount>;

    const _orvik_framework::CustomConfig& m_config;
    const std::vector<Speaker>& m_speakers;
    mutable std::vector<std::unique_ptr<ByLevelClass>> m_answers;  // by speaker
};

}  // namespace customstyle_tool
