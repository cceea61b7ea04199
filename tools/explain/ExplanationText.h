// An explanation for people, and for programs.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/explain/Explainer.h"

namespace customstyle_tool {

/// Whether colours are shown beside their numbers, as blocks in the 24 bit colours of terminals.
enum class Swatches { None, Shown };

/// A block in a packed colour and a blank; nothing for a colour that cannot be seen, or without swatches.
std::string swatchOf(std::uint64_t color, Swatches swatches);

/// What an explanation can be asked about: the values of the record, the icon, and the two backgrounds.
enum class Topic {
    Field,  ///< with an index in styleFields()
    Icon,
    Land,
    Grid,
};

struct TopicName {
    std::string name;  ///< "text fill", "icon", "land background"
    Topic topic;
    std::size_t field;

    bool isBackground() const { return topic == Topic::Land || topic == Topic::Grid; }
    bool isColor() const;
};

/// All topics, in the order of the explanation.
std::span<const TopicName> topicNames();

/// The topic of a name, whose words may be joined by blanks, hyphens or underscores; null where there is none.
const TopicName* findTopic(std::string_view name);

/// The topic name nearest to what was written, if one is near.
std::optional<std::string> nearestTopic(std::string_view name);

const History& historyOf(const Explanation& explanation, const TopicName& topic);

/// What the renderer receives, none where it is not customised. Backgrounds have no style id.
std::optional<std::uint64_t> answerAbout(const TopicName& topic, const _orvik_framework::CustomConfig& config,
                                         unsigned int styleId, int level);

/// A value as people read it: a colour, a number, "hidden" or "shown".
std::string valueText(const TopicName& topic, std::uint64_t value);

/// The history of one topic, a line for each write.
std::string topicText(const Explainer& explainer, const Explanation& explanation, const TopicName& topic,
                      Swatches swatches);

/// The explanation with all topics that have a history, or with the one that is named.
std::string explanationText(const Explainer& explainer, const Explanation& explanation, const TopicName* only,
                            Swatches swatches);

/// The same as JSON, with all topics.
std::string explanationJson(const Explainer& explainer, const Explanation& explanation, const TopicName* only);

}  // namespace customstyle_tool
