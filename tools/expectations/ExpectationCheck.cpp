#include "tools/expectations/ExpectationCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Value = std::optional<std::uint64_t>;

bool isBackground(const Expectation& expectation) {
    return expectation.topic != nullptr && expectation.topic->isBackground();
}

std::set<unsigned int> styleIdsOf(const Expectation& expectation, const StyleStudy& style) {
    if (!expectation.featureType) return {expectation.styleId};
    if (isBackground(expectation)) return {0};
    const auto& ids = style.mapping().questionIdsOf(*expectation.featureType);
    return {ids.begin(), ids.end()};
}

Value answerTo(const Expectation& expectation, const CustomConfig& config, unsigned int styleId, int level) {
    if (expectation.aspect == Aspect::Topic) return answerAbout(*expectation.topic, config, styleId, level);
    return answeringType(ask(config, styleId, level));
}

// The levels of each wrong answer for one style id, by the first level.
std::vector<std::pair<Value, LevelSet>> wrongAnswers(const Expectation& expectation, const CustomConfig& config,
                                                     unsigned int styleId) {
    std::vector<std::pair<Value, LevelSet>> wrong;
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        if (!expectation.levels[levelClass]) continue;
        const Value value = answerTo(expectation, config, styleId, levelOfClass(levelClass));
        if (value == expectation.value) continue;
        auto same = std::ranges::find(wrong, value, &std::pair<Value, LevelSet>::first);
        if (same == wrong.end()) same = wrong.insert(same, {value, {}});
        same->second.set(levelClass);
    }
    return wrong;
}

void addFailures(std::vector<ExpectationFailure>& failures, const Expectation& expectation, const StyleStudy& style) {
    const std::size_t first = failures.size();
    for (const unsigned int styleId : styleIdsOf(expectation, style)) {
        for (const auto& [value, levels] : wrongAnswers(expectation, style.config(), styleId)) {
            std::size_t same = first;
            while (same < failures.size() && (failures[same].value != value || failures[same].levels != levels)) ++same;
            if (same == failures.size()) failures.push_back({&expectation, value, levels, {}});
            if (!isBackground(expectation)) failures[same].styleIds.push_back(styleId);
        }
    }
}

int firstLevel(const LevelSet& levels) {
    std::size_t levelClass = 0;
    while (!levels[levelClass]) ++levelClass;
    return levelOfClass(levelClass);
}

unsigned int firstStyleId(const ExpectationFailure& failure) {
    return failure.styleIds.empty() ? 0 : failure.styleIds.front();
}

std::string valueWords(const Expectation& expectation, const Value& value, const CustomConfig& config) {
    if (expectation.aspect == Aspect::FeatureType) {
        return value ? "a style of " + config.GetFeatureTypeName(static_cast<int>(*value)) : "no custom style";
    }
    return value ? valueText(*expectation.topic, *value) : "not customised";
}

std::string placeWords(const ExpectationFailure& failure) {
    const std::string levels = levelsPhrase(failure.levels);
    if (failure.styleIds.empty()) return "at " + levels;
    return fmt::format("at {} for style id{} {}", levels, failure.styleIds.size() == 1 ? "" : "s",
                       rangesText(failure.styleIds));
}

}  // namespace

std::vector<ExpectationFailure> failuresOf(std::span<const Expectation> expectations, const StyleStudy& style) {
    const ComponentGuard guard;
    std::vector<ExpectationFailure> failures;
    for (const Expectation& expectation : expectations) addFailures(failures, expectation, style);
    return failures;
}

std::string failuresText(std::span<const ExpectationFailure> failures, const SourceFile& file, const StyleStudy& style,
                         Swatches swatches) {
    if (failures.empty()) return {};
    Explainer explainer(style);
    std::string text;
    for (const ExpectationFailure& failure : failures) {
        const Expectation& expectation = *failure.expectation;
        text += fmt::format("{}: {}\n  expected {}\n  found    {} {}\n", escapedText(file.place(expectation.offset)),
                            escapedText(expectation.text), valueWords(expectation, expectation.value, style.config()),
                            valueWords(expectation, failure.value, style.config()), placeWords(failure));
        const Explanation explanation = explainer.explain(firstStyleId(failure), firstLevel(failure.levels));
        text +=
            indented(isBackground(expectation) ? topicText(explainer, explanation, *expectation.topic, swatches)
                                               : explanationText(explainer, explanation, expectation.topic, swatches),
                     "  ");
    }
    return text;
}

}  // namespace customstyle_tool
