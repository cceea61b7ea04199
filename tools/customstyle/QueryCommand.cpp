// customstyle query: what the renderer receives for style ids at levels.
#include <fmt/format.h>

#include <memory>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Command.h"
#include "tools/customstyle/MapOptions.h"
#include "tools/support/AnswerTable.h"
#include "tools/support/Answers.h"
#include "tools/support/RecordText.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;

void printRow(std::FILE* out, const char* name, const std::string& value) {
    fmt::print(out, "  {:<20}{}\n", name, value);
}

void printFields(std::FILE* out, const CustomConfig& config, unsigned int styleId, int level) {
    const Answer answer = ask(config, styleId, level);
    fmt::print(out, "style id {} at level {}\n", styleId, level);
    printRow(out, "feature type",
             answer.featureType == -1 ? "none: no custom style" : featureTypeText(config, answer.featureType));
    for (const FieldText& field : applyingFields(answer.style)) printRow(out, field.name, valueText(field));
    printRow(out, "icon", answer.iconHidden ? "hidden" : "shown");
}

void printAnswers(std::FILE* out, const CustomConfig& config, const std::vector<unsigned int>& styleIds,
                  const std::vector<int>& levels) {
    if (styleIds.size() == 1 && levels.size() == 1) return printFields(out, config, styleIds[0], levels[0]);
    printAnswerHeading(out);
    for (const unsigned int styleId : styleIds) {
        for (const int level : levels) {
            printAnswerRow(out, config, styleId, std::to_string(level), ask(config, styleId, level));
        }
    }
}

struct QueryOptions : MapOptions {
    std::vector<unsigned int> styleIds;
    std::vector<int> levels;
};

}  // namespace

Command queryCommand(CLI::App& program) {
    const auto options = std::make_shared<QueryOptions>();
    CLI::App* command =
        program.add_subcommand("query", "Print the style of a style id at a level; of several, as a table");
    addMapOptions(*command, *options);
    command->add_option("--id", options->styleIds, "Style ids of the renderer, from 0 to 4294967295")
        ->type_name("N")
        ->check(isStyleId())
        ->required();
    command->add_option("--level", options->levels, "Zoom levels; rules can name 4 to 21")
        ->type_name("L")
        ->check(isLevel())
        ->required();
    command->footer("Exit status: 0 good, 1 a file that cannot be loaded, 2 wrong usage.");
    return {command, [options] {
                return withLoadedMap(*options, [&](const CustomConfig& config) {
                    printAnswers(stdout, config, options->styleIds, options->levels);
                });
            }};
}

}  // namespace customstyle_tool
