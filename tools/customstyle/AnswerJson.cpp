#include "tools/customstyle/AnswerJson.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using Json = nlohmann::ordered_json;

constexpr int kVersion = 1;

std::string lineOf(Json head, const CustomConfig& config, const Answer& answer) {
    const int type = answer.featureType;
    head["feature_type"] = type == -1 ? Json(nullptr) : Json(config.GetFeatureTypeName(type));
    head["style"] = styleJson(answer.style);
    head["icon"] = answer.iconHidden ? "hidden" : "shown";
    return head.dump();
}

}  // namespace

AnswerList::AnswerList(std::string name) : m_name(std::move(name)) {}

void AnswerList::add(const CustomConfig& config, unsigned int styleId, int level, const Answer& answer) {
    m_lines.push_back(lineOf({{"id", styleId}, {"level", level}}, config, answer));
}

void AnswerList::add(const CustomConfig& config, unsigned int styleId, const LevelSet& levels, const Answer& answer) {
    m_lines.push_back(lineOf({{"id", styleId}, {"levels", levelsJson(levels)}}, config, answer));
}

void AnswerList::addBackground(const std::string& name, const std::vector<std::pair<std::uint64_t, LevelSet>>& colors) {
    Json list = Json::array();
    for (const auto& [color, levels] : colors) {
        list.push_back({{"levels", levelsJson(levels)}, {"color", colorJson(color)}});
    }
    m_members += fmt::format("  \"{}\": {},\n", name, list.dump());
}

std::string AnswerList::text() const {
    const std::string lines = m_lines.empty() ? "" : fmt::format("\n    {}\n  ", fmt::join(m_lines, ",\n    "));
    return fmt::format("{{\n  \"version\": {},\n{}  \"{}\": [{}]\n}}\n", kVersion, m_members, m_name, lines);
}

}  // namespace customstyle_tool
