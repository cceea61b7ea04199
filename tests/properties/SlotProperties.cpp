// What check says of a store that is full, or nearly so.
#include <algorithm>
#include <random>

#include "tests/model_check/ModelTables.h"
#include "tests/properties/CheckedStyle.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;
using model::StyleModel;

constexpr std::size_t kSlots = 1241;
constexpr std::size_t kMany = 992;  // four fifths

// Rules for many types and levels, in any order; some address the keys of two types.
Trial crowdedTrial(unsigned seed) {
    std::mt19937 random(seed);
    Trial trial;
    trial.variant = seed;
    for (int type = 0; type < 72; ++type) {
        for (int level = 4; level <= 21; ++level) {
            const char* const element = random() % 4 == 0 ? "all" : "geometry.fill";
            trial.rules.push_back(
                {{{"featureType", {model::kNames[static_cast<std::size_t>(type)]}}, {"elementType", {element}}},
                 model::Members{{"color", {"#112233"}}, {"level", {std::to_string(level)}}}});
        }
    }
    std::ranges::shuffle(trial.rules, random);
    trial.rules.resize(trial.rules.size() - random() % 400);
    return trial;
}

std::set<std::string> keysOf(const Rule& rule) {
    StyleModel model;
    model.apply(rule);
    return {model.keys.begin(), model.keys.end()};
}

// What a walk over the rules says of the slots, in terms of rules.
struct Slots {
    std::set<std::string> keys;       // that the style needs
    std::set<std::size_t> refused;    // rules for which no slot was left
    std::size_t firstBeyondMany = 0;  // the rule that needs the first key beyond four fifths

    explicit Slots(const Rules& rules) {
        std::set<std::string> taken;
        for (std::size_t rule = 0; rule < rules.size(); ++rule) {
            for (const std::string& key : keysOf(rules[rule])) {
                if (taken.size() < kSlots) taken.insert(key);
                if (!taken.contains(key)) refused.insert(rule);
                if (keys.insert(key).second && keys.size() == kMany + 1) firstBeyondMany = rule;
            }
        }
    }
};

std::set<std::size_t> rulesWith(const CheckedStyle& style, const char* code) {
    std::set<std::size_t> rules;
    for (const Json& finding : style.findings()) {
        if (finding.at("code") == code) rules.insert(style.partAt(finding).rule);
    }
    return rules;
}

// Whether each finding with the code says how many keys the style needs.
bool sayHowMany(const CheckedStyle& style, const char* code, std::size_t keys) {
    return std::ranges::all_of(style.findings(), [&](const Json& finding) {
        const std::string message = finding.at("message");
        return finding.at("code") != code || message.find("needs " + std::to_string(keys) + " ") != std::string::npos;
    });
}

}  // namespace

std::optional<Failure> slotsFail(unsigned seed) {
    const Trial trial = crowdedTrial(seed);
    const CheckedStyle style(trial);
    const Slots slots(trial.rules);
    const std::string detail = "crowded style " + std::to_string(seed);
    const bool isNearlyFull = slots.keys.size() > kMany && slots.keys.size() <= kSlots;
    const std::set<std::size_t> warned =
        isNearlyFull ? std::set<std::size_t>{slots.firstBeyondMany} : std::set<std::size_t>{};
    if (rulesWith(style, "slots-exceeded") != slots.refused) return Failure{"who got no slot gets a finding", detail};
    if (rulesWith(style, "slots-nearly-full") != warned)
        return Failure{"a store that is nearly full is reported", detail};
    if (!sayHowMany(style, "slots-exceeded", slots.keys.size()) ||
        !sayHowMany(style, "slots-nearly-full", slots.keys.size()))
        return Failure{"the keys are counted", detail};
    return {};
}

}  // namespace customstyle_test::properties
