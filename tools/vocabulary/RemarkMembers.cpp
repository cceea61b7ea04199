#include "tools/vocabulary/RemarkMembers.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "tools/json/JsonScalars.h"

namespace customstyle_tool {
namespace {

constexpr std::string_view kNames[] = {"note", "notes", "comment",     "comments", "remark",
                                       "name", "title", "description", "id",       "todo"};
constexpr std::string_view kBeginnings[] = {"_", "$", "#", "//"};

char upperCase(char letter) {
    return static_cast<char>(letter - 'a' + 'A');
}

// "[Nn][Oo][Tt][Ee]"
std::string patternOf(std::string_view text) {
    std::string pattern;
    for (const char byte : text)
        pattern += isLetter(byte) ? fmt::format("[{}{}]", upperCase(byte), byte) : std::string{'[', byte, ']'};
    return pattern;
}

template <std::size_t Count>
std::string anyOf(const std::string_view (&texts)[Count]) {
    std::vector<std::string> patterns;
    std::ranges::transform(texts, std::back_inserter(patterns), patternOf);
    return fmt::format("(?:{})", fmt::join(patterns, "|"));
}

}  // namespace

bool isRemark(std::string_view memberName) {
    const auto isName = [&](std::string_view name) { return equalIgnoringCase(memberName, name); };
    const auto isBeginning = [&](std::string_view beginning) { return memberName.starts_with(beginning); };
    return std::ranges::any_of(kNames, isName) || std::ranges::any_of(kBeginnings, isBeginning);
}

std::string remarkPattern() {
    return fmt::format("^{}|^{}$", anyOf(kBeginnings), anyOf(kNames));
}

}  // namespace customstyle_tool
