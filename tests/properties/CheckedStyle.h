// A trial's style with what check finds in it.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"

namespace customstyle_test::properties {

/// A rule, or one of its stylers by index.
struct Part {
    std::size_t rule;
    std::optional<std::size_t> styler;

    auto operator<=>(const Part&) const = default;
};

class CheckedStyle {
public:
    /// @param trial  has to outlive this
    explicit CheckedStyle(const Trial& trial);

    const Trial& trial() const { return m_trial; }
    const Rules& rules() const { return m_trial.rules; }
    const Map& map() const { return m_map; }
    const Answers& answers() const { return m_answers; }
    /// Whether the map has style ids for a type that the component does not drop.
    bool hasRecords(int featureType) const;
    const nlohmann::json& findings() const { return m_findings; }

    /// What a finding, or what it names beside, is about.
    Part partAt(const nlohmann::json& place) const;

    /// The name of a styler; empty for a rule.
    std::string stylerOf(const Part& part) const;

    /// The rules without some of them and some of their stylers. A styler goes each time that it is there: where the
    /// first of two is gone, the second counts.
    Rules without(std::vector<Part> parts) const;

    /// "rule 2 color"
    std::string textOf(const Part& part) const;

private:
    const Trial& m_trial;
    WrittenStyle m_style;
    Map m_map;
    Answers m_answers;
    nlohmann::json m_findings = nlohmann::json::array();
};

/// Whether those who are blamed are to blame, and name whom they harm.
std::optional<Failure> blameFails(const CheckedStyle& style);

/// Whether what the findings say is so.
std::optional<Failure> reasonsFail(const CheckedStyle& style);

/// Whether they give all that the component logs about a rule, and nothing else.
std::optional<Failure> logFails(const CheckedStyle& style);

/// Whether they tell a text that the component refuses, and one that only it reads, from JSON. The text is that of the
/// trial with faults.
std::optional<Failure> jsonFails(const Trial& trial);

/// Whether they tell what a style does that needs nearly all slots of the store, or more.
std::optional<Failure> slotsFail(unsigned seed);

}  // namespace customstyle_test::properties
