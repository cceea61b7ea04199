#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/import/Expression.h"
#include "tools/support/Numbers.h"

namespace customstyle_tool {
namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kNames{
    {{"white", "#ffffff"}, {"black", "#000000"}, {"transparent", "#00000000"}}};

struct Number {
    double value = 0;
    bool isPercent = false;
};

// Takes a number from the front of a text; none where there is none, or where it is beyond all numbers.
std::optional<double> takeNumber(std::string_view& text) {
    const std::string digits(text.substr(0, text.find_first_not_of("+-.0123456789eE")));
    char* end = nullptr;
    const double number = std::strtod(digits.c_str(), &end);
    const auto length = static_cast<std::size_t>(end - digits.c_str());
    text.remove_prefix(length);
    return length > 0 && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// The numbers in "rgba(1, 2, 3, 50%)"; none where there is anything else.
std::optional<std::vector<Number>> argumentsIn(std::string_view text) {
    const std::size_t open = text.find('(');
    if (open == std::string_view::npos || text.back() != ')') return {};
    std::string_view rest = text.substr(open + 1, text.size() - open - 2);
    std::vector<Number> numbers;
    while (true) {
        rest.remove_prefix(std::min(rest.find_first_not_of(" ,/"), rest.size()));
        if (rest.empty()) return numbers;
        const auto value = takeNumber(rest);
        if (!value) return {};
        const Number number{*value, rest.starts_with('%')};
        if (number.isPercent) rest.remove_prefix(1);
        if (rest.starts_with("deg")) rest.remove_prefix(3);
        if (!rest.empty() && rest.find_first_of(" ,/") != 0) return {};
        numbers.push_back(number);
    }
}

double alphaIn(const std::vector<Number>& numbers) {
    if (numbers.size() < 4) return 1;
    return numbers[3].isPercent ? numbers[3].value / 100 : numbers[3].value;
}

// The formula of CSS Color 4: a channel of hue, saturation and lightness.
double channel(double offset, double hue, double saturation, double lightness) {
    const double place = std::fmod(offset + hue / 30, 12);
    const double reach = saturation * std::min(lightness, 1 - lightness);
    return 255 * (lightness - reach * std::max(-1.0, std::min({place - 3, 9 - place, 1.0})));
}

std::optional<std::uint64_t> hslColor(const std::vector<Number>& numbers) {
    if (!numbers[1].isPercent || !numbers[2].isPercent) return {};
    const double hue = std::fmod(std::fmod(numbers[0].value, 360) + 360, 360);
    const double saturation = std::clamp(numbers[1].value / 100, 0.0, 1.0);
    const double lightness = std::clamp(numbers[2].value / 100, 0.0, 1.0);
    return packedRgba(channel(0, hue, saturation, lightness), channel(8, hue, saturation, lightness),
                      channel(4, hue, saturation, lightness), alphaIn(numbers));
}

std::optional<std::uint64_t> rgbColor(const std::vector<Number>& numbers) {
    const auto part = [&](std::size_t i) { return numbers[i].isPercent ? numbers[i].value * 2.55 : numbers[i].value; };
    return packedRgba(part(0), part(1), part(2), alphaIn(numbers));
}

std::optional<std::uint64_t> hexColor(std::string_view digits) {
    std::string full(digits);
    if (digits.size() == 3 || digits.size() == 4) {
        full.clear();
        for (const char digit : digits) full.append(2, digit);
    }
    if (full.size() == 6) full += "ff";
    const auto number = numberIn<std::uint32_t>(std::string_view(full), 16);
    if (full.size() != 8 || !number) return {};
    return packedRgba(*number >> 24, *number >> 16 & 0xff, *number >> 8 & 0xff, (*number & 0xff) / 255.0);
}

}  // namespace

std::uint64_t packedRgba(double red, double green, double blue, double alpha) {
    const auto byte = [](double value) {
        return static_cast<std::uint64_t>(std::lround(std::clamp(value, 0.0, 255.0)));
    };
    return byte(red) | byte(green) << 8 | byte(blue) << 16 | byte(alpha * 255) << 24;
}

std::optional<std::uint64_t> cssColorIn(const std::string& text) {
    for (const auto& [name, color] : kNames) {
        if (text == name) return hexColor(color.substr(1));
    }
    if (text.starts_with('#')) return hexColor(std::string_view(text).substr(1));
    const auto numbers = argumentsIn(text);
    if (!numbers || (numbers->size() != 3 && numbers->size() != 4)) return {};
    if (text.starts_with("rgb(") || text.starts_with("rgba(")) return rgbColor(*numbers);
    if (text.starts_with("hsl(") || text.starts_with("hsla(")) return hslColor(*numbers);
    return {};
}

}  // namespace customstyle_tool
