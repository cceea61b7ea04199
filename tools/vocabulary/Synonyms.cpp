#include "tools/vocabulary/Synonyms.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kShortestPrefix = 3;

struct Synonym {
    std::string_view word;
    std::string_view name;
};

constexpr Synonym kTypes[] = {
    {"park", "green"},
    {"forest", "green"},
    {"wood", "green"},
    {"grass", "green"},
    {"lake", "water"},
    {"river", "water"},
    {"sea", "water"},
    {"ocean", "water"},
    {"motorway", "highway"},
    {"road", "arterial"},
    {"street", "local"},
    {"metro", "subway"},
    {"underground", "subway"},
    {"train", "railway"},
    {"rail", "railway"},
    {"landscape", "land"},
    {"background", "land"},
    {"hospital", "medical"},
    {"school", "education"},
    {"shop", "shopping"},
    {"border", "boundary"},
    {"village", "town"},
    {"administrative", "boundary"},
};

constexpr Synonym kStylerWords[] = {
    {"hue", "color"},          {"fill", "color"},         {"stroke", "color"},      {"opacity", "color"},
    {"alpha", "color"},        {"saturation", "color"},   {"lightness", "color"},   {"width", "weight"},
    {"thickness", "weight"},   {"size", "fontsize"},      {"font", "fontsize"},     {"textsize", "fontsize"},
    {"display", "visibility"}, {"visible", "visibility"}, {"hidden", "visibility"}, {"zoom", "level"},
};

std::optional<std::string> withMeaning(std::span<const Synonym> synonyms, std::string_view word) {
    const auto found = std::ranges::find(synonyms, word, &Synonym::word);
    return found == synonyms.end() ? std::nullopt : std::optional(std::string(found->name));
}

std::optional<std::string> startingWith(std::span<const std::string> names, std::string_view word) {
    if (word.size() < kShortestPrefix) return {};
    const auto found = std::ranges::find_if(names, [&](const std::string& name) { return name.starts_with(word); });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

std::optional<std::string> meant(std::string_view word, std::span<const std::string> names,
                                 std::span<const Synonym> synonyms) {
    // The last part of a dotted name says most.
    for (std::string_view rest = word; !rest.empty();) {
        const std::size_t dot = rest.rfind('.');
        const std::string_view part = dot == std::string_view::npos ? rest : rest.substr(dot + 1);
        if (std::ranges::find(names, part) != names.end()) return std::string(part);
        if (auto name = withMeaning(synonyms, part)) return name;
        if (auto name = startingWith(names, part)) return name;
        rest = dot == std::string_view::npos ? "" : rest.substr(0, dot);
    }
    return {};
}

}  // namespace

std::optional<std::string> meantFeatureType(std::string_view word) {
    return meant(word, featureTypeNames(), kTypes);
}

std::optional<std::string> meantStyler(std::string_view word) {
    return meant(word, stylerMembers(), kStylerWords);
}

}  // namespace customstyle_tool
