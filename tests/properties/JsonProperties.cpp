// What check says of texts that are not, or not quite, JSON, against two other readers: the one that the component
// uses, and a strict one.
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <random>
#include <set>

#include "tests/properties/CheckedStyle.h"
#include "tests/properties/Tool.h"
#include "vi/vos/VJson.h"

namespace customstyle_test::properties {
namespace {

using Json = nlohmann::json;

std::string brokenText(const Trial& trial) {
    static const std::string kInserted[] = {"{",        "}",
                                            "[",        "]",
                                            ",",        ":",
                                            "\"",       "\\",
                                            "\\u0000",  "0",
                                            "-",        ".",
                                            "1.",       "007",
                                            "-.5",      "e",
                                            " ",        "\n",
                                            "\t",       "// x\n",
                                            "/* x */",  std::string(1, '\0'),
                                            "\xff",     "\xc3",
                                            "\xc3\xa4", "null",
                                            "\"x\"",    "[]",
                                            "{}",       "\"\\u0000\"",
                                            "12,"};
    std::mt19937 random(trial.variant);
    std::string text = written(trial.rules).text;
    if (random() % 20 == 0) text = "{\"a\":" + text.substr(1, text.size() - 3) + "}";
    if (random() % 40 == 0) text.clear();
    if (random() % 40 == 0) text = std::string(990 + random() % 20, '[') + text;
    for (std::size_t count = random() % 3; count > 0; --count) {
        const std::size_t at = random() % (text.size() + 1);
        text.replace(at, random() % 3 == 0 ? 1 : 0, kInserted[random() % std::size(kInserted)]);
    }
    if (random() % 10 == 0) text += kInserted[random() % std::size(kInserted)];
    if (random() % 20 == 0) text.resize(random() % (text.size() + 1));
    return text;
}

struct Checked {
    std::set<std::string> codes;
    std::size_t rulesNotObjects = 0;

    bool has(std::initializer_list<const char*> some) const {
        return std::ranges::any_of(some, [&](const char* code) { return codes.contains(code); });
    }
};

Checked checked(const std::string& text) {
    Checked said;
    const Json report = Json::parse(runTool({"check", "--format", "json", fileWith("style.json", text)}).out);
    for (const Json& file : report.at("files")) {
        for (const Json& finding : file.at("findings")) {
            said.codes.insert(finding.at("code"));
            if (finding.at("code") == "rule-not-object") ++said.rulesNotObjects;
        }
    }
    return said;
}

bool hasNul(const Json& value) {
    if (value.is_string()) return value.get_ref<const std::string&>().find('\0') != std::string::npos;
    if (!value.is_structured()) return false;
    for (const auto& [name, member] : value.items()) {
        if (hasNul(member) || (value.is_object() && name.find('\0') != std::string::npos)) return true;
    }
    return false;
}

// What is said of a text that a strict reader takes.
std::optional<std::string> strictTextFails(const Json& root, const Checked& said) {
    const bool isList = root.is_array() || root.is_object();
    const auto others = isList ? std::ranges::count_if(root, [](const Json& each) { return !each.is_object(); }) : 0;
    if (said.has({"json-lenient", "text-after-end"})) return "what all read is not called unusual";
    if (said.has({"not-a-list"}) == root.is_array()) return "what is not a list is called so";
    if (said.has({"no-rules"}) != (isList && root.empty())) return "a style without rules is called so";
    if (said.has({"text-cut-at-nul"}) != hasNul(root)) return "texts with a zero character are reported";
    if (said.rulesNotObjects != static_cast<std::size_t>(others)) return "each rule that is no object is reported";
    return {};
}

}  // namespace

std::optional<Failure> jsonFails(const Trial& trial) {
    const std::string text = brokenText(trial);
    const Checked said = checked(text);
    const std::unique_ptr<_orvik_vi::cJSON, decltype(&_orvik_vi::cJSON_Delete)> tree(_orvik_vi::cJSON_Parse(text, 1),
                                                                                     _orvik_vi::cJSON_Delete);
    const bool isRefused = said.has({"json-syntax", "json-comment", "json-too-deep", "json-encoding", "json-empty"});
    if (isRefused != (tree == nullptr)) return Failure{"what the component refuses is called an error", text};
    const Json root = Json::parse(text, nullptr, false);
    if (isRefused) return {};
    if (!root.is_discarded()) {
        const auto claim = strictTextFails(root, said);
        return claim ? std::optional(Failure{*claim, text}) : std::nullopt;
    }
    if (!said.has({"json-lenient", "text-after-end"})) return Failure{"what others refuse is reported", text};
    return {};
}

}  // namespace customstyle_test::properties
