// customstyle query: the style of some style ids at some levels.
#include <fmt/format.h>

#include <memory>

#include "tools/customstyle/AnswerJson.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/Selection.h"
#include "tools/study/AnswerTable.h"
#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

void printRow(const char* name, const std::string& value) {
    fmt::print("  {:<20}{}\n", name, value);
}

void printFields(const CustomConfig& config, unsigned int styleId, int level) {
    const Answer answer = ask(config, styleId, level);
    fmt::print("style id {} at level {}\n", styleId, level);
    printRow("feature type",
             answer.featureType == -1 ? "none: no custom style" : featureTypeText(config, answer.featureType));
    for (const FieldText& field : applyingFields(answer.style)) printRow(field.name, valueText(field));
    printRow("icon", answer.iconHidden ? "hidden" : "shown");
}

struct QueryArguments : StyleArguments, Selection {
    std::string format = "text";
};

void printText(const CustomConfig& config, const std::vector<unsigned int>& styleIds, const std::vector<int>& levels) {
    if (styleIds.size() == 1 && levels.size() == 1) return printFields(config, styleIds[0], levels[0]);
    print(answerHeading());
    for (const unsigned int styleId : styleIds) {
        for (const int level : levels) {
            print(answerRow(config, styleId, std::to_string(level), ask(config, styleId, level)));
        }
    }
}

void printJson(const CustomConfig& config, const std::vector<unsigned int>& styleIds, const std::vector<int>& levels) {
    AnswerList list("answers");
    for (const unsigned int styleId : styleIds) {
        for (const int level : levels) list.add(config, styleId, level, ask(config, styleId, level));
    }
    print(list.text());
}

int query(const QueryArguments& arguments) {
    if (!isSelected(arguments, "query")) return kMisuse;
    const auto style = loadOrComplain(arguments);
    if (style == nullptr) return kMisuse;
    const std::vector<unsigned int> styleIds = selectedStyleIds(arguments, *style);
    if (styleIds.empty()) return kMisuse;
    const auto printAnswers = arguments.format == "json" ? printJson : printText;
    printAnswers(style->config(), styleIds, selectedLevels(arguments));
    return kGood;
}

Command queryCommand() {
    const auto arguments = std::make_shared<QueryArguments>();
    Command command{
        .name = "query",
        .purpose = Purpose::Ask,
        .summary = "Print the style of style ids at levels",
        .description = {"Prints one style id at one level in full, several as a table."},
        .statuses = {{0, "The answers are printed"}, {2, "Wrong usage, or a file that cannot be read"}},
        .examples = {{"what the motorways look like close up",
                      "customstyle query night.json --type highway --level 15-17"},
                     {"two style ids of a mapping, for a program",
                      "customstyle query night.json --mapping map --id 1001,2201 --level 15 --format json"}},
        .run = [arguments] { return query(*arguments); }};
    addStyleArguments(command.options, *arguments);
    addSelection(command.options, *arguments);
    command.options.push_back(formatOption(arguments->format, {{"text", "for people"}, {"json", "for programs"}}));
    return command;
}

const Registration queryRegistration(queryCommand);

}  // namespace
}  // namespace customstyle_tool
