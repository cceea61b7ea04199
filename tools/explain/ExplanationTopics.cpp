// What can be asked about an explanation.
#include <algorithm>

#include "tools/explain/ExplanationText.h"
#include "tools/study/Answers.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

std::vector<TopicName> makeTopics() {
    std::vector<TopicName> topics;
    for (std::size_t field = 0; field < kIconField; ++field) {
        topics.push_back({styleFields()[field].name, Topic::Field, field});
    }
    topics.push_back({"icon", Topic::Icon, kIconField});
    topics.push_back({"land background", Topic::Land, 0});
    topics.push_back({"grid background", Topic::Grid, 0});
    return topics;
}

std::string withBlanks(std::string_view name) {
    std::string words(name);
    std::ranges::replace_if(
        words, [](char c) { return c == '-' || c == '_'; }, ' ');
    return words;
}

}  // namespace

bool TopicName::isColor() const {
    return isBackground() || (topic == Topic::Field && styleFields()[field].kind == FieldKind::Color);
}

std::span<const TopicName> topicNames() {
    static const std::vector<TopicName> topics = makeTopics();
    return topics;
}

const TopicName* findTopic(std::string_view name) {
    const auto found = std::ranges::find(topicNames(), withBlanks(name), &TopicName::name);
    return found == topicNames().end() ? nullptr : &*found;
}

std::optional<std::string> nearestTopic(std::string_view name) {
    std::vector<std::string> names;
    for (const TopicName& topic : topicNames()) names.push_back(topic.name);
    return likelyName(withBlanks(name), names);
}

const History& historyOf(const Explanation& explanation, const TopicName& topic) {
    switch (topic.topic) {
        case Topic::Icon:
            return explanation.icon;
        case Topic::Land:
            return explanation.land;
        case Topic::Grid:
            return explanation.grid;
        case Topic::Field:
            break;
    }
    return explanation.fields[topic.field];
}

std::optional<std::uint64_t> answerAbout(const TopicName& topic, const _orvik_framework::CustomConfig& config,
                                         unsigned int styleId, int level) {
    if (topic.topic == Topic::Land) return landColor(config, level);
    if (topic.topic == Topic::Grid) return gridColor(config, level);
    const Answer answer = ask(config, styleId, level);
    return topic.topic == Topic::Icon ? std::uint64_t{answer.iconHidden} : fieldIn(answer, topic.field);
}

std::string valueText(const TopicName& topic, std::uint64_t value) {
    if (topic.topic == Topic::Icon) return value != 0 ? "hidden" : "shown";
    return topic.isColor() ? colorText(value) : std::to_string(value);
}

}  // namespace customstyle_tool
