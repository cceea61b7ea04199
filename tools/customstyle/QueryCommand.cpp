#include "customstyle/QueryCommand.h"

#include <fmt/format.h>

#include "support/AnswerTable.h"
#include "support/Answers.h"
#include "support/RecordText.h"

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

}  // namespace

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

}  // namespace customstyle_tool
