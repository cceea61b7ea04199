#include "tools/vocabulary/Synonyms.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include "tools/json/JsonScalars.h"
#include "tools/support/Spelling.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kShortestPrefix = 3;
constexpr std::size_t kShortestMisspelling = 5;  // shorter words are too much alike
constexpr char kSeparators[] = "._- ";

struct Synonym {
    std::string_view word;
    std::string_view name;
};

constexpr Synonym kTypeSynonyms[] = {
    {"park", "green"},           {"forest", "green"},         {"wood", "green"},
    {"grass", "green"},          {"tree", "green"},           {"garden", "green"},
    {"lake", "water"},           {"river", "water"},          {"sea", "water"},
    {"ocean", "water"},          {"canal", "water"},          {"motorway", "highway"},
    {"road", "arterial"},        {"street", "local"},         {"trunk", "nationalway"},
    {"primary", "arterial"},     {"secondary", "arterial"},   {"tertiary", "tertiaryway"},
    {"residential", "local"},    {"metro", "subway"},         {"underground", "subway"},
    {"transit", "subway"},       {"tram", "railway"},         {"train", "railway"},
    {"rail", "railway"},         {"landscape", "land"},       {"background", "land"},
    {"house", "building"},       {"hospital", "medical"},     {"clinic", "medical"},
    {"school", "education"},     {"university", "education"}, {"hotel", "hotellabel"},
    {"airport", "airportlabel"}, {"bank", "financelabel"},    {"shop", "shopping"},
    {"border", "boundary"},      {"village", "town"},         {"administrative", "boundary"},
    {"admin", "boundary"},       {"state", "province"},       {"region", "province"},
};

constexpr Synonym kStylerWords[] = {
    {"hue", "color"},          {"fill", "color"},         {"stroke", "color"},      {"opacity", "color"},
    {"alpha", "color"},        {"saturation", "color"},   {"lightness", "color"},   {"width", "weight"},
    {"gamma", "color"},        {"brightness", "color"},   {"linewidth", "weight"},  {"strokewidth", "weight"},
    {"minzoom", "level"},      {"maxzoom", "level"},      {"minlevel", "level"},    {"maxlevel", "level"},
    {"thickness", "weight"},   {"size", "fontsize"},      {"font", "fontsize"},     {"textsize", "fontsize"},
    {"display", "visibility"}, {"visible", "visibility"}, {"hidden", "visibility"}, {"zoom", "level"},
};

constexpr Synonym kRuleMembers[] = {
    {"feature", "featureType"}, {"type", "featureType"},   {"layer", "featureType"}, {"selector", "featureType"},
    {"element", "elementType"}, {"part", "elementType"},   {"style", "stylers"},     {"styling", "stylers"},
    {"paint", "stylers"},       {"properties", "stylers"},
};

// Keyed by the last word of the path.
constexpr Synonym kElementSynonyms[] = {
    {"halo", "labels.text.stroke"},
    {"text", "labels.text.fill"},
    {"name", "labels.text.fill"},
    {"font", "labels.text.fill"},
    {"label", "labels"},
    {"outline", "geometry.stroke"},
    {"casing", "geometry.stroke"},
    {"border", "geometry.stroke"},
    {"line", "geometry.stroke"},
    {"roof", "geometry.topsurface"},
    {"top", "geometry.topsurface"},
    {"background", "geometry.fill"},
    {"area", "geometry.fill"},
    {"inside", "geometry.fill"},
    {"shape", "geometry"},
    {"symbol", "labels.icon"},
    {"image", "labels.icon"},
    {"marker", "labels.icon"},
};

constexpr Synonym kVisibilities[] = {
    {"true", "on"},    {"yes", "on"},     {"1", "on"},     {"show", "on"},       {"shown", "on"},
    {"visible", "on"}, {"false", "off"},  {"no", "off"},   {"0", "off"},         {"of", "off"},
    {"hide", "off"},   {"hidden", "off"}, {"none", "off"}, {"invisible", "off"},
};

std::optional<std::string> withMeaning(std::span<const Synonym> synonyms, std::string_view word) {
    auto found = std::ranges::find(synonyms, word, &Synonym::word);
    if (found == synonyms.end() && word.size() >= kShortestMisspelling) {
        found = std::ranges::find_if(synonyms, [&](const Synonym& each) {
            return each.word.size() + 1 >= kShortestMisspelling && spellingDistance(each.word, word) <= 1;
        });
    }
    return found == synonyms.end() ? std::nullopt : std::optional(std::string(found->name));
}

std::optional<std::string> startingWith(std::span<const std::string> names, std::string_view word) {
    if (word.size() < kShortestPrefix) return {};
    const auto found = std::ranges::find_if(names, [&](const std::string& name) { return name.starts_with(word); });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

// The parts of a name such as "road.highway" or "country_label" in lower case, the last one first: it says most.
std::vector<std::string> partsOf(std::string_view name) {
    constexpr std::size_t kLongestName = 64;
    std::vector<std::string> parts;
    for (std::string_view rest = name.substr(0, kLongestName); !rest.empty();) {
        const std::size_t separator = rest.find_last_of(kSeparators);
        const std::size_t begin = separator == std::string_view::npos ? 0 : separator + 1;
        parts.push_back(inLowerCase(std::string(rest.substr(begin))));
        rest = rest.substr(0, begin == 0 ? 0 : separator);
    }
    return parts;
}

std::optional<std::string> meant(std::string_view word, std::span<const std::string> names,
                                 std::span<const Synonym> synonyms) {
    const std::vector<std::string> parts = partsOf(word);
    for (const std::string& part : parts) {
        if (std::ranges::find(names, part) != names.end()) return part;
    }
    for (const std::string& part : parts) {
        if (auto name = withMeaning(synonyms, part)) return name;
        if (auto name = startingWith(names, part)) return name;
    }
    return {};
}

}  // namespace

std::optional<std::string> meantFeatureType(std::string_view word) {
    return meant(word, mappedTypeNames(), kTypeSynonyms);
}

std::optional<std::string> likelyFeatureType(std::string_view word) {
    const auto spelt = likelyName(word, mappedTypeNames());
    const bool isMisspelt = spelt && spellingDistance(inLowerCase(std::string(word)), *spelt) <= 1;
    const auto meaning = isMisspelt ? std::nullopt : meantFeatureType(word);
    return meaning ? meaning : spelt;
}

std::string featureTypeHint(std::string_view word) {
    const auto name = likelyFeatureType(word);
    return name ? didYouMean(name) : "; all names: customstyle list types";
}

std::optional<std::string> meantStyler(std::string_view word) {
    return meant(word, stylerMembers(), kStylerWords);
}

std::optional<std::string> meantRuleMember(std::string_view word) {
    return meant(word, {}, kRuleMembers);
}

std::optional<std::string> meantElement(std::string_view path, std::span<const std::string> elements) {
    for (const std::string& part : partsOf(path)) {
        const auto ends = [&](const std::string& element) { return element.ends_with("." + part); };
        const auto named = std::ranges::find_if(elements, ends);
        if (named != elements.end()) return *named;
        auto synonym = withMeaning(kElementSynonyms, part);
        if (synonym && std::ranges::find(elements, *synonym) != elements.end()) return synonym;
    }
    return {};
}

std::optional<std::string> meantVisibility(std::string_view word) {
    return withMeaning(kVisibilities, inLowerCase(std::string(word.substr(0, word.find(' ')))));
}

}  // namespace customstyle_tool
