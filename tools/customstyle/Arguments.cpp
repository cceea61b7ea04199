#include "tools/customstyle/Arguments.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "tools/support/Numbers.h"
#include "tools/support/PlainText.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_tool {
namespace {

constexpr long long kWidestRange = 1000;

// Plain decimal, without leading zeros.
template <typename Number>
std::optional<Number> plainNumberIn(std::string_view text) {
    const auto number = numberIn<Number>(text);
    return number && text == std::to_string(*number) ? number : std::nullopt;
}

// The numbers of "7" or "4-9"; none where it is neither.
template <typename Number>
std::optional<std::vector<Number>> numbersOf(const std::string& piece) {
    if (const auto single = plainNumberIn<Number>(piece)) return std::vector<Number>{*single};
    const std::size_t dash = piece.find('-', 1);
    if (dash == std::string::npos) return {};
    const auto first = plainNumberIn<Number>(std::string_view(piece).substr(0, dash));
    const auto last = plainNumberIn<Number>(std::string_view(piece).substr(dash + 1));
    if (!first || !last || *first > *last || static_cast<long long>(*last) - *first >= kWidestRange) return {};
    std::vector<Number> numbers;
    for (long long number = *first; number <= *last; ++number) numbers.push_back(static_cast<Number>(number));
    return numbers;
}

std::optional<std::vector<int>> levelsOf(const std::string& piece) {
    if (piece == "other") return std::vector<int>{levelOfClass(kOtherLevels)};
    if (piece != "all") return numbersOf<int>(piece);
    std::vector<int> levels;
    for (std::size_t each = 0; each < kLevelClassCount; ++each) levels.push_back(levelOfClass(each));
    return levels;
}

template <typename Number>
std::string problemOfNumber(const std::string& piece) {
    using Limits = std::numeric_limits<Number>;
    return fmt::format("\"{}\" is not a whole number from {} to {}", piece, Limits::min(), Limits::max());
}

std::string problemOfStyleIds(const std::string& word) {
    for (const std::string& piece : split(word, ',')) {
        if (!numbersOf<unsigned int>(piece)) return problemOfNumber<unsigned int>(piece);
    }
    return {};
}

std::string problemOfLevels(const std::string& word) {
    for (const std::string& piece : split(word, ',')) {
        if (!levelsOf(piece)) return problemOfNumber<int>(piece) + ", a range like 4-9, all or other";
    }
    return {};
}

template <typename Number, typename Read>
std::vector<Number> numbersIn(const std::vector<std::string>& words, Read readPiece) {
    std::vector<Number> numbers;
    for (const std::string& word : words) {
        for (const std::string& piece : split(word, ',')) {
            const std::vector<Number> named = *readPiece(piece);
            for (const Number number : named) {
                if (std::ranges::find(numbers, number) == numbers.end()) numbers.push_back(number);
            }
        }
    }
    return numbers;
}

std::vector<std::string> levelWords() {
    std::vector<std::string> words = {"all", "other"};
    for (int level = kLowestLevel; level <= kHighestLevel; ++level) words.push_back(std::to_string(level));
    return words;
}

}  // namespace

Option styleOption(std::string& style) {
    return {.names = "STYLE,--style",
            .help = "Style file; - is standard input",
            .target = &style,
            .offer = Offer::Files,
            .isRequired = true};
}

Option mappingOption(std::optional<std::string>& directory) {
    return {
        .names = "--mapping",
        .value = "DIR",
        .help =
            "Directory of the mapping file CustomIndex; without a mapping, feature type T has the style id 1000 + T",
        .target = &directory,
        .offer = Offer::Directories};
}

Option choiceOption(std::string names, std::string value, std::string help, Target target,
                    std::vector<std::string> choices) {
    std::string what = value;
    std::ranges::transform(what, what.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    const auto problem = [what, choices](const std::string& word) {
        return std::ranges::find(choices, word) != choices.end() ? "" : unknownWord(what, word, choices);
    };
    return {.names = std::move(names),
            .value = std::move(value),
            .help = std::move(help),
            .target = target,
            .offer = Offer::Choices,
            .choices = choices,
            .problem = problem};
}

Option formatOption(std::string& format, const std::vector<std::pair<std::string, std::string>>& values) {
    std::vector<std::string> names;
    std::vector<std::string> texts;
    for (const auto& [name, use] : values) {
        names.push_back(name);
        texts.push_back(fmt::format("{} ({})", name, use));
    }
    return choiceOption("--format", "FORMAT", fmt::format("Print {}", eitherOf(texts)), &format, names);
}

Option colorOption(std::string& choice) {
    Option option =
        choiceOption("--color", "WHEN", "Show colours: auto (in a terminal, unless NO_COLOR is set), always or never",
                     &choice, {"auto", "always", "never"});
    option.problem = [choices = option.choices](const std::string& word) {
        return std::ranges::find(choices, word) != choices.end() ? "" : unknownWord("choice", word, choices);
    };
    return option;
}

Option styleIdOption(std::vector<std::string>& words) {
    return {.names = "--id",
            .value = "N",
            .help = "Style id of the renderer, or a list: 1001,1005-1008",
            .target = &words,
            .problem = problemOfStyleIds,
            .takesNumbers = true};
}

Option levelOption(std::vector<std::string>& words) {
    return {.names = "--level",
            .value = "L",
            .help = "Zoom level, or a list: 4,10-14, all, other; rules can name 4 to 21, and other is any level beyond",
            .target = &words,
            .offer = Offer::Choices,
            .choices = levelWords(),
            .problem = problemOfLevels,
            .takesNumbers = true};
}

std::vector<unsigned int> styleIdsIn(const std::vector<std::string>& words) {
    return numbersIn<unsigned int>(words, numbersOf<unsigned int>);
}

std::vector<int> levelsIn(const std::vector<std::string>& words) {
    return numbersIn<int>(words, levelsOf);
}

}  // namespace customstyle_tool
