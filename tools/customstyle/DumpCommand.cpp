#include "customstyle/DumpCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/AnswerTable.h"
#include "support/Answers.h"
#include "support/Levels.h"
#include "support/RecordText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Json = nlohmann::ordered_json;

// An answer and the levels that share it.
struct Group {
    LevelSet levels;
    Answer answer;
    std::vector<FieldText> fields;
};

bool isSame(const Answer& left, const std::vector<FieldText>& leftFields, const Group& right) {
    const auto sameField = [](const FieldText& a, const FieldText& b) {
        return a.name == b.name && a.value == b.value;
    };
    return left.featureType == right.answer.featureType && left.iconHidden == right.answer.iconHidden &&
           std::ranges::equal(leftFields, right.fields, sameField);
}

std::vector<Group> groupsOf(const CustomConfig& config, unsigned int styleId) {
    std::vector<Group> groups;
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const Answer answer = ask(config, styleId, levelOfClass(levelClass));
        const std::vector<FieldText> fields = applyingFields(answer.style);
        const auto same = [&](const Group& group) { return isSame(answer, fields, group); };
        auto group = std::ranges::find_if(groups, same);
        if (group == groups.end()) group = groups.insert(groups.end(), Group{{}, answer, fields});
        group->levels.set(levelClass);
    }
    return groups;
}

bool isUntouched(const Group& group) {
    return group.answer.featureType == -1 && !group.answer.iconHidden;
}

std::string memberName(const char* fieldName) {
    std::string name = fieldName;
    std::ranges::replace(name, ' ', '_');
    return name;
}

Json jsonOf(std::uint64_t color) {
    return {{"rgb", rgbText(color)}, {"alpha", alphaOf(color)}};
}

Json jsonOf(const LevelSet& levels) {
    Json list = Json::array();
    for (std::size_t levelClass = 0; levelClass < kOtherLevels; ++levelClass) {
        if (levels[levelClass]) list.push_back(levelOfClass(levelClass));
    }
    if (levels[kOtherLevels]) list.push_back("other");
    return list;
}

Json jsonOf(const CustomConfig& config, unsigned int styleId, const Group& group) {
    Json style = Json::object();
    for (const FieldText& field : group.fields) {
        style[memberName(field.name)] = field.isColor ? jsonOf(field.value) : Json(field.value);
    }
    const int featureType = group.answer.featureType;
    return {{"id", styleId},
            {"levels", jsonOf(group.levels)},
            {"feature_type", featureType == -1 ? Json(nullptr) : Json(featureType)},
            {"feature_type_name", featureType == -1 ? Json(nullptr) : Json(config.GetFeatureTypeName(featureType))},
            {"style", style},
            {"icon_hidden", group.answer.iconHidden}};
}

// The levels of each background colour, in the order in which the colours first appear.
template <typename Ask>
std::vector<std::pair<std::uint64_t, LevelSet>> backgrounds(const CustomConfig& config, Ask askColor) {
    std::vector<std::pair<std::uint64_t, LevelSet>> colors;
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const std::optional<std::uint64_t> color = askColor(config, levelOfClass(levelClass));
        if (!color) continue;
        auto known = std::ranges::find(colors, *color, &std::pair<std::uint64_t, LevelSet>::first);
        if (known == colors.end()) known = colors.insert(known, {*color, {}});
        known->second.set(levelClass);
    }
    return colors;
}

template <typename Ask>
Json backgroundJson(const CustomConfig& config, Ask askColor) {
    Json list = Json::array();
    for (const auto& [color, levels] : backgrounds(config, askColor)) {
        list.push_back({{"levels", jsonOf(levels)}, {"color", jsonOf(color)}});
    }
    return list;
}

template <typename Ask>
void printBackground(std::FILE* out, const char* name, const CustomConfig& config, Ask askColor) {
    for (const auto& [color, levels] : backgrounds(config, askColor)) {
        fmt::print(out, "{} background: {} at {}\n", name, colorText(color), levelsText(levels));
    }
}

}  // namespace

void printTable(std::FILE* out, const CustomConfig& config) {
    printBackground(out, "land", config, landColor);
    printBackground(out, "grid", config, gridColor);
    printAnswerHeading(out);
    for (const unsigned int styleId : mappedStyleIds(config)) {
        for (const Group& group : groupsOf(config, styleId)) {
            if (!isUntouched(group)) printAnswerRow(out, config, styleId, levelsText(group.levels), group.answer);
        }
    }
}

void printJson(std::FILE* out, const CustomConfig& config) {
    fmt::print(out, "{{\n  \"land_background\": {},\n  \"grid_background\": {},\n  \"styles\": [",
               backgroundJson(config, landColor).dump(), backgroundJson(config, gridColor).dump());
    const char* separator = "\n    ";
    for (const unsigned int styleId : mappedStyleIds(config)) {
        for (const Group& group : groupsOf(config, styleId)) {
            fmt::print(out, "{}{}", separator, jsonOf(config, styleId, group).dump());
            separator = ",\n    ";
        }
    }
    fmt::print(out, "\n  ]\n}}\n");
}

}  // namespace customstyle_tool
