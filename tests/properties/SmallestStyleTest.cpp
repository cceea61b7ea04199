// Minified styles against the best that a search finds.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"

namespace customstyle_test::properties {
namespace {

constexpr const char* kPaths[] = {"all",      "fill",       "icon",     "labels",   "stroke",        "topsurface",
                                  "geometry", "all.stroke", "all.fill", "all.icon", "all.topsurface"};

using Stylers = model::Members;

// Rules as authors write them, for one type.
class SmallStyle {
public:
    explicit SmallStyle(unsigned seed) : m_random(seed) {}

    Rules rules() {
        const char* const types[] = {"highway", "water", "city", "poilabel", "education"};
        const std::string type = types[m_random() % std::size(types)];
        Rules rules;
        for (int count = 2 + static_cast<int>(m_random() % 3); count > 0; --count) rules.push_back(rule(type));
        return rules;
    }

private:
    Rule rule(const std::string& type) {
        const char* const paths[] = {"geometry.fill", "geometry.stroke",  "geometry.topsurface", "geometry",
                                     "labels",        "labels.text.fill", "labels.text.stroke",  "all"};
        Rule rule;
        rule.frame = {{"featureType", {type}}, {"elementType", {paths[m_random() % std::size(paths)]}}};
        rule.stylers.emplace();
        if (m_random() % 4 != 0) rule.stylers->push_back({"color", {"#112233"}});
        if (rule.stylers->empty() || m_random() % 4 == 0) rule.stylers->push_back({"weight", {"2"}});
        if (m_random() % 4 == 0) rule.stylers->push_back({"level", {"12"}});
        return rule;
    }

    std::mt19937 m_random;
};

// Every rule that says one or two of the things that the style says.
class EveryRule {
public:
    explicit EveryRule(const Rules& style) {
        for (const Rule& rule : style) {
            for (const auto& member : *rule.stylers) add(member);
        }
        for (const char* path : kPaths) {
            for (const std::string& level : m_levels) addRules(*style.front().frame.front().second.text, path, level);
        }
        std::ranges::sort(m_rules, {}, &Sized::size);
    }

    struct Sized {
        Rule rule;
        std::size_t size;
    };
    const std::vector<Sized>& rules() const { return m_rules; }

private:
    void add(const std::pair<std::string, model::Value>& member) {
        if (member.first == "level") {
            if (m_levels.size() == 1) m_levels.push_back(*member.second.text);
        } else if (std::ranges::none_of(m_stylers, [&](const auto& known) { return known.first == member.first; })) {
            m_stylers.push_back(member);
        }
    }

    void addRules(const std::string& type, const char* path, const std::string& level) {
        for (std::size_t set = 1; set < std::size_t{1} << m_stylers.size(); ++set) {
            Rule rule;
            rule.frame = {{"featureType", {type}}, {"elementType", {path}}};
            rule.stylers.emplace();
            for (std::size_t i = 0; i < m_stylers.size(); ++i) {
                if ((set >> i & 1) != 0) rule.stylers->push_back(m_stylers[i]);
            }
            if (!level.empty()) rule.stylers->push_back({"level", {level}});
            m_rules.push_back({rule, jsonOf(rule).size()});
        }
    }

    Stylers m_stylers;
    std::vector<std::string> m_levels{""};
    std::vector<Sized> m_rules;
};

// The shortest of all styles of one and two rules with the same answers on every map, if shorter than the limit.
std::optional<Rules> shortest(const Rules& style, std::size_t limit) {
    const Map map = mapOfAllPairs({&style});
    const Answers wanted(map, style);
    const EveryRule every(style);
    const auto isSame = [&](const Rules& rules) { return !difference(wanted, Answers(map, rules)); };
    std::optional<Rules> best;
    const std::size_t brackets = 2;
    for (const auto& [first, size] : every.rules()) {
        if (size + brackets >= limit) break;
        if (isSame({first})) return Rules{first};
    }
    for (const auto& [first, size] : every.rules()) {
        for (const auto& [second, otherSize] : every.rules()) {
            const std::size_t whole = size + otherSize + brackets + 1;
            if (whole >= limit) break;
            if (!isSame({first, second})) continue;
            best = Rules{first, second};
            limit = whole;
        }
    }
    return best;
}

class SmallestStyle : public testing::TestWithParam<unsigned> {};

TEST_P(SmallestStyle, IsNotMuchSmallerThanTheMinifiedOne) {
    const Trial trial{SmallStyle(GetParam()).rules(), {}, 0};
    std::string small = minifiedText(trial, written(trial.rules).text);
    small.pop_back();  // the line end
    const auto best = shortest(trial.rules, small.size() * 95 / 100);
    EXPECT_FALSE(best) << written(trial.rules).text << "minified " << small << "\nshorter " << written(*best).text;
}

INSTANTIATE_TEST_SUITE_P(Styles, SmallestStyle, testing::Range(1U, 31U));

}  // namespace
}  // namespace customstyle_test::properties
