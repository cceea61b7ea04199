#include "tools/schema/NumberPattern.h"

#include <fmt/format.h>

#include <vector>

namespace customstyle_tool {
namespace {

std::string anyDigits(std::size_t count) {
    return count == 0 ? std::string() : fmt::format("[0-9]{{{}}}", count);
}

}  // namespace

// 255: up to two digits; 1 and any two; 2, a digit below 5 and any one; 25 and a digit below 5; 255.
std::string patternOfNumbersTo(int highest) {
    const std::string digits = std::to_string(highest);
    std::vector<std::string> parts;
    if (digits.size() > 1) parts.push_back(fmt::format("[0-9]{{1,{}}}", digits.size() - 1));
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const char first = i == 0 && digits.size() > 1 ? '1' : '0';
        if (digits[i] <= first) continue;
        parts.push_back(fmt::format("{}[{}-{}]{}", digits.substr(0, i), first, static_cast<char>(digits[i] - 1),
                                    anyDigits(digits.size() - i - 1)));
    }
    parts.push_back(digits);
    return fmt::format("^0*(?:{})$", fmt::join(parts, "|"));
}

}  // namespace customstyle_tool
