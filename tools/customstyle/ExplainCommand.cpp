// customstyle explain: why the renderer receives what it receives, and what was lost on the way.
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <set>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/ProgressLine.h"
#include "tools/customstyle/Selection.h"
#include "tools/explain/ExplanationText.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {
namespace {

struct ExplainArguments : StyleArguments, Selection {
    std::string field;
    std::string format = "text";
    std::string color = "auto";
};

// Levels with one explanation.
struct LevelGroup {
    std::vector<int> levels;
    std::string text;

    bool operator==(const LevelGroup&) const = default;
};

// Style ids with the same explanations at the same levels.
struct IdGroup {
    std::vector<unsigned int> ids;
    std::vector<LevelGroup> levels;
};

std::string levelsShown(const std::vector<int>& levels) {
    if (levels.size() == 1) return fmt::format("level {}", levels.front());
    LevelSet set;
    for (const int level : levels) set.set(classOfLevel(level));
    const std::string text = levelsText(set);
    return text.starts_with("all") ? text : "levels " + text;
}

std::string idsShown(const std::vector<unsigned int>& ids) {
    return fmt::format("style id{} {}", ids.size() == 1 ? "" : "s", fmt::join(ids, ", "));
}

class Explaining {
public:
    Explaining(const StyleStudy& style, const ExplainArguments& arguments, const std::vector<unsigned int>& styleIds)
        : m_explainer(style),
          m_styleIds(styleIds),
          m_levels(selectedLevels(arguments)),
          m_topic(arguments.field.empty() ? nullptr : findTopic(arguments.field)),
          m_swatches(isColored(arguments.color) ? Swatches::Shown : Swatches::None) {}

    void printText() {
        const char* separator = "";
        for (const IdGroup& ids : groups()) {
            for (const LevelGroup& group : ids.levels) {
                fmt::print("{}{} at {}: {}", separator, idsShown(ids.ids), levelsShown(group.levels), group.text);
                separator = "\n";
            }
        }
    }

    void printJson() {
        const char* separator = "";
        fmt::print("{{\n\"version\": 1,\n\"explanations\": [\n");
        for (const unsigned int styleId : m_styleIds) {
            for (const int level : m_levels) {
                fmt::print("{}{}", separator,
                           explanationJson(m_explainer, m_explainer.explain(styleId, level), m_topic));
                separator = ",\n";
            }
        }
        fmt::print("\n]\n}}\n");
    }

private:
    // Without the style id and the level in its head.
    std::string textOf(unsigned int styleId, int level) {
        const std::string text = explanationText(m_explainer, m_explainer.explain(styleId, level), m_topic, m_swatches);
        return text.substr(text.find(": ") + 2);
    }

    std::vector<LevelGroup> levelGroupsOf(unsigned int styleId) {
        std::vector<LevelGroup> groups;
        for (const int level : m_levels) {
            std::string text = textOf(styleId, level);
            const auto same = std::ranges::find(groups, text, &LevelGroup::text);
            if (same == groups.end())
                groups.push_back({{level}, std::move(text)});
            else
                same->levels.push_back(level);
        }
        return groups;
    }

    std::vector<IdGroup> groups() {
        std::vector<IdGroup> groups;
        for (const unsigned int styleId : m_styleIds) {
            std::vector<LevelGroup> levels = levelGroupsOf(styleId);
            const auto same = std::ranges::find(groups, levels, &IdGroup::levels);
            if (same == groups.end())
                groups.push_back({{styleId}, std::move(levels)});
            else
                same->ids.push_back(styleId);
        }
        return groups;
    }

    Explainer m_explainer;
    const std::vector<unsigned int>& m_styleIds;
    std::vector<int> m_levels;
    const TopicName* m_topic;
    Swatches m_swatches;
};

void traceWithProgress(const StyleStudy& style) {
    const ProgressLine line(style.source().file().path());
    style.steps();
}

int explain(const ExplainArguments& arguments) {
    if (!isSelected(arguments, "explain")) return kMisuse;
    const auto style = loadOrComplain(arguments);
    if (style == nullptr) return kMisuse;
    const std::vector<unsigned int> styleIds = selectedStyleIds(arguments, *style);
    if (styleIds.empty()) return kMisuse;
    traceWithProgress(*style);
    Explaining explaining(*style, arguments, styleIds);
    if (arguments.format == "json")
        explaining.printJson();
    else
        explaining.printText();
    return kGood;
}

Option fieldOption(std::string& field) {
    std::vector<std::string> names;
    for (const TopicName& topic : topicNames()) names.push_back(topic.name);
    Option option =
        choiceOption("--field", "FIELD", fmt::format("Explain only this: {}", eitherOf(names)), &field, names);
    option.problem = [names](const std::string& word) {
        if (findTopic(word) != nullptr) return std::string();
        const auto meant = nearestTopic(word);
        return fmt::format("unknown field {}{}", inQuotes(word),
                           meant ? didYouMean(meant) : fmt::format("; write {}", eitherOf(names)));
    };
    for (std::string& choice : option.choices) std::ranges::replace(choice, ' ', '-');
    return option;
}

Command explainCommand() {
    const auto arguments = std::make_shared<ExplainArguments>();
    Command command{
        .name = "explain",
        .purpose = Purpose::Ask,
        .summary = "Explain which rules made each value of style ids at levels, and what was lost",
        .description = {"Values are lost if a later rule overwrites them, if a rule for one level starts over "
                        "from the style for all levels, or if another feature type answers for the style id. Style "
                        "ids and levels with the same explanation are joined."},
        .statuses = {{0, "The explanation is printed"}, {2, "Wrong usage, or a file that cannot be read"}},
        .examples = {{"why motorways look as they do at level 12",
                      "customstyle explain night.json --type highway --level 12"},
                     {"where the fill of a style id comes from, level by level",
                      "customstyle explain night.json --mapping map --id 1001 --level all --field fill"}},
        .run = [arguments] { return explain(*arguments); }};
    addStyleArguments(command.options, *arguments);
    addSelection(command.options, *arguments);
    command.options.push_back(fieldOption(arguments->field));
    command.options.push_back(formatOption(arguments->format, {{"text", "for people"}, {"json", "for programs"}}));
    command.options.push_back(colorOption(arguments->color));
    return command;
}

const Registration explainRegistration(explainCommand);

}  // namespace
}  // namespace customstyle_tool
