// What diff says: whether two styles are equal, and where they are not.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"
#include "tests/properties/Tool.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;
using Places = std::set<std::pair<unsigned, std::size_t>>;

std::size_t levelClassOf(const Json& level) {
    return level.is_string() ? kLevelClasses - 1 : level.get<std::size_t>() - 4;
}

// Style ids that the map does not list are reported without a number.
Places placesIn(const Json& changes, unsigned unlisted) {
    Places places;
    for (const Json& change : changes) {
        if (change.at("field") == "background") continue;
        for (const Json& level : change.at("levels")) {
            if (change.at("ids").empty()) places.emplace(unlisted, levelClassOf(level));
            for (const Json& id : change.at("ids")) places.emplace(id.get<unsigned>(), levelClassOf(level));
        }
    }
    return places;
}

bool isStored(const model::StyleModel& model, int styleId) {
    return std::ranges::any_of(model.base, [&](const auto& type) { return type.second.contains(styleId); });
}

std::set<std::size_t> backgroundLevelsIn(const Json& changes) {
    std::set<std::size_t> levels;
    for (const Json& change : changes) {
        if (change.at("field") != "background") continue;
        for (const Json& level : change.at("levels")) levels.insert(levelClassOf(level));
    }
    return levels;
}

std::set<std::size_t> changedBackgrounds(const Answers& left, const Answers& right) {
    std::set<std::size_t> levels;
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
        if (left.grid() != right.grid() || left.land(levelClass) != right.land(levelClass)) levels.insert(levelClass);
    }
    return levels;
}

}  // namespace

std::optional<Failure> diffHolds(const Trial& trial) {
    const Rules other = variantOf(trial);
    std::vector<std::string> words = {"diff", "--format", "json", fileWith("style.json", written(trial.rules).text),
                                      fileWith("other.json", written(other).text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
    const Run run = runTool(words);
    const Map map = mapFor(trial, {&trial.rules, &other});
    const Answers before(map, trial.rules);
    const Answers after(map, other);
    const auto changed = difference(before, after);
    if (run.status != (changed ? 1 : 0)) {
        return Failure{"diff knows whether two styles are equal",
                       changed.value_or("no answer") + " changes\n" + written(other).text};
    }
    const Json changes = Json::parse(run.out).at("changes");
    if (!trial.mapping) return {};
    Places expected = changedAnswers(before, after);
    // An id below 0 is asked for as a large number, and is as good as one that is not listed. So is a 0 that the
    // component has dropped.
    std::erase_if(expected, [&](const auto& place) {
        return place.first > 0x7fffffff || (place.first == 0 && !isStored(before.model(), 0));
    });
    Places reported = placesIn(changes, 999999);
    std::erase_if(reported, [](const auto& place) { return place.first > 0x7fffffff; });
    if (reported != expected) return Failure{"diff reports every style id and level", run.out + written(other).text};
    if (backgroundLevelsIn(changes) != changedBackgrounds(before, after)) {
        return Failure{"diff reports every background", run.out + written(other).text};
    }
    return {};
}

}  // namespace customstyle_test::properties
