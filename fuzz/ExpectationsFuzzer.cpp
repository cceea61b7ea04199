// Files of expectations: each line is read on its own, so a line alone says the same as within its file.
#include <algorithm>
#include <string>

#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/Require.h"
#include "tools/expectations/Expectations.h"

namespace {

using namespace customstyle_tool;
using customstyle_fuzz::require;

bool isSame(const Expectation& left, const Expectation& right) {
    return left.text == right.text && left.featureType == right.featureType && left.styleId == right.styleId &&
           left.levels == right.levels && left.aspect == right.aspect && left.topic == right.topic &&
           left.value == right.value;
}

void requireSameAlone(const Expectation& expectation, const Mapping& mapping) {
    const SourceFile line("line", expectation.text);
    const ExpectationFile alone = parseExpectations(line, mapping);
    require(alone.problems.empty() && alone.expectations.size() == 1, "a line alone is no expectation");
    require(isSame(alone.expectations.front(), expectation), "a line alone says something else");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Mapping mapping = Mapping::standard();
    const std::string_view text = customstyle_fuzz::FuzzInput(data, size).rest();
    const SourceFile file("expectations", std::string(text));
    const ExpectationFile parsed = parseExpectations(file, mapping);
    require(parsed.problems.size() <= kMostProblems, "too many problems");
    require(std::ranges::is_sorted(parsed.problems, {}, &ExpectationProblem::offset), "problems out of order");
    for (const ExpectationProblem& problem : parsed.problems) {
        require(problem.offset <= text.size() && !problem.text.empty(), "a problem without a place or words");
    }
    for (const Expectation& expectation : parsed.expectations) {
        require(text.substr(expectation.offset, expectation.text.size()) == expectation.text, "a text out of place");
        require(expectation.levels.any(), "an expectation of no level");
        requireSameAlone(expectation, mapping);
    }
    return 0;
}
