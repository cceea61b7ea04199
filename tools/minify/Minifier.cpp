#include "tools/minify/Minifier.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "tools/minify/Compact.h"
#include "tools/minify/Equivalence.h"
#include "tools/minify/MinimalRule.h"
#include "tools/minify/Shrinking.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/Mapping.h"
#include "tools/study/StoreDifference.h"
#include "tools/study/StyleSource.h"
#include "tools/study/StyleStudy.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_tool {
namespace {

constexpr std::size_t kWorkLimit = 30'000'000;

std::vector<MinimalRule> rulesOf(const PlacedRules& placed) {
    std::vector<MinimalRule> rules;
    for (const PlacedRule& each : placed) rules.push_back(each.rule);
    return rules;
}

std::string textOf(const PlacedRules& rules) {
    return textOf(rulesOf(rules));
}

// The rules that can reach each other's records: those for a type and for its companion. By the companion's id.
std::map<int, PlacedRules> independentParts(const std::vector<MinimalRule>& rules) {
    std::map<int, PlacedRules> parts;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const int type = catalogue().GetFeatureTypeId(rules[i].featureType);
        const int companion = catalogue().UpdateFeatureTypeId(type);
        parts[companion == -1 ? type : companion].push_back({i, rules[i]});
    }
    return parts;
}

std::vector<int> typesIn(const PlacedRules& part) {
    std::vector<int> types;
    for (const PlacedRule& each : part) {
        const int type = catalogue().GetFeatureTypeId(each.rule.featureType);
        for (const int reached : {type, catalogue().UpdateFeatureTypeId(type)}) {
            if (reached >= 0 && std::ranges::find(types, reached) == types.end()) types.push_back(reached);
        }
    }
    return types;
}

PlacedRules shrunkOnEveryMap(const PlacedRules& part, WorkLimit& limit) {
    const std::string mapping = defaultMapping();
    const std::vector<int> types = typesIn(part);
    const auto wanted = storeOf(mapping, textOf(part));
    const auto hasSameEffect = [&](const PlacedRules& candidate) {
        return haveSameStyles(*wanted, *storeOf(mapping, textOf(candidate)), types);
    };
    return Shrinking(part, hasSameEffect, limit).shrink();
}

PlacedRules shrunkOnEveryMap(const std::vector<MinimalRule>& rules, WorkLimit& limit) {
    PlacedRules whole;
    for (const auto& [companion, part] : independentParts(rules)) {
        for (PlacedRule& rule : shrunkOnEveryMap(part, limit)) whole.push_back(std::move(rule));
    }
    std::ranges::sort(whole, {}, &PlacedRule::place);
    return whole;
}

PlacedRules shrunkOnMap(const PlacedRules& rules, const std::string& mapping, WorkLimit& limit) {
    const std::string representative = Mapping::given(mapping).speakersText();
    const auto wanted = storeOf(representative, textOf(rules));
    const auto hasSameEffect = [&](const PlacedRules& candidate) {
        return !differenceBetween(*wanted, *storeOf(representative, textOf(candidate))).any();
    };
    return Shrinking(rules, hasSameEffect, limit).shrink();
}

// The attempts, best first, each made when the one before has failed the proof: a style that needs more style keys than
// there are slots depends on the order of all its rules, and may have to stay as it is.
Minified firstProven(const StyleSource& style, const std::string& mapping,
                     const std::vector<std::function<Minified()>>& attempts) {
    const auto wanted = storeOf(mapping, style.file().text());
    for (const auto& attempt : attempts) {
        Minified result = attempt();
        if (!differenceBetween(*wanted, *storeOf(mapping, result.text)).any()) return result;
    }
    return {std::string(style.file().text()), style.rules().size(), false};
}

}  // namespace

Minified minified(const StyleSource& style, const std::optional<std::string>& mapping) {
    const ComponentGuard guard;
    const std::vector<MinimalRule> rules = minimalRules(style.file().text());
    const auto shrink = [&] {
        WorkLimit limit{kWorkLimit};
        PlacedRules shrunk = shrunkOnEveryMap(rules, limit);
        if (mapping) shrunk = shrunkOnMap(shrunk, *mapping, limit);
        return Minified{textOf(shrunk), shrunk.size(), !limit.isReached};
    };
    const auto clean = [&] { return Minified{textOf(rules), rules.size(), false}; };
    const auto compact = [&] { return Minified{compactText(style.document()), style.rules().size(), false}; };
    return firstProven(style, mapping.value_or(Mapping::everyMap().text()), {shrink, clean, compact});
}

}  // namespace customstyle_tool
