#include "tools/study/StyleStudy.h"

#include <algorithm>
#include <utility>

#include "tools/study/ComponentGuard.h"

namespace customstyle_tool {

using _orvik_framework::CustomConfig;

StyleStudy::StyleStudy(std::shared_ptr<const SourceFile> file, JsonDocument document, Mapping mapping, Spread spread,
                       bool isWhole)
    : m_file(std::move(file)),
      m_source(*m_file, std::move(document), isWhole),
      m_mapping(std::move(mapping)),
      m_spread(std::move(spread)) {}

const std::vector<RuleView>& StyleStudy::rules() const {
    if (m_rules == nullptr) m_rules = std::make_unique<std::vector<RuleView>>(viewsOf(m_source));
    return *m_rules;
}

const CustomConfig& StyleStudy::config() const {
    if (m_config == nullptr) m_config = storeOf(m_mapping.text(), m_source.text());
    return *m_config;
}

const CustomConfig& StyleStudy::spokenConfig() const {
    if (m_spoken == nullptr) m_spoken = storeOf(m_mapping.speakersTree(), m_source.text());
    return *m_spoken;
}

const SpeakerAnswers& StyleStudy::answers() const {
    if (m_answers == nullptr) m_answers = std::make_unique<SpeakerAnswers>(spokenConfig(), m_mapping.speakers());
    return *m_answers;
}

const std::vector<SingleRule>& StyleStudy::singles() const {
    if (m_singles == nullptr) m_singles = std::make_unique<std::vector<SingleRule>>(singleRules(m_source));
    return *m_singles;
}

const std::vector<ReplayStep>& StyleStudy::steps() const {
    if (m_replay == nullptr) m_replay = std::make_unique<TracedReplay>(m_mapping.tracedTree(), singles());
    return m_replay->steps();
}

const FieldHistory& StyleStudy::history() const {
    if (m_history == nullptr) m_history = std::make_unique<FieldHistory>(steps());
    return *m_history;
}

StyleStudy::StepRange StyleStudy::stepsOf(std::size_t rule) const {
    const auto placeOf = [&](auto at) { return static_cast<std::size_t>(at - singles().begin()); };
    return {placeOf(std::ranges::lower_bound(singles(), rule, {}, &SingleRule::rule)),
            placeOf(std::ranges::upper_bound(singles(), rule, {}, &SingleRule::rule))};
}

std::unique_ptr<CustomConfig> storeOf(std::string_view mapping, std::string_view style) {
    return storeOf(componentTree(mapping).get(), style);
}

std::unique_ptr<CustomConfig> storeOf(const _orvik_vi::cJSON* mapping, std::string_view style) {
    const ComponentGuard guard;
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(mapping);
    config->ParseCustomConfig(componentTree(style).get());
    return config;
}

}  // namespace customstyle_tool
