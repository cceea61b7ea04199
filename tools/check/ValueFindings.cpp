// Values that the component reads otherwise than they are written.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>

#include "tools/check/DocumentFindings.h"
#include "tools/check/StyleFindings.h"
#include "tools/json/JsonScalars.h"
#include "tools/study/SingleRules.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RecordText.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kShortDigits = 3;
constexpr std::size_t kColorDigits = 6;
constexpr std::size_t kColorDigitsWithAlpha = 8;

struct NamedColor {
    std::string_view name;
    std::string_view text;
};

constexpr NamedColor kNamedColors[] = {
    {"black", "#000000"}, {"white", "#ffffff"}, {"gray", "#808080"},    {"grey", "#808080"},    {"silver", "#c0c0c0"},
    {"red", "#ff0000"},   {"green", "#008000"}, {"blue", "#0000ff"},    {"lime", "#00ff00"},    {"yellow", "#ffff00"},
    {"aqua", "#00ffff"},  {"cyan", "#00ffff"},  {"fuchsia", "#ff00ff"}, {"magenta", "#ff00ff"}, {"maroon", "#800000"},
    {"navy", "#000080"},  {"olive", "#808000"}, {"teal", "#008080"},    {"purple", "#800080"},  {"orange", "#ffa500"},
};

bool isHexadecimal(std::string_view text) {
    return std::ranges::all_of(text, isHexDigit);
}

bool isWholeColor(std::size_t digits) {
    return digits == kColorDigits || digits == kColorDigitsWithAlpha;
}

bool isShortColor(std::size_t digits) {
    return digits == kShortDigits || digits == kShortDigits + 1;
}

std::string doubledDigits(std::string_view digits) {
    std::string text = "#";
    for (const char digit : digits) text.append(2, digit);
    return text;
}

// Why a text is no colour, and what to write.
struct ColorFault {
    Code code;
    std::string why;
    std::string remedy;
    std::string replacement{};
};

std::optional<ColorFault> faultWithoutSign(std::string_view text) {
    if (isHexadecimal(text) && (isWholeColor(text.size()) || isShortColor(text.size()))) {
        const std::string whole = isWholeColor(text.size()) ? fmt::format("#{}", text) : doubledDigits(text);
        return ColorFault{Code::ColorWithoutSign, "has no #", "", fmt::format("\"{}\"", whole)};
    }
    const std::string name = inLowerCase(std::string(text));
    const auto* const known = std::ranges::find(kNamedColors, name, &NamedColor::name);
    const bool isName = !text.empty() && std::ranges::all_of(text, isLetter);
    if (!isName) return ColorFault{Code::ColorWithoutSign, "does not start with #", infoOf(Code::ColorLength).remedy};
    ColorFault fault{Code::ColorName, "is a word, and colours have no names", infoOf(Code::ColorName).remedy};
    if (known != std::end(kNamedColors)) fault.replacement = fmt::format("\"{}\"", known->text);
    return fault;
}

// What is left of a text without the blanks around it.
std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

std::optional<ColorFault> faultOf(std::string_view text) {
    const std::string_view bare = trimmed(text);
    if (bare.size() < text.size() && bare.starts_with('#') && isHexadecimal(bare.substr(1)) &&
        isWholeColor(bare.size() - 1)) {
        return ColorFault{Code::ColorBadDigit, "has blanks around the colour", "", fmt::format("\"{}\"", bare)};
    }
    if (!text.starts_with('#')) return faultWithoutSign(text);
    const std::string_view digits = text.substr(1);
    if (!isHexadecimal(digits)) {
        const char wrong = *std::ranges::find_if_not(digits, isHexDigit);
        return ColorFault{Code::ColorBadDigit, fmt::format("has a {:?}, which is not a hexadecimal digit", wrong),
                          infoOf(Code::ColorBadDigit).remedy};
    }
    if (isWholeColor(digits.size())) return {};
    if (isShortColor(digits.size())) {
        return ColorFault{Code::ColorShort, "is the short form of a colour", "",
                          fmt::format("\"{}\"", doubledDigits(digits))};
    }
    return ColorFault{Code::ColorLength, fmt::format("has {} digits instead of 6 or 8", digits.size()),
                      infoOf(Code::ColorLength).remedy};
}

// The colour that the component makes of a text.
std::uint64_t readColor(const std::string& text, int featureType) {
    return static_cast<std::uint32_t>(catalogue().CalculateColorValue(text.c_str(), featureType));
}

void checkWholeColor(StyleFindings& check, const RuleView& rule, JsonValue value) {
    const std::string text = value.text();
    const std::uint64_t read = readColor(text, rule.typeId);
    if (read != readColor(text, -1)) {
        check
            .add(Code::ColorAlphaIgnored, rule, value,
                 fmt::format("the alpha is ignored; \"{}\" is drawn in {}", rule.typeName, colorText(read)))
            .remedy = fmt::format("write \"{}\", or choose a paler colour", text.substr(0, 1 + kColorDigits));
    } else if (alphaOf(read) == 0 && text.find_first_not_of("#0") != std::string::npos) {
        Finding& finding = check.add(Code::ColorInvisible, rule, value,
                                     fmt::format("{} is drawn in {}", inQuotes(text), colorText(read)));
        finding.remedy = fmt::format(
            "alpha comes last: \"#{}{}\" is what alpha first would mean; to hide something use "
            "\"visibility\": \"off\"",
            text.substr(3), text.substr(1, 2));
    }
}

void checkColor(StyleFindings& check, const RuleView& rule, JsonValue value) {
    const std::string text = value.text();
    const std::optional<ColorFault> fault = faultOf(text);
    if (!fault) return checkWholeColor(check, rule, value);
    Finding& finding = check.add(
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

void checkLevel(StyleFindings& check, const RuleView& rule, JsonValue value) {
    const std::string text = value.text();
    const int read = readLevel(rule);
    char* end = nullptr;
    const long written = std::strtol(text.c_str(), &end, 10);  // takes what the component takes
    if (text.empty() || end == text.c_str() || *end != '\0') {
        check.add(Code::LevelMalformed, rule, value,
                  fmt::format("{} is not a whole number; the rule applies at level {} only", inQuotes(text), read));
        return;
    }
    if (written == read) return;
    check
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

void checkSize(StyleFindings& check, const ReplayStep& step) {
    const std::optional<std::uint64_t> written = writtenSize(step);
    if (!written) return;
    const JsonValue value = *check.ruleOf(step).member(step.styler);
    const std::string text = value.text();
    const std::size_t firstDigit = std::min(text.find_first_not_of('0'), text.size() - 1);
    if (text.substr(firstDigit) == fmt::format("{}", *written)) return;
    Finding& finding = check.add(Code::SizeClamped, check.ruleOf(step), value,
                                 fmt::format("{} is beyond the range; {} is drawn", inQuotes(text), *written));
    finding.remedy = fmt::format("write \"{}\" or less", *written);
    finding.replacement = fmt::format("\"{}\"", *written);
}

}  // namespace

std::vector<Finding> findValues(const StyleStudy& study) {
    StyleFindings check(study);
    for (const RuleView& rule : study.rules()) {
        if (const auto color = rule.textMember("color")) checkColor(check, rule, *color);
        if (const auto level = rule.textMember("level")) checkLevel(check, rule, *level);
    }
    for (const ReplayStep& step : check.steps()) {
        const Styler* const styler = stylerNamed(step.styler);
        if (styler != nullptr && styler->kind == StylerKind::Size) checkSize(check, step);
    }
    return check.take();
}

}  // namespace customstyle_tool
