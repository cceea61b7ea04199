#include "studio/wasm/AnswersJson.h"

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "tools/study/Answers.h"
#include "tools/vocabulary/JsonParts.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_studio {
namespace {

using customstyle_tool::Answer;
using Json = nlohmann::ordered_json;
using _orvik_framework::CustomConfig;

Json recordJson(const CustomConfig& config, const Answer& answer) {
    const int type = answer.featureType;
    return {{"type", type == -1 ? Json(nullptr) : Json(config.GetFeatureTypeName(type))},
            {"icon_hidden", answer.iconHidden},
            {"style", customstyle_tool::styleJson(answer.style)}};
}

// Numbers the records in the order in which they are first seen.
class RecordList {
public:
    explicit RecordList(const CustomConfig& config) : m_config(config) {}

    // Neighbouring levels mostly have the same answer, and comparing is cheaper than writing.
    std::size_t indexOf(const Answer& answer) {
        const bool isRepeated = m_last && m_last->iconHidden == answer.iconHidden && isSameStyle(*m_last, answer);
        if (!isRepeated) {
            m_lastIndex = newIndexOf(answer);
            m_last = answer;
        }
        return m_lastIndex;
    }

    std::string text() const {
        std::string list;
        for (const std::string* each : m_texts) list += (list.empty() ? "" : ",") + *each;
        return "[" + list + "]";
    }

private:
    std::size_t newIndexOf(const Answer& answer) {
        std::string text = recordJson(m_config, answer).dump();
        const auto [known, isNew] = m_indexes.try_emplace(std::move(text), m_texts.size());
        if (isNew) m_texts.push_back(&known->first);
        return known->second;
    }

    const CustomConfig& m_config;
    std::map<std::string, std::size_t> m_indexes;
    std::vector<const std::string*> m_texts;
    std::optional<Answer> m_last;
    std::size_t m_lastIndex = 0;
};

template <typename Ask>
std::string backgroundText(const CustomConfig& config, Ask askColor) {
    Json list = Json::array();
    for (std::size_t levelClass = 0; levelClass < customstyle_tool::kLevelClassCount; ++levelClass) {
        const auto color = askColor(config, customstyle_tool::levelOfClass(levelClass));
        list.push_back(color ? customstyle_tool::colorJson(*color) : Json(nullptr));
    }
    return list.dump();
}

}  // namespace

std::string answersJson(const CustomConfig& config) {
    RecordList records(config);
    Json styles = Json::object();
    for (const unsigned int styleId : customstyle_tool::mappedStyleIds(config)) {
        Json& classes = styles[std::to_string(styleId)];
        for (std::size_t levelClass = 0; levelClass < customstyle_tool::kLevelClassCount; ++levelClass) {
            classes.push_back(
                records.indexOf(customstyle_tool::ask(config, styleId, customstyle_tool::levelOfClass(levelClass))));
        }
    }
    return R"({"land":)" + backgroundText(config, customstyle_tool::landColor) + R"(,"grid":)" +
           backgroundText(config, customstyle_tool::gridColor) + R"(,"records":)" + records.text() + R"(,"styles":)" +
           styles.dump() + "}";
}

}  // namespace customstyle_studio
