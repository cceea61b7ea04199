#include "tools/explain/ExplanationText.h"

#include <fmt/format.h>

#include "tools/explain/StepText.h"
#include "tools/study/AnswerTable.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

constexpr char kUntouched[] = "not customised";

// Writes the lines about one topic.
class TopicWriter {
public:
    TopicWriter(const Explainer& explainer, const TopicName& topic, Swatches swatches)
        : m_explainer(explainer), m_topic(topic), m_swatches(swatches) {}

    std::string text(const History& history) const {
        const std::string value = history.applies ? shown(history.value) : kUntouched;
        std::string lines = fmt::format("{:<20}{}\n", m_topic.name, value);
        if (history.winner) lines += fmt::format("  from {}\n", writeText(*history.winner));
        for (const Loss& loss : history.losses) lines += lossLine(loss);
        return lines;
    }

private:
    std::string shown(std::uint64_t value) const {
        return (isColor() ? swatchOf(value, m_swatches) : "") + valueText(m_topic, value);
    }

    bool isColor() const {
        return m_topic.topic != Topic::Icon &&
               (m_topic.topic != Topic::Field || styleFields()[m_topic.field].kind == FieldKind::Color);
    }

    std::string writeText(const Write& write) const {
        const StylerNote note = noteOf(m_explainer.style().source(), m_explainer.step(write.step));
        const auto companion = companionOf(note, write);
        if (!companion) return stylerText(note);
        return fmt::format("{}, through its companion label type {}", stylerText(note), typeText(*companion));
    }

    std::string lossLine(const Loss& loss) const {
        return fmt::format("  lost {} from {}: {}\n", shown(loss.write.value), writeText(loss.write), lossText(loss));
    }

    std::string lossText(const Loss& loss) const {
        const std::string by = loss.byStep ? stepName(*loss.byStep) : "";
        switch (loss.kind) {
            case LossKind::Overwritten:
                return "overwritten by " + by;
            case LossKind::Reset:
                return resetText(loss, by);
            case LossKind::TakenOut:
                return fmt::format("{} writes nothing and disables the record", by);
            case LossKind::ShutOut:
                return fmt::format("{} has a style of its own for level {} since {}", typeText(loss.write.featureType),
                                   *m_explainer.step(*loss.byStep).touches.front().level, by);
            case LossKind::LowerTypeFirst:
                return fmt::format("{} answers first", typeText(loss.byType));
            case LossKind::ParentNotReached:
                return fmt::format("{} answers, and {} only answers if no other type does", typeText(loss.byType),
                                   typeText(loss.write.featureType));
            case LossKind::HiddenByOther:
                return fmt::format("{} hides the icon", typeText(loss.byType));
            case LossKind::EveryIconHidden:
                return by + " hides every icon";
            case LossKind::NeverFound:
                break;
        }
        return "the renderer finds no record for this style id";
    }

    std::string resetText(const Loss& loss, const std::string& by) const {
        const char* const start = "starts over from the style for all levels";
        if (loss.byStep == loss.write.step) return fmt::format("its own next write {}", start);
        return fmt::format("{} {}", by, start);
    }

    std::string stepName(std::size_t place) const {
        const StylerNote note = noteOf(m_explainer.style().source(), m_explainer.step(place));
        return fmt::format("rule {} ({})", note.rule, note.styler);
    }

    std::string typeText(int featureType) const { return featureTypeText(m_explainer.style().config(), featureType); }

    const Explainer& m_explainer;
    const TopicName& m_topic;
    Swatches m_swatches;
};

std::string headText(const Explainer& explainer, const Explanation& explanation) {
    const auto& config = explainer.style().config();
    const std::string head = fmt::format("style id {} at level {}: ", explanation.styleId, explanation.level);
    if (explanation.featureTypes.empty()) return head + "no feature type of the mapping lists it\n";
    if (explanation.featureType == -1) return head + "no custom style\n";
    const std::string key = explanation.keyLevel ? fmt::format("level {}", *explanation.keyLevel) : "all levels";
    return fmt::format("{}{} answers with its style for {}\n", head, featureTypeText(config, explanation.featureType),
                       key);
}

bool isWorthTelling(const History& history) {
    return history.winner || !history.losses.empty();
}

}  // namespace

std::string swatchOf(std::uint64_t color, Swatches swatches) {
    if (swatches == Swatches::None || alphaOf(color) == 0) return "";
    return fmt::format("\033[48;2;{};{};{}m  \033[0m ", color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
}

std::string topicText(const Explainer& explainer, const Explanation& explanation, const TopicName& topic,
                      Swatches swatches) {
    return TopicWriter(explainer, topic, swatches).text(historyOf(explanation, topic));
}

std::string explanationText(const Explainer& explainer, const Explanation& explanation, const TopicName* only,
                            Swatches swatches) {
    std::string text = headText(explainer, explanation);
    for (const TopicName& topic : topicNames()) {
        const bool isWanted = only == nullptr
                                  ? topic.topic != Topic::Field || isWorthTelling(historyOf(explanation, topic))
                                  : only == &topic;
        if (isWanted) text += topicText(explainer, explanation, topic, swatches);
    }
    return text;
}

}  // namespace customstyle_tool
