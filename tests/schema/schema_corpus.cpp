// Prints styles, a JSON object a line: the style, whether each styler of each rule does something on an empty map
// without complaint, and the number of findings of the check where it was asked.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>

#include "tests/schema/StyleCorpus.h"
#include "tools/check/StyleCheck.h"
#include "tools/study/Mapping.h"
#include "tools/study/StyleSource.h"
#include "tools/study/TracedReplay.h"

namespace {

using namespace customstyle_test;
using namespace customstyle_tool;

bool leavesAStyle(const ReplayStep& step) {
    const auto isCustomised = [](const RecordTouch& touch) { return touch.after.m_custom != 0; };
    return step.gridColor || step.hidesEveryIcon || std::ranges::any_of(step.touches, isCustomised);
}

// "on" that hides does not do what it says.
bool isHiddenByOn(const ReplayStep& step, std::string_view style) {
    return step.hidesEveryIcon && style.find(R"("on")") != std::string_view::npos;
}

bool doesSomething(const std::string& text) {
    const SourceFile file("style.json", text);
    const TracedReplay replay(Mapping::standard().tracedTree(),
                              singleRules(StyleSource(file, std::get<JsonDocument>(parseJson(file.text())))));
    return std::ranges::all_of(replay.steps(), [&](const ReplayStep& step) {
        return step.log.empty() && leavesAStyle(step) && !isHiddenByOn(step, text);
    });
}

std::size_t findingsIn(const std::string& text) {
    const auto file = std::make_shared<SourceFile>("style.json", text);
    return checkStyle(file, Mapping::standard()).findings.size();
}

void print(const char* part, const std::vector<CorpusStyle>& styles) {
    for (const auto& [text, isAsked] : styles) {
        nlohmann::json line{{"part", part}, {"style", nlohmann::json::parse(text)}, {"works", doesSomething(text)}};
        if (isAsked) line["findings"] = findingsIn(text);
        std::printf("%s\n", line.dump().c_str());
    }
}

}  // namespace

int main() try {
    print("single", singleStylers());
    print("peculiar", peculiarStyles());
    print("random", randomStyles());
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
