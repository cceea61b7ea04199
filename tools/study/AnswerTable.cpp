#include "tools/study/AnswerTable.h"

#include <fmt/format.h>

#include <vector>

#include "tools/vocabulary/RecordText.h"

namespace customstyle_tool {
namespace {

constexpr char kRow[] = "{:>10}  {:<20}  {:<24}  {}\n";

std::string shortValueText(const FieldText& field) {
    return field.isColor ? shortColorText(field.value) : fmt::format("{}", field.value);
}

std::string styleText(const Answer& answer) {
    std::vector<std::string> parts;
    for (const FieldText& field : applyingFields(answer.style)) {
        parts.push_back(fmt::format("{} {}", field.name, shortValueText(field)));
    }
    if (answer.iconHidden) parts.emplace_back("icon hidden");
    return parts.empty() ? "-" : fmt::format("{}", fmt::join(parts, ", "));
}

}  // namespace

std::string featureTypeText(const _orvik_framework::CustomConfig& config, int featureType) {
    return featureType == -1 ? "-" : fmt::format("{} {}", featureType, config.GetFeatureTypeName(featureType));
}

std::string answerHeading() {
    return fmt::format(kRow, "style id", "levels", "feature type", "style");
}

std::string answerRow(const _orvik_framework::CustomConfig& config, unsigned int styleId, const std::string& levels,
                      const Answer& answer) {
    return fmt::format(kRow, styleId, levels, featureTypeText(config, answer.featureType), styleText(answer));
}

}  // namespace customstyle_tool
