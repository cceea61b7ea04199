#include "studio/wasm/AnswersJson.h"

#include <algorithm>
#include <nlohmann/json.hpp>
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

    // Most questions find a record that an earlier one has found; then nothing is written.
    std::size_t indexOf(const BorrowedStyle& found, bool isIconHidden) {
        const Known record{found.style, found.featureType, isIconHidden};
        const auto known = std::ranges::find(m_known, record);
        if (known == m_known.end()) {
            m_text += (m_known.empty() ? "" : ",") + recordJson(m_config, found, isIconHidden).dump();
            m_known.push_back(record);
            return m_known.size() - 1;
        }
        return static_cast<std::size_t>(known - m_known.begin());
    }

    std::string text() const { return "[" + m_text + "]"; }

private:
    struct Known {
        const tagCustomStyle* style;
        int featureType;
        bool isIconHidden;

        bool operator==(const Known&) const = default;
    };

    const CustomConfig& m_config;
    std::vector<Known> m_known;
    std::string m_text;
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
