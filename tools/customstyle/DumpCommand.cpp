// customstyle dump: what the renderer receives for every style id at every level, levels with equal answers joined.
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "tools/customstyle/AnswerJson.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/study/AnswerTable.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/JsonParts.h"
#include "tools/vocabulary/Levels.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/StyleFields.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

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
void printBackground(const char* name, const CustomConfig& config, Ask askColor) {
    for (const auto& [color, levels] : backgrounds(config, askColor)) {
        fmt::print("{} background: {} at {}\n", name, colorText(color), levelsText(levels));
    }
}

void printTable(const CustomConfig& config) {
    printBackground("land", config, landColor);
    printBackground("grid", config, gridColor);
    print(answerHeading());
    for (const unsigned int styleId : mappedStyleIds(config)) {
        for (const Group& group : groupsOf(config, styleId)) {
            if (!isUntouched(group)) print(answerRow(config, styleId, levelsText(group.levels), group.answer));
        }
    }
}

void printJson(const CustomConfig& config) {
    AnswerList list("styles");
    list.addBackground("land_background", backgrounds(config, landColor));
    list.addBackground("grid_background", backgrounds(config, gridColor));
    for (const unsigned int styleId : mappedStyleIds(config)) {
        for (const Group& group : groupsOf(config, styleId)) list.add(config, styleId, group.levels, group.answer);
    }
    print(list.text());
}

// A field of a CSV file as RFC 4180 has it: quoted where it holds a comma, a quote or a line end.
std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

void printCsvRow(const std::vector<std::string>& fields) {
    std::vector<std::string> quoted;
    for (const std::string& field : fields) quoted.push_back(csvField(field));
    fmt::print("{}\r\n", fmt::join(quoted, ","));
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

void printCsvHeader() {
    std::vector<std::string> names = {"kind", "id", "levels", "feature_type", "feature_type_name"};
    for (const StyleField& field : csvFields()) names.push_back(memberName(field.name));
    names.emplace_back("icon_hidden");
    names.emplace_back("background");
    printCsvRow(names);
}

template <typename Ask>
void printCsvBackground(const char* kind, const CustomConfig& config, Ask askColor) {
    for (const auto& [color, levels] : backgrounds(config, askColor)) {
        std::vector<std::string> row = {kind, "", levelsText(levels), "", ""};
        row.resize(row.size() + csvFields().size() + 1);
        row.push_back(csvColor(color));
        printCsvRow(row);
    }
}

void printCsvGroup(const CustomConfig& config, unsigned int styleId, const Group& group) {
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
    printCsvRow(row);
}

void printCsv(const CustomConfig& config) {
    printCsvHeader();
    printCsvBackground("land background", config, landColor);
    printCsvBackground("grid background", config, gridColor);
    for (const unsigned int styleId : mappedStyleIds(config)) {
        for (const Group& group : groupsOf(config, styleId)) printCsvGroup(config, styleId, group);
    }
}

struct DumpArguments : StyleArguments {
    std::string format = "text";
};

int dump(const DumpArguments& arguments) {
    const auto style = loadOrComplain(arguments);
    if (style == nullptr) return kMisuse;
    const auto printAll = arguments.format == "json" ? printJson : arguments.format == "csv" ? printCsv : printTable;
    printAll(style->config());
    return kGood;
}

Command dumpCommand() {
    const auto arguments = std::make_shared<DumpArguments>();
    Command command{
        .name = "dump",
        .purpose = Purpose::Ask,
        .summary = "Print the styles of all style ids at all levels",
        .description = {"Joins levels with equal answers. The table leaves out what is not customised; CSV and "
                        "JSON have every answer."},
        .statuses = {{0, "The styles are printed"}, {2, "Wrong usage, or a file that cannot be read"}},
        .examples = {{"everything that a style customises", "customstyle dump night.json --mapping map"},
                     {"for a spreadsheet", "customstyle dump night.json --mapping map --format csv > night.csv"}},
        .run = [arguments] { return dump(*arguments); }};
    addStyleArguments(command.options, *arguments);
    command.options.push_back(
        formatOption(arguments->format, {{"text", "a table"}, {"csv", "for spreadsheets"}, {"json", "for programs"}}));
    return command;
}

const Registration dumpRegistration(dumpCommand);

}  // namespace
}  // namespace customstyle_tool
