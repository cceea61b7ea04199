#include "tools/support/Spelling.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

// Longer words are not misspelt names, and comparing them would take long.
constexpr std::size_t kLongestWord = 64;

constexpr std::size_t kMostListed = 12;

std::string plain(std::string_view word) {
    std::string text;
    for (const char byte : word) {
        if (std::isspace(static_cast<unsigned char>(byte)) == 0 && byte != '-' && byte != '_')
            text += static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    }
    return text;
}

}  // namespace

std::string eitherOf(const std::vector<std::string>& names) {
    if (names.size() < 2) return names.empty() ? "" : names.front();
    return fmt::format("{} or {}", fmt::join(std::span(names).first(names.size() - 1), ", "), names.back());
}

std::string unknownWord(const std::string& what, const std::string& word, const std::vector<std::string>& known) {
    std::string problem = fmt::format("unknown {} \"{}\"", what, escapedText(word));
    if (const auto meant = likelyName(word, known)) return problem + didYouMean(meant);
    if (known.size() > kMostListed) return problem;
    return fmt::format("{}; write {}", problem, eitherOf(known));
}

std::size_t spellingDistance(std::string_view left, std::string_view right) {
    const std::size_t width = right.size() + 1;
    std::vector<std::size_t> table((left.size() + 1) * width);
    for (std::size_t i = 0; i <= left.size(); ++i) {
        for (std::size_t j = 0; j <= right.size(); ++j) {
            std::size_t& best = table[i * width + j];
            if (i == 0 || j == 0) {
                best = i + j;
                continue;
            }
            const bool same = left[i - 1] == right[j - 1];
            best = std::min({table[(i - 1) * width + j] + 1, table[i * width + j - 1] + 1,
                             table[(i - 1) * width + j - 1] + (same ? 0 : 1)});
            const bool swapped = i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1];
            if (swapped) best = std::min(best, table[(i - 2) * width + j - 2] + 1);
        }
    }
    return table.back();
}

std::optional<std::string> likelyName(std::string_view word, std::span<const std::string> candidates) {
    const std::string wanted = plain(word);
    if (wanted.empty() || wanted.size() > kLongestWord) return {};
    std::optional<std::string> nearest;
    std::size_t fewest = std::max<std::size_t>(1, wanted.size() / 3) + 1;
    for (const std::string& candidate : candidates) {
        const std::size_t distance = spellingDistance(wanted, plain(candidate));
        if (distance >= fewest) continue;
        fewest = distance;
        nearest = candidate;
    }
    return nearest;
}

std::string didYouMean(const std::optional<std::string>& name) {
    return name ? "; did you mean \"" + *name + "\"?" : "";
}

}  // namespace customstyle_tool
