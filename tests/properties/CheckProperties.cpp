// What check claims: what it calls without effect is, alone and all together, and what it blames is to blame.
#include <algorithm>
#include <functional>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"
#include "tests/properties/Tool.h"
#include "tests/properties/Writes.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

// A rule, or one of its stylers by index.
struct Part {
    std::size_t rule;
    std::optional<std::size_t> styler;

    auto operator<=>(const Part&) const = default;
};

Part partAt(const WrittenStyle& style, const Json& range) {
    const WrittenMember* member = style.at(range.at("begin").at("offset").get<std::size_t>());
    if (member == nullptr) throw std::runtime_error("a finding outside all rules");
    return {member->rule, member->styler};
}

Rules without(Rules rules, std::vector<Part> parts) {
    std::ranges::sort(parts, std::greater<>());
    parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
    for (const auto& [rule, styler] : parts) {
        const auto at = rules.begin() + static_cast<std::ptrdiff_t>(rule);
        if (!styler) {
            at->stylers.reset();
        } else if (at->stylers) {
            at->stylers->erase(at->stylers->begin() + static_cast<std::ptrdiff_t>(*styler));
        }
    }
    return rules;
}

std::string nameOf(const Rules& rules, const Part& part) {
    return part.styler ? (*rules[part.rule].stylers)[*part.styler].first : "";
}

std::string textOf(const Rules& rules, const Part& part) {
    return "rule " + std::to_string(part.rule + 1) + " " + nameOf(rules, part);
}

class CheckedStyle {
public:
    explicit CheckedStyle(const Trial& trial)
        : m_rules(trial.rules),
          m_style(written(trial.rules)),
          m_map(mapFor(trial, {&trial.rules})),
          m_answers(m_map, m_rules) {
        std::vector<std::string> words = {"check", "--format", "json", fileWith("style.json", m_style.text)};
        for (const std::string& word : mappingArguments(trial)) words.push_back(word);
        const Json json = Json::parse(runTool(words).out);
        for (const Json& file : json.at("files")) {
            if (file.at("path") == words[3]) m_findings = file.at("findings");
        }
    }

    std::optional<Failure> fails() const {
        std::vector<Part> removals;  // so far: each claim holds with those before it followed
        for (const Json& finding : m_findings) {
            if (!finding.at("remedy").get<std::string>().starts_with("take it out")) continue;
            const Part part = partAt(m_style, finding.at("range"));
            removals.push_back(part);
            if (finding.at("code") != "no-effect") continue;
            if (auto failure = claimFails(part, removals)) return failure;
            if (auto failure = blameFails(finding, part)) return failure;
        }
        if (const auto changed = difference(m_answers, Answers(m_map, without(m_rules, removals)))) {
            return Failure{"all remedies together change nothing", *changed};
        }
        return {};
    }

private:
    std::optional<Failure> claimFails(const Part& part, const std::vector<Part>& removals) const {
        const auto changed = difference(m_answers, Answers(m_map, without(m_rules, removals)));
        if (!changed) return {};
        return Failure{"what has no effect changes nothing when left out", textOf(m_rules, part) + ": " + *changed};
    }

    std::optional<Failure> blameFails(const Json& finding, const Part& victim) const {
        if (finding.at("message").get<std::string>().find("overwrite") == std::string::npos) return {};
        for (const Json& related : finding.at("related")) {
            const Part culprit = partAt(m_style, related.at("range"));
            if (!isToBlame(victim, culprit)) {
                return Failure{"who overwrites a value comes later and writes it too",
                               textOf(m_rules, victim) + " by " + textOf(m_rules, culprit)};
            }
        }
        return {};
    }

    bool isToBlame(const Part& victim, const Part& culprit) const {
        const std::string victimName = nameOf(m_rules, victim);
        const std::string culpritName = nameOf(m_rules, culprit);
        const bool isLater =
            culprit.rule > victim.rule || (culprit.rule == victim.rule && turnOf(culpritName) > turnOf(victimName));
        const std::set<Write> lost = writesOf(m_rules[victim.rule], victimName);
        const std::set<Write> written = writesOf(m_rules[culprit.rule], culpritName);
        return isLater && std::ranges::any_of(lost, [&](const Write& write) {
                   return std::ranges::any_of(written, [&](const Write& later) { return doesAwayWith(later, write); });
               });
    }

    // A write to one level starts from the style for all levels, and does away with all that was there. What was
    // written for all levels is lost to it in the same field alone.
    static bool doesAwayWith(const Write& later, const Write& write) {
        const bool isOfLevel = write.first.find(':') != std::string::npos;
        if (later.first == write.first) return isOfLevel || later.second == write.second;
        return !isOfLevel && later.second == write.second && later.first.starts_with(write.first + ":");
    }

    const Rules& m_rules;
    WrittenStyle m_style;
    Map m_map;
    Answers m_answers;
    Json m_findings = Json::array();
};

}  // namespace

std::optional<Failure> checkHolds(const Trial& trial) {
    return CheckedStyle(trial).fails();
}

}  // namespace customstyle_test::properties
