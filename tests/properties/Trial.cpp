#include "tests/properties/Trial.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <utility>

#include "tests/model_check/ModelTables.h"
#include "tests/model_check/RandomProgram.h"
#include "tests/support/StyleBuilder.h"

namespace customstyle_test::properties {
namespace {

using model::Members;
using model::RandomProgram;
using model::Value;

constexpr int kMappedTypes = 72;

class Dice {
public:
    explicit Dice(unsigned seed) : m_random(seed) {}

    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    bool oneIn(int count) { return below(count) == 0; }

    template <typename List>
    auto oneOf(const List& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937 m_random;
};

// ---- Styles as authors write them -----------------------------------------------------------------------------------

constexpr const char* kThemes[][3] = {
    {"highway", "highwaylabel", "nationalway"}, {"land", "water", "green"},
    {"city", "district", "districtlabel"},      {"poilabel", "hotellabel", "manmade"},
    {"subway", "subwaylabel", "grid"},          {"education", "educationlabel", "all"},
    {"building", "boundary", "highway"},        {"water", "highway", "city"},
};
constexpr const char* kPaths[] = {
    "all",      "geometry",         "geometry.fill",      "geometry.stroke", "geometry.topsurface",
    "labels",   "labels.text.fill", "labels.text.stroke", "labels.icon",     "labels",
    "geometry",
};

class NaturalStyle {
public:
    explicit NaturalStyle(Dice& dice) : m_dice(dice), m_types(m_dice.oneOf(kThemes)) {}

    Rules rules(int count) {
        Rules rules;
        while (static_cast<int>(rules.size()) < count) rules.push_back(next(rules));
        return rules;
    }

private:
    // Authors repeat themselves: the same styler on another element, at another level, or once more.
    Rule next(const Rules& before) {
        if (before.empty() || m_dice.oneIn(2)) return fresh();
        Rule rule = m_dice.oneOf(before);
        if (m_dice.oneIn(2)) rule.frame[1].second.text = m_dice.oneOf(kPaths);
        if (m_dice.oneIn(2)) setLevel(rule);
        if (m_dice.oneIn(4)) rule.frame[0].second.text = m_types[m_dice.below(3)];
        return rule;
    }

    Rule fresh() {
        Rule rule;
        rule.frame = {{"featureType", {m_types[m_dice.below(3)]}}, {"elementType", {m_dice.oneOf(kPaths)}}};
        rule.stylers.emplace();
        const int kind = m_dice.below(6);
        if (kind <= 2) rule.stylers->push_back({"color", {m_dice.oneOf(kColours)}});
        if (kind == 2 || kind == 3) rule.stylers->push_back({"weight", {std::to_string(1 + m_dice.below(3))}});
        if (kind == 4) rule.stylers->push_back({"visibility", {m_dice.oneIn(3) ? "on" : "off"}});
        if (kind == 5) rule.stylers->push_back({"fontsize", {std::to_string(10 + m_dice.below(2))}});
        if (m_dice.oneIn(3)) setLevel(rule);
        return rule;
    }

    void setLevel(Rule& rule) {
        std::erase_if(*rule.stylers, [](const auto& member) { return member.first == "level"; });
        if (!m_dice.oneIn(3)) rule.stylers->push_back({"level", {std::to_string(10 + m_dice.below(3))}});
    }

    static constexpr const char* kColours[] = {"#112233", "#445566", "#11223380"};

    Dice& m_dice;
    const char* const* m_types;
};

// ---- Maps -----------------------------------------------------------------------------------------------------------

StyleIds ownIds(Dice& dice) {
    StyleIds lists;
    for (int type = 0; type < kMappedTypes; ++type) {
        std::vector<int> ids;
        for (int count = dice.below(3); count > 0; --count) ids.push_back(3 * type + count);
        lists.push_back(ids);
    }
    return lists;
}

// As before, with ids in front that are 0, repeated or below 0.
StyleIds oddOwnIds(Dice& dice) {
    StyleIds lists = ownIds(dice);
    for (auto& ids : lists) {
        if (dice.oneIn(2)) continue;
        const int own = ids.empty() ? 300 : ids.front();
        ids.insert(ids.begin(), dice.oneIn(3) ? 0 : dice.oneIn(2) ? own : -1 - own);
    }
    return lists;
}

// Few ids, so that many types share them.
StyleIds sharedIds(Dice& dice) {
    StyleIds lists;
    for (int type = 0; type < kMappedTypes; ++type) {
        std::vector<int> ids;
        for (int count = dice.below(4); count > 0; --count) ids.push_back(1 + dice.below(12));
        lists.push_back(ids);
    }
    return lists;
}

// Also 0 and below, the same several times, and no type at all.
StyleIds nastyIds(Dice& dice, RandomProgram& program) {
    StyleIds lists(kMappedTypes);
    if (dice.oneIn(6)) return lists;
    for (auto& ids : lists) ids = program.styleIds();
    return lists;
}

std::set<std::string> typesNamedIn(const Rules& rules) {
    std::set<std::string> names;
    for (const Rule& rule : rules) {
        for (const auto& [name, value] : rule.frame) names.insert(value.text.value_or(""));
    }
    return names;
}

// Types without a rule have few style ids, so that there is less to ask.
void thinOut(StyleIds& lists, const Rules& rules, Dice& dice) {
    const std::set<std::string> named = typesNamedIn(rules);
    for (std::size_t type = 0; type < lists.size(); ++type) {
        const bool isNamed = named.contains(model::kNames[type]);
        const bool isCompanion = std::ranges::any_of(model::kCompanions, [&](const auto& pair) {
            return pair.second == static_cast<int>(type) &&
                   named.contains(model::kNames[static_cast<std::size_t>(pair.first)]);
        });
        if (!isNamed && !isCompanion && !dice.oneIn(8)) lists[type].clear();
    }
}

std::optional<StyleIds> randomMapping(Dice& dice, RandomProgram& program) {
    switch (dice.below(5)) {
        case 0:
            return std::nullopt;
        case 4:
            return oddOwnIds(dice);
        case 1:
            return ownIds(dice);
        case 2:
            return sharedIds(dice);
        default:
            return nastyIds(dice, program);
    }
}

int randomCount(Dice& dice) {
    return dice.oneIn(20) ? 12 + dice.below(18) : 1 + dice.below(7);
}

// ---- Variants -------------------------------------------------------------------------------------------------------

void changeStyler(Rule& rule, Dice& dice) {
    if (!rule.stylers || rule.stylers->empty()) return;
    auto& members = *rule.stylers;
    const auto index = static_cast<std::ptrdiff_t>(dice.below(static_cast<int>(members.size())));
    if (dice.oneIn(2)) return void(members.erase(members.begin() + index));
    Value& value = members[static_cast<std::size_t>(index)].second;
    if (value.text) value.text = dice.oneIn(2) ? "#445566" : "11";
}

}  // namespace

Trial randomTrial(unsigned seed) {
    Dice dice(seed);
    RandomProgram program(seed);
    Trial trial;
    const int count = randomCount(dice);
    if (dice.oneIn(2)) {
        trial.rules = NaturalStyle(dice).rules(count);
    } else {
        for (int i = 0; i < count; ++i) trial.rules.push_back(program.rule());
    }
    if (dice.oneIn(3)) trial.rules.push_back(dice.oneOf(trial.rules));
    trial.mapping = randomMapping(dice, program);
    if (trial.mapping) thinOut(*trial.mapping, trial.rules, dice);
    trial.variant = seed;
    return trial;
}

Rules variantOf(const Trial& trial) {
    Dice dice(trial.variant);
    Rules rules = trial.rules;
    if (rules.empty()) return rules;
    const auto index = static_cast<std::ptrdiff_t>(dice.below(static_cast<int>(rules.size())));
    switch (dice.below(4)) {
        case 0:
            rules.erase(rules.begin() + index);
            break;
        case 1:
            changeStyler(rules[static_cast<std::size_t>(index)], dice);
            break;
        case 2:
            std::swap(rules.front(), rules[static_cast<std::size_t>(index)]);
            break;
        default:
            rules.push_back(rules[static_cast<std::size_t>(index)]);
    }
    return rules;
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

namespace {

std::string textOf(const std::pair<std::string, Value>& member) {
    const auto& [name, value] = member;
    return customstyle_test::quoted(name) + ":" +
           (value.text ? customstyle_test::quoted(*value.text) : value.otherJson);
}

void append(WrittenStyle& style, const Rule& rule, std::size_t index) {
    const std::size_t begin = style.text.size();
    style.text += '{';
    for (const auto& member : rule.frame) style.text += textOf(member) + ",";
    style.text += rule.stylers ? "\"stylers\":{" : "\"stylers\":[]";
    for (std::size_t i = 0; rule.stylers && i < rule.stylers->size(); ++i) {
        if (i > 0) style.text += ',';
        const std::size_t memberBegin = style.text.size();
        style.text += textOf((*rule.stylers)[i]);
        style.members.push_back({index, i, memberBegin, style.text.size()});
    }
    style.text += rule.stylers ? "}}" : "}";
    style.members.push_back({index, {}, begin, style.text.size()});
}

}  // namespace

const WrittenMember* WrittenStyle::at(std::size_t offset) const {
    const auto holds = [&](const WrittenMember& member) { return member.begin <= offset && offset < member.end; };
    const auto found = std::ranges::find_if(members, holds);
    return found == members.end() ? nullptr : &*found;
}

WrittenStyle written(const Rules& rules) {
    WrittenStyle style;
    style.text = "[";
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (i > 0) style.text += ",\n ";
        append(style, rules[i], i);
    }
    style.text += "]\n";
    return style;
}

std::string written(const StyleIds& mapping) {
    nlohmann::ordered_json json;
    for (std::size_t type = 0; type < mapping.size(); ++type) json[model::kNames[type]] = mapping[type];
    return json.dump();
}

Rules readRules(std::string_view text) {
    Rules rules;
    for (const auto& each : nlohmann::ordered_json::parse(text)) {
        Rule& rule = rules.emplace_back();
        for (const auto& [name, value] : each.items()) {
            if (name != "stylers") rule.frame.push_back({name, {value.get<std::string>()}});
        }
        rule.stylers.emplace();
        for (const auto& [name, value] : each.at("stylers").items()) {
            rule.stylers->push_back({name, {value.get<std::string>()}});
        }
    }
    return rules;
}

}  // namespace customstyle_test::properties
