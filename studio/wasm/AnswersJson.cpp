#include "studio/wasm/AnswersJson.h"

#include <map>
#include <nlohmann/json.hpp>
#include <tuple>
#include <utility>
#include <vector>

#include "customstyle/StyleSnapshot.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/JsonParts.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_studio {
namespace {

using Json = nlohmann::ordered_json;
using _orvik_framework::BorrowedStyle;
using _orvik_framework::CustomConfig;
using _orvik_framework::StyleSnapshot;
using _orvik_framework::tagCustomStyle;

Json recordJson(const CustomConfig& config, const BorrowedStyle& found, bool isIconHidden) {
    const bool hasStyle = found.style != nullptr;
    return {{"type", hasStyle ? Json(config.GetFeatureTypeName(found.featureType)) : Json(nullptr)},
            {"icon_hidden", isIconHidden},
            {"style", customstyle_tool::styleJson(hasStyle ? *found.style : tagCustomStyle{})}};
}

// Numbers the records in the order in which they are first seen.
class RecordList {
public:
    explicit RecordList(const CustomConfig& config) : m_config(config) {}

    // Most questions find a record that another one has found: then nothing is written.
    std::size_t indexOf(const BorrowedStyle& found, bool isIconHidden) {
        const auto [known, isNew] = m_known.try_emplace({found.style, found.featureType, isIconHidden}, 0);
        if (isNew) known->second = indexOf(recordJson(m_config, found, isIconHidden).dump());
        return known->second;
    }

    std::string text() const {
        std::string list;
        for (const std::string* each : m_texts) list += (list.empty() ? "" : ",") + *each;
        return "[" + list + "]";
    }

private:
    std::size_t indexOf(std::string text) {
        const auto [known, isNew] = m_indexes.try_emplace(std::move(text), m_texts.size());
        if (isNew) m_texts.push_back(&known->first);
        return known->second;
    }

    const CustomConfig& m_config;
    std::map<std::tuple<const tagCustomStyle*, int, bool>, std::size_t> m_known;
    std::map<std::string, std::size_t> m_indexes;
    std::vector<const std::string*> m_texts;
};

// The records of a style id as a list of numbers, one for each level class.
std::string classesText(const StyleSnapshot& snapshot, unsigned int styleId, RecordList& records) {
    std::string list;
    for (std::size_t levelClass = 0; levelClass < customstyle_tool::kLevelClassCount; ++levelClass) {
        const int level = customstyle_tool::levelOfClass(levelClass);
        const bool isIconHidden = snapshot.IsCustomizedIconVisible(styleId, level) != 0;
        const std::size_t index = records.indexOf(snapshot.FindStyle(styleId, level), isIconHidden);
        list += (list.empty() ? "" : ",") + std::to_string(index);
    }
    return "[" + list + "]";
}

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
    const StyleSnapshot snapshot(config);
    RecordList records(config);
    std::string styles;
    for (const unsigned int styleId : customstyle_tool::mappedStyleIds(config)) {
        styles +=
            (styles.empty() ? "\"" : ",\"") + std::to_string(styleId) + "\":" + classesText(snapshot, styleId, records);
    }
    return R"({"land":)" + backgroundText(config, customstyle_tool::landColor) + R"(,"grid":)" +
           backgroundText(config, customstyle_tool::gridColor) + R"(,"records":)" + records.text() + R"(,"styles":{)" +
           styles + "}}";
}

}  // namespace customstyle_studio
