#include "tools/study/SpeakerAnswers.h"

namespace customstyle_tool {

SpeakerAnswers::SpeakerAnswers(const _orvik_framework::CustomConfig& config, const std::vector<Speaker>& speakers)
    : m_config(config), m_speakers(speakers), m_answers(speakers.size()) {}

const Answer& SpeakerAnswers::at(const Speaker& speaker, std::size_t levelClass) const {
    auto& answers = m_answers[static_cast<std::size_t>(&speaker - m_speakers.data())];
    if (answers == nullptr) answers = std::make_unique<ByLevelClass>();
    std::optional<Answer>& answer = (*answers)[levelClass];
    if (!answer) answer = ask(m_config, speaker.styleId, levelOfClass(levelClass));
    return *answer;
}

}  // namespace customstyle_tool
