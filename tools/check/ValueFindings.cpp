// Values that the component reads differently from how they are written.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

#include "tools/check/ColorFault.h"
#include "tools/check/DocumentFindings.h"
#include "tools/check/StyleFindings.h"
#include "tools/json/JsonScalars.h"
#include "tools/study/SingleRules.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kDigitsWithoutAlpha = 6;

// The colour that the component makes of a text.
std::uint64_t readColor(const std::string& text, int featureType) {
    return static_cast<std::uint32_t>(catalogue().CalculateColorValue(text.c_str(), featureType));
}

void checkWholeColor(StyleFindings& found, const RuleView& rule, JsonValue value) {
    const std::string text = value.text();
    const std::uint64_t read = readColor(text, rule.typeId);
    if (read != readColor(text, -1)) {
        found
            .add(Code::ColorAlphaIgnored, rule, value,
                 fmt::format("the alpha is ignored; \"{}\" is drawn in {}", rule.typeName, colorText(read)))
            .remedy = fmt::format("write \"{}\", or choose a paler colour", text.substr(0, 1 + kDigitsWithoutAlpha));
    } else if (alphaOf(read) == 0 && text.find_first_not_of("#0") != std::string::npos) {
        Finding& finding = found.add(Code::ColorInvisible, rule, value,
                                     fmt::format("{} is drawn in {}", inQuotes(text), colorText(read)));
        finding.remedy = fmt::format(
            "alpha comes last: \"#{}{}\" is the same with alpha last; to hide something, use "
            "\"visibility\": \"off\"",
            text.substr(3), text.substr(1, 2));
    }
}

void checkColor(StyleFindings& found, const RuleView& rule, JsonValue value) {
    const std::string text = value.text();
    const std::optional<ColorFault> fault = colorFaultOf(text);
    if (!fault) return checkWholeColor(found, rule, value);
    Finding& finding = found.add(
        fault->code, rule, value,
        fmt::format("{} {}; it is read as {}", inQuotes(text), fault->why, colorText(readColor(text, rule.typeId))));
    if (fault->replacement.empty())
        finding.remedy = fault->remedy;
    else
        propose(finding, fault->replacement);
}

// The level that the component makes of a rule's text.
int readLevel(const RuleView& rule) {
    int level = 0;
    catalogue().ParseCustomStyleGivenLevel(componentTree(rule.stylers->source()).get(), &level);
    return level;
}

void checkLevel(StyleFindings& found, const RuleView& rule, JsonValue value) {
    const std::string text = value.text();
    const int read = readLevel(rule);
    char* end = nullptr;
    const long written = std::strtol(text.c_str(), &end, 10);  // accepts what the component accepts
    if (text.empty() || end == text.c_str() || *end != '\0') {
        Finding& finding =
            found.add(Code::LevelMalformed, rule, value,
                      fmt::format("{} is not a whole number; the rule applies at level {} only", inQuotes(text), read));
        if (text.empty() || text == "all") finding.remedy = "remove the level, and the rule applies at all levels";
        return;
    }
    if (written == read) return;
    found
        .add(Code::LevelClamped, rule, value,
             fmt::format("level {} is out of range; the rule applies at level {}", text.substr(0, 12), read))
        .replacement = fmt::format("\"{}\"", read);
}

// The size that the step wrote.
std::optional<std::uint64_t> writtenSize(const ReplayStep& step) {
    for (const RecordTouch& touch : step.touches) {
        for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
            const bool isSize = styleFields()[field].kind == FieldKind::Size;
            if (isSize && touch.origins[field] == Origin::Written) return valueOf(styleFields()[field], touch.after);
        }
    }
    return {};
}

void checkSize(StyleFindings& found, const ReplayStep& step) {
    const std::optional<std::uint64_t> written = writtenSize(step);
    if (!written) return;
    const JsonValue value = *found.ruleOf(step).member(step.styler);
    const std::string text = value.text();
    const std::size_t firstDigit = std::min(text.find_first_not_of('0'), text.size() - 1);
    if (text.substr(firstDigit) == fmt::format("{}", *written)) return;
    Finding& finding = found.add(Code::SizeClamped, found.ruleOf(step), value,
                                 fmt::format("{} is out of range; {} is drawn", inQuotes(text), *written));
    finding.remedy = fmt::format("write \"{}\" or less", *written);
    finding.replacement = fmt::format("\"{}\"", *written);
}

}  // namespace

std::vector<Finding> findValues(const StyleStudy& study) {
    StyleFindings found(study);
    for (const RuleView& rule : study.rules()) {
        if (const auto color = rule.textMember("color")) checkColor(found, rule, *color);
        if (const auto level = rule.textMember("level")) checkLevel(found, rule, *level);
    }
    for (const ReplayStep& step : found.steps()) {
        if (isOfKind(step.styler, StylerKind::Size)) checkSize(found, step);
    }
    return found.take();
}

}  // namespace customstyle_tool
