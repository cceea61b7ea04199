// customstyle test: whether a style does what its author expects.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/expectations/ExpectationCheck.h"

namespace customstyle_tool {
namespace {

struct TestOptions {
    std::string styleFile;
    std::string expectationFile;
    std::optional<std::string> mappingDirectory;
};

int complainOf(const std::vector<ExpectationProblem>& problems, const SourceFile& file) {
    for (const ExpectationProblem& problem : problems) {
        complain(fmt::format("{}: {}", file.place(problem.offset), problem.text));
    }
    if (problems.size() < kMostProblems) return kMisuse;
    return complain(fmt::format("{}: has not been read further, with so many problems", file.path()));
}

int report(const ExpectationFile& parsed, const SourceFile& file, const LoadedStyle& style) {
    const std::vector<ExpectationFailure> failures = failuresOf(parsed.expectations, style);
    fmt::print("{}", failuresText(failures, file, style, swatchesForOutput()));
    std::set<const Expectation*> failed;
    for (const ExpectationFailure& failure : failures) failed.insert(failure.expectation);
    fmt::print("{} of {} expectations hold\n", parsed.expectations.size() - failed.size(), parsed.expectations.size());
    return failures.empty() ? kGood : kFinding;
}

int test(const TestOptions& options) {
    const StyleOrFailure style = loadStyle(options.styleFile, options.mappingDirectory);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&style)) return complain(failure->text);
    const auto file = readSource(options.expectationFile, "file of expectations");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&file)) return complain(failure->text);

    const SourceFile& text = *std::get<0>(file);
    if (text.text().find('\0') != std::string_view::npos) {
        return complain(fmt::format("{}: holds NUL bytes; a file of expectations is a text", text.path()));
    }
    const LoadedStyle& loaded = *std::get<0>(style);
    const ExpectationFile parsed = parseExpectations(text, loaded.styleIds());
    if (!parsed.problems.empty()) return complainOf(parsed.problems, text);
    if (parsed.expectations.empty()) {
        return complain(
            fmt::format("{}: holds no expectation; \"customstyle test --help\" shows how to write them", text.path()));
    }
    return report(parsed, text, loaded);
}

}  // namespace

Command testCommand(CLI::App& program) {
    const auto options = std::make_shared<TestOptions>();
    CLI::App* command = program.add_subcommand("test", "Test a style file against a file of expectations");
    command->add_option("STYLE", options->styleFile, "Style file")->type_name("FILE")->required();
    command->add_option("EXPECTATIONS", options->expectationFile, "File of expectations")
        ->type_name("FILE")
        ->required();
    addMapping(*command, options->mappingDirectory);
    command->footer(
        std::string(expectationHelp()) +
        "\n\nExit status: 0 when all expectations hold, 1 when some do not, 2 for wrong usage and files that\n"
        "cannot be read.");
    return {command, [options] { return test(*options); }};
}

}  // namespace customstyle_tool
