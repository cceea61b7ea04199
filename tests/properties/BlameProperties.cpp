// Whom check blames: who overwrites a value, who says the same, who hides what others have set.
#include <algorithm>
#include <set>
#include <span>

#include "tests/model_check/ModelTables.h"
#include "tests/properties/CheckedStyle.h"
#include "tests/properties/Writes.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

bool says(const Json& finding, const char* words) {
    return finding.at("message").get<std::string>().find(words) != std::string::npos;
}

std::string numberOf(const Part& part) {
    return "rule " + std::to_string(part.rule + 1);
}

class Blame {
public:
    explicit Blame(const CheckedStyle& style) : m_style(style) {}

    std::optional<Failure> fails() const {
        for (const Json& finding : m_style.findings()) {
            if (auto failure = writesFail(finding)) return failure;
            if (finding.at("code") == "hidden-by-rule") {
                if (auto failure = victimFails(finding)) return failure;
            }
            if (finding.at("code") == "element-matches-nothing") {
                if (auto failure = culpritFails(finding)) return failure;
            }
        }
        return hiddenFails();
    }

private:
    // ---- Who writes the values ----

    std::optional<Failure> writesFail(const Json& finding) const {
        if (finding.at("code") != "no-effect") return {};
        const Part part = m_style.partAt(finding);
        if (says(finding, "overwrite")) return overwriteFails(part, related(finding));
        if (says(finding, "the same as")) return sameFails(part, related(finding));
        return {};
    }

    std::vector<Part> related(const Json& finding) const {
        std::vector<Part> parts;
        for (const Json& place : finding.at("related")) parts.push_back(m_style.partAt(place));
        return parts;
    }

    std::optional<Failure> overwriteFails(const Part& victim, const std::vector<Part>& culprits) const {
        const Written lost = written(victim);
        std::set<Write> covered;
        for (const Part& culprit : culprits) {
            bool isToBlame = false;
            for (const auto& entry : written(culprit)) {
                const Write& write = entry.first;
                covered.insert(write);
                isToBlame |= std::ranges::any_of(lost, [&](const auto& each) { return reaches(write, each.first); });
            }
            if (!isToBlame || !isLater(culprit, victim)) {
                return failure("who overwrites a value comes later and writes it too", victim, culprit);
            }
        }
        for (const auto& [write, value] : lost) {
            if (covered.contains(write)) continue;
            return Failure{"what is overwritten is overwritten in each record",
                           m_style.textOf(victim) + ": " + write.first + " " + write.second};
        }
        return {};
    }

    // The same write, or one that a level would have taken over.
    static bool reaches(const Write& later, const Write& earlier) {
        return later.second == earlier.second &&
               (later.first == earlier.first || later.first.starts_with(earlier.first + ":"));
    }

    std::optional<Failure> sameFails(const Part& part, const std::vector<Part>& others) const {
        for (const auto& entry : written(part)) {
            const Write& write = entry.first;
            const std::uint64_t value = entry.second;
            const Write ofAll{write.first.substr(0, write.first.find(':')), write.second};
            const bool isSaid = std::ranges::any_of(others, [&](const Part& other) {
                const Written theirs = written(other);
                const auto found = theirs.contains(write) ? theirs.find(write) : theirs.find(ofAll);
                return found != theirs.end() && found->second == value;
            });
            if (!isSaid) {
                return Failure{"who says the same writes the same values",
                               m_style.textOf(part) + ": " + write.first + " " + write.second};
            }
        }
        return {};
    }

    bool isLater(const Part& culprit, const Part& victim) const {
        return culprit.rule > victim.rule ||
               (culprit.rule == victim.rule && turnOf(m_style.stylerOf(culprit)) > turnOf(m_style.stylerOf(victim)));
    }

    // What a part writes for types that the map has style ids for.
    Written written(const Part& part) const {
        Written all =
            valuesOf(m_style.rules()[part.rule], m_style.stylerOf(part), std::span(m_style.rules()).first(part.rule));
        std::erase_if(all, [&](const auto& each) {
            const auto type = std::strtoul(each.first.first.c_str(), nullptr, 10);
            return isRecord(each.first) && isUnmapped(type);
        });
        return all;
    }

    static bool isRecord(const Write& write) { return write.first[0] >= '0' && write.first[0] <= '9'; }

    bool isUnmapped(std::size_t type) const {
        return m_style.trial().mapping && !m_style.hasRecords(static_cast<int>(type));
    }

    // ---- Who hides what ----

    // The finding of a code about a part.
    const Json* find(const char* code, const Part& part) const {
        for (const Json& finding : m_style.findings()) {
            if (finding.at("code") == code && m_style.partAt(finding) == part) return &finding;
        }
        return nullptr;
    }

    bool names(const Json& finding, const Part& part) const {
        const std::vector<Part> parts = related(finding);
        return std::ranges::find(parts, part) != parts.end();
    }

    std::optional<Failure> victimFails(const Json& finding) const {
        const Part victim = m_style.partAt(finding);
        const std::vector<Part> culprits = related(finding);
        if (culprits.size() != 1 || !says(finding, numberOf(culprits[0]).c_str())) {
            return Failure{"a victim names its culprit", m_style.textOf(victim)};
        }
        const Json* blamed = find("element-matches-nothing", culprits[0]);
        if (blamed == nullptr || !names(*blamed, victim)) {
            return failure("a culprit names every victim", victim, culprits[0]);
        }
        return {};
    }

    std::optional<Failure> culpritFails(const Json& finding) const {
        const Part culprit = m_style.partAt(finding);
        for (const Part& victim : related(finding)) {
            const bool isNamed = std::ranges::any_of(m_style.findings(), [&](const Json& other) {
                return other.at("code") == "hidden-by-rule" && m_style.partAt(other) == victim && names(other, culprit);
            });
            if (!isNamed) return failure("each victim of a culprit names it", victim, culprit);
        }
        return {};
    }

    // Where the model has values in a record that is out of use, there is a finding.
    std::optional<Failure> hiddenFails() const {
        for (const auto& [key, records] : m_style.answers().model().slots) {
            const std::size_t type = std::strtoul(key.c_str(), nullptr, 10);
            if (type > 71 || isUnmapped(type) || records.empty() || !isHidden(records.begin()->second)) continue;
            const std::string name = "\"" + model::kNames[type] + "\"";
            const bool isReported = std::ranges::any_of(m_style.findings(), [&](const Json& finding) {
                return finding.at("code") == "hidden-by-rule" && says(finding, name.c_str());
            });
            if (!isReported) return Failure{"what is out of use is reported to those who set it", key};
        }
        return {};
    }

    static bool isHidden(const model::Record& record) {
        return !record.contains("custom") &&
               std::ranges::any_of(record, [](const auto& field) { return field.first.ends_with("Set"); });
    }

    Failure failure(const char* claim, const Part& victim, const Part& culprit) const {
        return {claim, m_style.textOf(victim) + " by " + m_style.textOf(culprit)};
    }

    const CheckedStyle& m_style;
};

}  // namespace

std::optional<Failure> blameFails(const CheckedStyle& style) {
    return Blame(style).fails();
}

}  // namespace customstyle_test::properties
