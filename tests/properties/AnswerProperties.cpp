// What dump and explain report: the answers, and their sources.
#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>

#include "tests/properties/AnswerJson.h"
#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"
#include "tests/properties/Tool.h"
#include "tests/properties/Writes.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

bool holdsLevel(const Json& levels, std::size_t levelClass) {
    const Json level = levelClass == kLevelClasses - 1 ? Json("other") : Json(levelOf(levelClass));
    return std::ranges::find(levels, level) != levels.end();
}

Trial withMapping(const Trial& trial) {
    Trial mapped = trial;
    if (mapped.mapping) return mapped;
    mapped.mapping.emplace();
    for (int type = 0; type < 72; ++type) mapped.mapping->push_back({1000 + type});
    return mapped;
}

// ---- dump -----------------------------------------------------------------------------------------------------------

std::optional<Failure> rowFails(const Json& row, const Answers& answers) {
    const std::vector<unsigned>& ids = answers.map().styleIds;
    const auto at = std::ranges::find(ids, row.at("id").get<unsigned>());
    if (at == ids.end()) return Failure{"dump tells of mapped style ids", row.dump()};
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
        if (!holdsLevel(row.at("levels"), levelClass)) continue;
        const Answer& answer = answers.of(static_cast<std::size_t>(at - ids.begin()), levelClass);
        if (row.at("feature_type") != nameOf(answer.featureType) || row.at("style") != valuesAsJson(answer) ||
            row.at("icon") != iconText(answer.isIconHidden)) {
            return Failure{"dump tells what the renderer receives", row.dump()};
        }
    }
    return {};
}

// ---- explain --------------------------------------------------------------------------------------------------------

class ExplainedAnswer {
public:
    ExplainedAnswer(const Trial& trial, const Json& explanation) : m_trial(trial), m_json(explanation) {}

    std::optional<Failure> fails(const Answers& answers, std::size_t styleId, std::size_t levelClass) const {
        const Answer& answer = answers.of(styleId, levelClass);
        const Json values = valuesAsJson(answer);
        if (m_json.at("feature_type") != nameOf(answer.featureType)) return Failure{"explain names the type", shown()};
        for (const auto& [field, name] : fieldNames()) {
            const Json& topic = m_json.at(name);
            if (topic.at("value") != (values.contains(name) ? values.at(name) : Json())) {
                return Failure{"explain reports the renderer's values", name + " in " + shown()};
            }
            if (!topic.at("from").is_null() && !wrote(topic.at("from"), field)) {
                return Failure{"explain names a rule that wrote the value", name + " in " + shown()};
            }
        }
        if (m_json.at("icon").at("value") != iconText(answer.isIconHidden)) {
            return Failure{"explain reports whether the icon is hidden", shown()};
        }
        if (m_json.at("land_background").at("value") != colourJson(answers.land(levelClass)) ||
            m_json.at("grid_background").at("value") != colourJson(answers.grid())) {
            return Failure{"explain reports the backgrounds", shown()};
        }
        return {};
    }

private:
    std::string shown() const { return m_json.dump(1); }

    bool wrote(const Json& from, const std::string& field) const {
        const Rule& rule = m_trial.rules.at(from.at("rule").get<std::size_t>() - 1);
        const std::set<Write> writes = writesOf(rule, from.at("styler").get<std::string>());
        return writes.contains({from.at("written_to").at("key").get<std::string>(), field});
    }

    const Trial& m_trial;
    const Json& m_json;
};

}  // namespace

std::optional<Failure> dumpHolds(const Trial& given) {
    const Trial trial = withMapping(given);
    std::vector<std::string> words = {"dump", "--format", "json", "--style",
                                      fileWith("style.json", written(trial.rules).text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
    const Json json = Json::parse(runTool(words).out);
    const Map map = mapWith(*trial.mapping);
    const Answers answers(map, trial.rules);
    for (const Json& row : json.at("styles")) {
        if (auto failure = rowFails(row, answers)) return failure;
    }
    return {};
}

std::optional<Failure> explainHolds(const Trial& given) {
    const Trial trial = withMapping(given);
    const Map map = mapWith(*trial.mapping);
    const Answers answers(map, trial.rules);
    std::vector<std::pair<std::size_t, std::size_t>> styled;  // index of the style id, level class
    for (std::size_t i = 0; i < map.styleIds.size(); ++i) {
        for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
            if (answers.of(i, levelClass).featureType != -1) styled.emplace_back(i, levelClass);
        }
    }
    if (styled.empty()) styled.emplace_back(0, 0);
    std::mt19937 random(trial.variant);
    const auto [styleId, levelClass] = styled[random() % styled.size()];
    std::vector<std::string> words = {"explain", "--format", "json", "--style",
                                      fileWith("style.json", written(trial.rules).text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
    words.insert(words.end(),
                 {"--id", std::to_string(map.styleIds[styleId]), "--level", std::to_string(levelOf(levelClass))});
    const Json json = Json::parse(runTool(words).out).at("explanations").at(0);
    return ExplainedAnswer(trial, json).fails(answers, styleId, levelClass);
}

}  // namespace customstyle_test::properties
