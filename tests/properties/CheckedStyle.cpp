#include "tests/properties/CheckedStyle.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "tests/properties/Tool.h"

namespace customstyle_test::properties {

namespace {

using Json = nlohmann::json;

std::string inSmallLetters(std::string text) {
    std::ranges::transform(text, text.begin(), [](char each) { return each >= 'A' && each <= 'Z' ? each + 32 : each; });
    return text;
}

}  // namespace

CheckedStyle::CheckedStyle(const Trial& trial)
    : m_trial(trial),
      m_style(written(trial.rules)),
      m_map(mapFor(trial, {&trial.rules})),
      m_answers(m_map, trial.rules) {
    std::vector<std::string> words = {"check", "--format", "json", fileWith("style.json", m_style.text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
    if (trial.variant % 4 == 0) words.emplace_back("--effects");
    const Json json = Json::parse(runTool(words).out);
    for (const Json& file : json.at("files")) {
        if (file.at("path") == words[3]) m_findings = file.at("findings");
    }
}

Part CheckedStyle::partAt(const Json& place) const {
    const WrittenMember* member = m_style.at(place.at("range").at("begin").at("offset").get<std::size_t>());
    if (member == nullptr) throw std::runtime_error("a finding outside all rules");
    return {member->rule, member->styler};
}

bool CheckedStyle::hasRecords(int featureType) const {
    const auto base = m_answers.model().base.find(featureType);
    return base != m_answers.model().base.end() && !base->second.empty();
}

std::string CheckedStyle::stylerOf(const Part& part) const {
    return part.styler ? (*rules()[part.rule].stylers)[*part.styler].first : "";
}

Rules CheckedStyle::without(std::vector<Part> parts) const {
    Rules rules = m_trial.rules;
    std::ranges::sort(parts, std::greater<>());
    parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
    for (const auto& [rule, styler] : parts) {
        const auto at = rules.begin() + static_cast<std::ptrdiff_t>(rule);
        if (!styler) {
            at->stylers.reset();
        } else if (at->stylers && *styler < at->stylers->size()) {
            const std::string name = inSmallLetters((*at->stylers)[*styler].first);
            std::erase_if(*at->stylers, [&](const auto& each) { return inSmallLetters(each.first) == name; });
        }
    }
    return rules;
}

std::string CheckedStyle::textOf(const Part& part) const {
    return "rule " + std::to_string(part.rule + 1) + " " + stylerOf(part);
}

}  // namespace customstyle_test::properties
