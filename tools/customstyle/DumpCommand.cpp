// customstyle dump: what the renderer receives for every style id at every level, levels with equal answers joined.
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Command.h"
#include "tools/customstyle/MapOptions.h"
#include "tools/support/AnswerTable.h"
#include "tools/support/Answers.h"
#include "tools/support/JsonParts.h"
#include "tools/support/Levels.h"
#include "tools/support/RecordText.h"
#include "tools/support/StyleFields.h"

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

Json jsonOf(const CustomConfig& config, unsigned int styleId, const Group& group) {
    Json style = Json::object();
    for (const FieldText& field : group.fields) {
        style[memberName(field.name)] = field.isColor ? colorJson(field.value) : Json(field.value);
    }
    const int featureType = group.answer.featureType;
    return {{"id", styleId},
            {"levels", levelsJson(group.levels)},
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
        list.push_back({{"levels", levelsJson(levels)}, {"color", colorJson(color)}});
    }
    return list;
}

template <typename Ask>
void printBackground(std::FILE* out, const char* name, const CustomConfig& config, Ask askColor) {
    for (const auto& [color, levels] : backgrounds(config, askColor)) {
        fmt::print(out, "{} background: {} at {}\n", name, colorText(color), levelsText(levels));
    }
}

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

// A field of a CSV file as RFC 4180 has it: quoted where it holds a comma, a quote or a line end.
std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

void printCsvRow(std::FILE* out, const std::vector<std::string>& fields) {
    std::vector<std::string> quoted;
    for (const std::string& field : fields) quoted.push_back(csvField(field));
    fmt::print(out, "{}\r\n", fmt::join(quoted, ","));
}

std::string csvColor(std::uint64_t color) {
    return fmt::format("{}{:02x}", rgbText(color), alphaOf(color));
}

// The fields that have a column of their own, in the order of the columns.
std::vector<StyleField> csvFields() {
    std::vector<StyleField> fields;
    std::ranges::copy_if(styleFields(), std::back_inserter(fields), [](const StyleField& field) {
        return field.kind == FieldKind::Color || field.kind == FieldKind::Size;
    });
    return fields;
}

void printCsvHeader(std::FILE* out) {
    std::vector<std::string> names = {"kind", "id", "levels", "feature_type", "feature_type_name"};
    for (const StyleField& field : csvFields()) names.push_back(memberName(field.name));
    names.emplace_back("icon_hidden");
    names.emplace_back("background");
    printCsvRow(out, names);
}

template <typename Ask>
void printCsvBackground(std::FILE* out, const char* kind, const CustomConfig& config, Ask askColor) {
    for (const auto& [color, levels] : backgrounds(config, askColor)) {
        std::vector<std::string> row = {kind, "", levelsText(levels), "", ""};
        row.resize(row.size() + csvFields().size() + 1);
        row.push_back(csvColor(color));
        printCsvRow(out, row);
    }
}

void printCsvGroup(std::FILE* out, const CustomConfig& config, unsigned int styleId, const Group& group) {
    const int featureType = group.answer.featureType;
    const bool isCustomised = featureType != -1;
    std::vector<std::string> row = {"style", std::to_string(styleId), levelsText(group.levels),
                                    isCustomised ? std::to_string(featureType) : "",
                                    isCustomised ? config.GetFeatureTypeName(featureType) : ""};
    for (const StyleField& field : csvFields()) {
        const std::uint64_t value = valueOf(field, group.answer.style);
        const std::string text = field.kind == FieldKind::Color ? csvColor(value) : std::to_string(value);
        row.push_back(appliesIn(field, group.answer.style) ? text : "");
    }
    row.emplace_back(group.answer.iconHidden ? "1" : "0");
    row.emplace_back("");
    printCsvRow(out, row);
}

void printCsv(std::FILE* out, const CustomConfig& config) {
    printCsvHeader(out);
    printCsvBackground(out, "land background", config, landColor);
    printCsvBackground(out, "grid background", config, gridColor);
    for (const unsigned int styleId : mappedStyleIds(config)) {
        for (const Group& group : groupsOf(config, styleId)) printCsvGroup(out, config, styleId, group);
    }
}

void printAs(const std::string& format, const CustomConfig& config) {
    if (format == "json") return printJson(stdout, config);
    if (format == "csv") return printCsv(stdout, config);
    printTable(stdout, config);
}

struct DumpOptions : MapOptions {
    std::string format = "text";
};

}  // namespace

Command dumpCommand(CLI::App& program) {
    const auto options = std::make_shared<DumpOptions>();
    CLI::App* command = program.add_subcommand("dump", "Print the styles of all style ids at all levels");
    addMapOptions(*command, *options);
    addFormat(*command, options->format, {"text", "csv", "json"},
              "text: a table of what is customised; csv, json: every answer");
    command->footer("Exit status: 0 good, 1 a file that cannot be loaded, 2 wrong usage.");
    return {command, [options] {
                return withLoadedMap(*options, [&](const CustomConfig& config) { printAs(options->format, config); });
            }};
}

}  // namespace customstyle_tool
