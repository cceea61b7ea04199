// StyleStudy: all that is known of one style over one mapping. Whatever is said about a style is read from here.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/study/FieldHistory.h"
#include "tools/study/Mapping.h"
#include "tools/study/RuleView.h"
#include "tools/study/SingleRules.h"
#include "tools/study/SpeakerAnswers.h"
#include "tools/study/Spread.h"
#include "tools/study/StyleSource.h"
#include "tools/study/TracedReplay.h"

namespace customstyle_tool {

/// One style over one mapping, read once; what is costly is computed when it is first asked for. The component alone
/// decides what comes of a style: nothing here knows a rule of styling.
///
/// Reading it takes over the component's log and switch meanwhile, see ComponentGuard. Not for several threads at once.
class StyleStudy {
public:
    /// @param isWhole  whether the file is JSON; if not, the document holds what can be read of it
    StyleStudy(std::shared_ptr<const SourceFile> file, JsonDocument document, Mapping mapping, Spread spread = {},
               bool isWhole = true);
    StyleStudy(const StyleStudy&) = delete;
    StyleStudy& operator=(const StyleStudy&) = delete;

    const StyleSource& source() const { return m_source; }
    const Mapping& mapping() const { return m_mapping; }
    const Spread& spread() const { return m_spread; }

    /// The rules with their members.
    const std::vector<RuleView>& rules() const;

    /// The store that results from the style over the mapping, and over its speakers only.
    const _orvik_framework::CustomConfig& config() const;
    const _orvik_framework::CustomConfig& spokenConfig() const;

    /// What the latter answers for the mapping's speakers.
    const SpeakerAnswers& answers() const;

    /// The rules one at a time for the component, each split into its stylers.
    const std::vector<SingleRule>& singles() const;

    /// What each of them did, traced over one style id for each type that has any.
    const std::vector<ReplayStep>& steps() const;

    /// Which step wrote the value of each field.
    const FieldHistory& history() const;

    /// The indices of a rule's steps: the first, and one after the last.
    struct StepRange {
        std::size_t begin;
        std::size_t end;
    };
    StepRange stepsOf(std::size_t rule) const;

private:
    std::shared_ptr<const SourceFile> m_file;
    StyleSource m_source;
    Mapping m_mapping;
    Spread m_spread;

    // Each is made when it is first asked for.
    mutable std::unique_ptr<std::vector<RuleView>> m_rules;
    mutable std::unique_ptr<_orvik_framework::CustomConfig> m_config;
    mutable std::unique_ptr<_orvik_framework::CustomConfig> m_spoken;
    mutable std::unique_ptr<SpeakerAnswers> m_answers;
    mutable std::unique_ptr<std::vector<SingleRule>> m_singles;
    mutable std::unique_ptr<TracedReplay> m_replay;
    mutable std::unique_ptr<FieldHistory> m_history;
};

/// A store of its own, loaded with a mapping and the text of a style. What the component logs meanwhile is dropped.
std::unique_ptr<_orvik_framework::CustomConfig> storeOf(std::string_view mapping, std::string_view style);
std::unique_ptr<_orvik_framework::CustomConfig> storeOf(const _orvik_vi::cJSON* mapping, std::string_view style);

}  // namespace customstyle_tool
