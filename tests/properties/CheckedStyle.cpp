#include "tests/properties/CheckedStyle.h"

#include <stdexcept>

#include "tests/properties/Tool.h"

namespace customstyle_test::properties {

using Json = nlohmann::json;

CheckedStyle::CheckedStyle(const Trial& trial)
    : m_trial(trial),
      m_style(written(trial.rules)),
      m_map(mapFor(trial, {&trial.rules})),
      m_answers(m_map, trial.rules) {
    std::vector<std::string> words = {"check", "--format", "json", fileWith("style.json", m_style.text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
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

std::string CheckedStyle::stylerOf(const Part& part) const {
    return part.styler ? (*rules()[part.rule].stylers)[*part.styler].first : "";
}

std::string CheckedStyle::textOf(const Part& part) const {
    return "rule " + std::to_string(part.rule + 1) + " " + stylerOf(part);
}

}  // namespace customstyle_test::properties
