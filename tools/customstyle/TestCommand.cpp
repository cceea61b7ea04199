// customstyle test: whether a style does what its author expects.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/expectations/ExpectationCheck.h"
#include "tools/host/Files.h"

namespace customstyle_tool {
namespace {

struct TestArguments {
    std::string styleFile;
    std::string expectationFile;
    std::optional<std::string> mappingDirectory;
    std::string color = "auto";
};

int complainOf(const std::vector<ExpectationProblem>& problems, const SourceFile& file) {
    for (const ExpectationProblem& problem : problems) {
        complain(fmt::format("{}: {}", file.place(problem.offset), problem.text));
    }
    if (problems.size() < kMostProblems) return kMisuse;
    return complain(fmt::format("{}: has not been read further, with so many problems", file.path()));
}

int report(const ExpectationFile& parsed, const SourceFile& file, const StyleStudy& style, bool isInColor) {
    const std::vector<ExpectationFailure> failures = failuresOf(parsed.expectations, style);
    fmt::print("{}", failuresText(failures, file, style, isInColor ? Swatches::Shown : Swatches::None));
    std::set<const Expectation*> failed;
    for (const ExpectationFailure& failure : failures) failed.insert(failure.expectation);
    fmt::print("{} of {} expectations hold\n", parsed.expectations.size() - failed.size(), parsed.expectations.size());
    return failures.empty() ? kGood : kFinding;
}

int test(const TestArguments& arguments) {
    const auto style = loadOrComplain(arguments.styleFile, arguments.mappingDirectory);
    if (style == nullptr) return kMisuse;
    const auto file = readSource(arguments.expectationFile, "file of expectations");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&file)) return complainOf(*failure);

    const SourceFile& text = *std::get<0>(file);
    if (text.text().find('\0') != std::string_view::npos) {
        return complain(fmt::format("{}: holds NUL bytes; a file of expectations is a text", text.path()));
    }
    const ExpectationFile parsed = parseExpectations(text, style->mapping());
    if (!parsed.problems.empty()) return complainOf(parsed.problems, text);
    if (parsed.expectations.empty()) {
        return complain(
            fmt::format("{}: holds no expectation; \"customstyle test --help\" shows how to write them", text.path()));
    }
    return report(parsed, text, *style, isColored(arguments.color));
}

Command testCommand() {
    const auto arguments = std::make_shared<TestArguments>();
    return {.name = "test",
            .purpose = Purpose::Judge,
            .summary = "Test a style file against a file of expectations",
            .description = {expectationHelp()},
            .options = {styleOption(arguments->styleFile),
                        {.names = "EXPECTATIONS",
                         .help = "File of expectations",
                         .target = &arguments->expectationFile,
                         .offer = Offer::Files,
                         .isRequired = true},
                        mappingOption(arguments->mappingDirectory),
                        colorOption(arguments->color)},
            .statuses = {{0, "All expectations hold"},
                         {1, "Some do not"},
                         {2, "Wrong usage, or a file that cannot be read"}},
            .examples = {{"whether the night style still does what it should",
                          "customstyle test night.json night.expectations --mapping map"}},
            .run = [arguments] { return test(*arguments); }};
}

const Registration registration(testCommand);

}  // namespace
}  // namespace customstyle_tool
