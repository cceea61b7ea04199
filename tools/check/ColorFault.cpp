#include "tools/check/ColorFault.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <vector>

#include "tools/json/JsonScalars.h"
#include "tools/support/Spelling.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kShortDigits = 3;
constexpr std::size_t kColorDigits = 6;
constexpr std::size_t kColorDigitsWithAlpha = 8;
constexpr std::string_view kBlanks = " \t\r\n";

struct NamedColor {
    std::string_view name;
    std::string_view text;
};

// Colour names of other formats that are in common use.
constexpr NamedColor kNamedColors[] = {
    {"black", "#000000"},    {"white", "#ffffff"},    {"gray", "#808080"},       {"grey", "#808080"},
    {"silver", "#c0c0c0"},   {"red", "#ff0000"},      {"green", "#008000"},      {"blue", "#0000ff"},
    {"lime", "#00ff00"},     {"yellow", "#ffff00"},   {"aqua", "#00ffff"},       {"cyan", "#00ffff"},
    {"fuchsia", "#ff00ff"},  {"magenta", "#ff00ff"},  {"maroon", "#800000"},     {"navy", "#000080"},
    {"olive", "#808000"},    {"teal", "#008080"},     {"purple", "#800080"},     {"orange", "#ffa500"},
    {"darkgray", "#a9a9a9"}, {"darkgrey", "#a9a9a9"}, {"lightgray", "#d3d3d3"},  {"lightgrey", "#d3d3d3"},
    {"darkblue", "#00008b"}, {"darkred", "#8b0000"},  {"darkgreen", "#006400"},  {"lightblue", "#add8e6"},
    {"skyblue", "#87ceeb"},  {"brown", "#a52a2a"},    {"lightgreen", "#90ee90"}, {"pink", "#ffc0cb"},
    {"gold", "#ffd700"},     {"beige", "#f5f5dc"},    {"ivory", "#fffff0"},      {"violet", "#ee82ee"},
    {"indigo", "#4b0082"},   {"khaki", "#f0e68c"},    {"salmon", "#fa8072"},     {"tan", "#d2b48c"},
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

std::string jsonString(std::string_view color) {
    return fmt::format("\"{}\"", color);
}

std::string doubledDigits(std::string_view digits) {
    std::string text = "#";
    for (const char digit : digits) text.append(2, digit);
    return text;
}

// The colour with these digits, as JSON; empty if they are not digits of a colour.
std::string colorOf(std::string_view digits) {
    if (!isHexadecimal(digits)) return "";
    if (isWholeColor(digits.size())) return jsonString(fmt::format("#{}", digits));
    return isShortColor(digits.size()) ? jsonString(doubledDigits(digits)) : "";
}

// The digits without # and blanks around and between them, and without "0x" in front.
std::string bareDigits(std::string_view text) {
    std::string digits;
    for (const char c : text) {
        if (c != '#' && kBlanks.find(c) == std::string_view::npos) digits += c;
    }
    const bool isNumber = digits.starts_with("0x") || digits.starts_with("0X");
    return isNumber ? digits.substr(2) : digits;
}

// What "rgb(255, 0, 128)" means, as JSON; nothing for any other text.
std::string colorOfFunction(std::string_view text) {
    constexpr std::string_view kName = "rgb(";
    if (!text.starts_with(kName) || !text.ends_with(')')) return "";
    std::string digits;
    for (std::string_view rest = text.substr(kName.size()); !rest.empty();) {
        rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
        unsigned int channel = 0;
        const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), channel);
        if (error != std::errc() || channel > 255) return "";
        digits += fmt::format("{:02x}", channel);
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
        if (!rest.starts_with(',') && rest != ")") return "";
        rest.remove_prefix(1);
    }
    return digits.size() == kColorDigits ? jsonString("#" + digits) : "";
}

const NamedColor* colorNamed(const std::string& name) {
    const auto* const known = std::ranges::find(kNamedColors, name, &NamedColor::name);
    return known == std::end(kNamedColors) ? nullptr : known;
}

ColorFault faultOfName(const std::string& name) {
    ColorFault fault{Code::ColorName, "is a word, and colours have no names", "write the colour as #RRGGBB"};
    if (name == "transparent" || name == "none") {
        fault.remedy = R"(write "#00000000", or hide the element with "visibility": "off")";
    } else if (const NamedColor* const known = colorNamed(name)) {
        fault.replacement = jsonString(known->text);
    } else {
        std::vector<std::string> names;
        for (const NamedColor& each : kNamedColors) names.emplace_back(each.name);
        if (const auto nearest = likelyName(name, names))
            fault.remedy = fmt::format("write \"{}\" for {}", colorNamed(*nearest)->text, *nearest);
    }
    return fault;
}

ColorFault faultWithoutSign(std::string_view text) {
    if (std::string color = colorOf(text); !color.empty()) return {Code::ColorWithoutSign, "has no #", "", color};
    if (!text.empty() && std::ranges::all_of(text, isLetter)) return faultOfName(inLowerCase(std::string(text)));
    ColorFault fault{Code::ColorWithoutSign, "does not start with #", "write #RRGGBB or #RRGGBBAA"};
    fault.replacement = colorOfFunction(text);
    if (fault.replacement.empty()) fault.replacement = colorOf(bareDigits(text));
    return fault;
}

// A text without the blanks around it.
std::string_view trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

}  // namespace

std::optional<ColorFault> colorFaultOf(std::string_view text) {
    const std::string_view bare = trimmed(text);
    if (bare.size() < text.size() && bare.starts_with('#') && isHexadecimal(bare.substr(1)) &&
        isWholeColor(bare.size() - 1)) {
        return ColorFault{Code::ColorBadDigit, "has spaces around the colour", "", jsonString(bare)};
    }
    if (!text.starts_with('#')) return faultWithoutSign(text);
    const std::string_view digits = text.substr(1);
    if (!isHexadecimal(digits)) {
        const char wrong = *std::ranges::find_if_not(digits, isHexDigit);
        return ColorFault{Code::ColorBadDigit, fmt::format("has a {:?}, which is not a hexadecimal digit", wrong),
                          infoOf(Code::ColorBadDigit).remedy, colorOf(bareDigits(text))};
    }
    if (isWholeColor(digits.size())) return {};
    if (isShortColor(digits.size())) return ColorFault{Code::ColorShort, "is a short colour", "", colorOf(digits)};
    return ColorFault{Code::ColorLength, fmt::format("has {} digits instead of 6 or 8", digits.size()),
                      infoOf(Code::ColorLength).remedy};
}

}  // namespace customstyle_tool
