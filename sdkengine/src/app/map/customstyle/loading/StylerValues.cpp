#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "customstyle/CustomConfig.h"
#include "customstyle/FeatureTypeTable.h"
#include "customstyle/json/MemberText.h"

namespace _orvik_framework {
namespace {

constexpr long kLowestLevel = 4;
constexpr long kHighestLevel = 21;

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view viewOf(const char* text) {
    return text == nullptr ? std::string_view() : text;
}

// The value of each character as a hexadecimal digit; all others count as 0. A table, because whether a
// colour's next digit is a letter cannot be predicted.
constexpr std::array<std::uint8_t, 256> kHexValues = [] {
    std::array<std::uint8_t, 256> values{};
    for (const std::string_view digits : {"0123456789abcdef", "0123456789ABCDEF"}) {
        for (std::uint8_t value = 0; value < 16; ++value) values[static_cast<unsigned char>(digits[value])] = value;
    }
    return values;
}();

std::uint32_t hexValue(char c) {
    return kHexValues[static_cast<unsigned char>(c)];
}

// The value of two hexadecimal digits; digits beyond the end count as 0.
std::uint32_t byteAt(std::string_view text, std::size_t position) {
    const auto digit = [&](std::size_t at) { return at < text.size() ? hexValue(text[at]) : 0; };
    return digit(position) << 4 | digit(position + 1);
}

}  // namespace

int CustomConfig::ParseCustomStyleGivenLevel(const cJSON* stylers, int* level) const {
    const char* text = findText(stylers, "level");
    if (text == nullptr) {
        *level = 0;
        return 1;
    }
    *level = static_cast<int>(std::clamp(std::strtol(text, nullptr, 10), kLowestLevel, kHighestLevel));
    return 0;
}

int CustomConfig::CalculateColorValue(const char* text, int featureType) const {
    const std::string_view digits = viewOf(text);  // #RRGGBBAA
    const bool opaque = digits.size() <= 7 || applies(&FeatureTypeRow::isOpaque, featureType);
    const std::uint32_t alpha = opaque ? 0xFF : byteAt(digits, 7);
    const std::uint32_t packed = alpha << 24 | byteAt(digits, 5) << 16 | byteAt(digits, 3) << 8 | byteAt(digits, 1);
    return static_cast<int>(packed);
}

int CustomConfig::CalculateWeightValue(const char* text) const {
    const std::string_view digits = viewOf(text);
    int value = 0;
    int place = 1;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (isDigit(*digit)) value = std::min(255, value + (*digit - '0') * place);
        place = std::min(1000, place * 10);  // from here on any digit but 0 is beyond the range
    }
    return value;
}

int CustomConfig::IsValueAllDigit(std::string text) const {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

}  // namespace _orvik_framework
