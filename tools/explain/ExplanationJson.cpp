#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "tools/explain/ExplanationText.h"
#include "tools/explain/StepText.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;

// In the order of LossKind.
constexpr const char* kLossNames[] = {
    "overwritten",        "reset",           "taken out",         "shut out by a level",  "other type first",
    "parent not reached", "hidden by other", "every icon hidden", "style id never found",
};
static_assert(std::size(kLossNames) == static_cast<std::size_t>(LossKind::NeverFound) + 1);

class JsonWriter {
public:
    explicit JsonWriter(const Explainer& explainer) : m_explainer(explainer) {}

    Json head(const Explanation& explanation) const {
        return {{"id", explanation.styleId},
                {"level", explanation.level},
                {"feature_type", typeOf(explanation.featureType)},
                {"style_level", explanation.keyLevel ? Json(*explanation.keyLevel) : Json(nullptr)},
                {"mapped_types", typesOf(explanation.featureTypes)}};
    }

    Json topic(const TopicName& topic, const History& history) const {
        Json losses = Json::array();
        for (const Loss& loss : history.losses) losses.push_back(lossOf(topic, loss));
        return {{"value", history.applies ? valueOf(topic, history.value) : Json(nullptr)},
                {"from", history.winner ? writeOf(topic, *history.winner) : Json(nullptr)},
                {"lost", losses}};
    }

    Json typesOf(const std::vector<int>& featureTypes) const {
        Json list = Json::array();
        for (const int featureType : featureTypes) list.push_back(typeOf(featureType));
        return list;
    }

private:
    Json typeOf(int featureType) const {
        if (featureType == -1) return nullptr;
        return m_explainer.style().config().GetFeatureTypeName(featureType);
    }

    static Json valueOf(const TopicName& topic, std::uint64_t value) {
        if (topic.topic == Topic::Icon) return valueText(topic, value);
        return topic.isColor() ? colorJson(value) : Json(value);
    }

    Json stylerOf(std::size_t step) const {
        const StylerNote note = noteOf(m_explainer.style().source(), m_explainer.step(step));
        return {{"rule", note.rule},
                {"file", note.file},
                {"line", note.position.line},
                {"column", note.position.column},
                {"styler", note.styler}};
    }

    Json writeOf(const TopicName& topic, const Write& write) const {
        const StylerNote note = noteOf(m_explainer.style().source(), m_explainer.step(write.step));
        Json json = stylerOf(write.step);
        json["rule_feature_type"] = note.featureType;
        json["rule_element_type"] = note.elementType;
        json["value"] = valueOf(topic, write.value);
        json["written_to"] = {{"key", keyOf(write)},
                              {"feature_type", typeOf(write.featureType)},
                              {"level", write.level ? Json(*write.level) : Json(nullptr)},
                              {"companion", companionOf(note, write).has_value()}};
        return json;
    }

    static std::string keyOf(const Write& write) {
        if (!write.level) return fmt::format("{}", write.featureType);
        return fmt::format("{}:{}", write.featureType, *write.level);
    }

    Json lossOf(const TopicName& topic, const Loss& loss) const {
        Json json = writeOf(topic, loss.write);
        json["how"] = kLossNames[static_cast<std::size_t>(loss.kind)];
        json["by_styler"] = loss.byStep ? stylerOf(*loss.byStep) : Json(nullptr);
        json["by_feature_type"] = typeOf(loss.byType);
        return json;
    }

    const Explainer& m_explainer;
};

}  // namespace

std::string explanationJson(const Explainer& explainer, const Explanation& explanation, const TopicName* only) {
    const JsonWriter writer(explainer);
    Json json = writer.head(explanation);
    for (const TopicName& topic : topicNames()) {
        if (only != nullptr && only != &topic) continue;
        json[memberName(topic.name)] = writer.topic(topic, historyOf(explanation, topic));
    }
    if (json.contains("icon")) json["icon"]["decided_by"] = writer.typesOf(explanation.iconTypes);
    if (json.contains("land_background") && explanation.landStyleId) {
        json["land_background"]["decided_by_id"] = *explanation.landStyleId;
    }
    return jsonText(json, 2);
}

}  // namespace customstyle_tool
