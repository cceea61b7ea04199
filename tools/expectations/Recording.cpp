#include "tools/expectations/Recording.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>

#include "tools/study/Answers.h"
#include "tools/study/ComponentGuard.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Value = std::optional<std::uint64_t>;

// A statement about a style id or background: a value at some levels.
struct Saying {
    Aspect aspect;
    const TopicName* topic;
    Value value;
    LevelSet levels;

    bool operator==(const Saying&) const = default;
};

using Sayings = std::vector<Saying>;
using Ask = std::function<Value(int level)>;

// Levels with the same value share one statement.
void say(Sayings& sayings, Aspect aspect, const TopicName* topic, const LevelSet& levels, const Ask& ask) {
    const std::size_t first = sayings.size();
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        if (!levels[levelClass]) continue;
        const Value value = ask(levelOfClass(levelClass));
        const auto begin = sayings.begin() + static_cast<std::ptrdiff_t>(first);
        auto same = std::find_if(begin, sayings.end(), [&](const Saying& each) { return each.value == value; });
        if (same == sayings.end()) same = sayings.insert(same, {aspect, topic, value, {}});
        same->levels.set(levelClass);
    }
}

// Where no type answers there are no fields; the expectation says only that.
LevelSet answeredLevels(const CustomConfig& config, unsigned int styleId, LevelSet levels) {
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        if (ask(config, styleId, levelOfClass(levelClass)).featureType == -1) levels.reset(levelClass);
    }
    return levels;
}

Sayings sayingsOf(const CustomConfig& config, unsigned int styleId, const LevelSet& levels) {
    Sayings sayings;
    say(sayings, Aspect::FeatureType, nullptr, levels,
        [&](int level) { return answeringType(ask(config, styleId, level)); });
    const LevelSet answered = answeredLevels(config, styleId, levels);
    for (const TopicName& topic : topicNames()) {
        if (topic.isBackground()) continue;
        say(sayings, Aspect::Topic, &topic, topic.topic == Topic::Icon ? levels : answered,
            [&](int level) { return answerAbout(topic, config, styleId, level); });
    }
    return sayings;
}

Sayings backgroundSayings(const CustomConfig& config, int featureType, const LevelSet& levels) {
    Sayings sayings;
    const bool isLand = featureType == _orvik_framework::EMAPCUSTOMSTYLE_LAND;
    if (!isLand && featureType != _orvik_framework::EMAPCUSTOMSTYLE_GRID) return sayings;
    const TopicName* const topic = findTopic(isLand ? "land background" : "grid background");
    say(sayings, Aspect::Topic, topic, levels, [&](int level) { return answerAbout(*topic, config, 0, level); });
    return sayings;
}

void append(std::vector<Expectation>& expectations, Expectation subject, const Sayings& sayings) {
    for (const Saying& saying : sayings) {
        subject.aspect = saying.aspect;
        subject.topic = saying.topic;
        subject.value = saying.value;
        subject.levels = saying.levels;
        expectations.push_back(subject);
    }
}

std::string levelsWord(const LevelSet& levels) {
    if (levels.all()) return "all";
    std::string text = levelsText(levels);
    std::erase(text, ' ');
    return text;
}

std::string colorWord(std::uint64_t color) {
    constexpr unsigned int kOpaque = 0xFF;
    return alphaOf(color) == kOpaque ? rgbText(color) : fmt::format("{}{:02x}", rgbText(color), alphaOf(color));
}

std::string valueWord(const TopicName& topic, std::uint64_t value) {
    if (topic.topic == Topic::Icon) return value == 1 ? "hidden" : "shown";
    return topic.isColor() ? colorWord(value) : std::to_string(value);
}

std::string whatWords(const Expectation& expectation) {
    if (expectation.aspect == Aspect::FeatureType) {
        if (!expectation.value) return "none";
        return "type " + featureTypeNames()[static_cast<std::size_t>(*expectation.value)];
    }
    const TopicName& topic = *expectation.topic;
    std::string name = topic.isBackground() ? "background" : topic.name;
    std::ranges::replace(name, ' ', '-');
    return fmt::format("{:<18}  {}", name, expectation.value ? valueWord(topic, *expectation.value) : "none");
}

std::string lineOf(const Expectation& expectation) {
    const std::string subject = expectation.featureType
                                    ? featureTypeNames()[static_cast<std::size_t>(*expectation.featureType)]
                                    : fmt::format("id {}", expectation.styleId);
    return fmt::format("{:<20}  {:<16}  {}\n", subject, levelsWord(expectation.levels), whatWords(expectation));
}

}  // namespace

std::vector<Expectation> recorded(const Expectation& scope, const StyleStudy& style) {
    const ComponentGuard guard;
    std::vector<Expectation> expectations;
    if (!scope.featureType) {
        append(expectations, scope, sayingsOf(style.config(), scope.styleId, scope.levels));
        return expectations;
    }
    std::vector<Sayings> byId;
    const auto& ids = style.mapping().questionIdsOf(*scope.featureType);
    for (const unsigned int id : ids) byId.push_back(sayingsOf(style.config(), id, scope.levels));
    const bool areAlike = std::ranges::adjacent_find(byId, std::ranges::not_equal_to()) == byId.end();
    if (areAlike && !byId.empty()) append(expectations, scope, byId.front());
    for (std::size_t i = 0; i < byId.size() && !areAlike; ++i) {
        Expectation subject = scope;
        subject.featureType.reset();
        subject.styleId = ids[i];
        append(expectations, subject, byId[i]);
    }
    append(expectations, scope, backgroundSayings(style.config(), *scope.featureType, scope.levels));
    return expectations;
}

std::string recording(const StyleStudy& style) {
    std::string text;
    for (std::size_t type = 0; type < mappedTypeNames().size(); ++type) {
        Expectation scope;
        scope.featureType = static_cast<int>(type);
        scope.levels.set();
        for (const Expectation& each : recorded(scope, style)) text += lineOf(each);
    }
    return text;
}

}  // namespace customstyle_tool
