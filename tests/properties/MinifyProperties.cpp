// What minify promises: the same answers, no longer, and nothing left to do.
#include <algorithm>
#include <stdexcept>

#include "tests/properties/Answers.h"
#include "tests/properties/Properties.h"
#include "tests/properties/Tool.h"

namespace customstyle_test::properties {
namespace {

// Whether a rule is there twice and either could go. Where a rule for a level comes between them, both can be needed.
bool hasNeedlessTwins(const Map& map, const Rules& rules) {
    const Answers wanted(map, rules);
    for (std::size_t i = 0; i < rules.size(); ++i) {
        const auto isTwin = [&](const Rule& other) { return &other != &rules[i] && jsonOf(other) == jsonOf(rules[i]); };
        if (std::ranges::none_of(rules, isTwin)) continue;
        Rules rest = rules;
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
        if (!difference(wanted, Answers(map, rest))) return true;
    }
    return false;
}

}  // namespace

std::string minifiedText(const Trial& trial, const std::string& text) {
    std::vector<std::string> words = {"minify", "--stdout", fileWith("style.json", text)};
    for (const std::string& word : mappingArguments(trial)) words.push_back(word);
    const Run run = runTool(words);
    if (run.status != 0) throw std::runtime_error("minify: " + run.err);
    return run.out;
}

std::optional<Failure> minifyHolds(const Trial& trial) {
    const std::string text = written(trial.rules).text;
    const std::string small = minifiedText(trial, text);
    const Rules rules = readRules(small);
    const Map map = mapFor(trial, {&trial.rules});
    if (const auto changed = difference(Answers(map, trial.rules), Answers(map, rules))) {
        return Failure{"a minified style has the same answers", *changed + "\n" + small};
    }
    if (small.size() > text.size()) return Failure{"a minified style is not longer", small};
    if (hasNeedlessTwins(map, rules))
        return Failure{"a minified style has no two equal rules of which one can go", small};
    const std::string again = minifiedText(trial, small);
    if (again != small) return Failure{"minified again it is the same", small + again};
    return {};
}

}  // namespace customstyle_test::properties
