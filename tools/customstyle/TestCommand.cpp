// customstyle test: whether a style does what its author expects.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "customstyle/Command.h"
#include "expectations/ExpectationCheck.h"

namespace customstyle_tool {
namespace {

struct TestOptions {
    std::string styleFile;
    std::string expectationFile;
    std::optional<std::string> mappingDirectory;
};

int misuse(const std::string& text) {
    fmt::print(stderr, "customstyle: {}\n", text);
    return kMisuse;
}

std::string problemsText(const ExpectationFile& parsed, const SourceFile& file) {
    if (parsed.problems.empty() && parsed.expectations.empty()) {
        return fmt::format("{}: holds no expectation; \"customstyle test --help\" shows how to write them",
                           file.path());
    }
    std::vector<std::string> lines;
    for (const ExpectationProblem& problem : parsed.problems) {
        lines.push_back(fmt::format("{}: {}", file.place(problem.offset), problem.text));
    }
    return fmt::format("{}", fmt::join(lines, "\ncustomstyle: "));
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
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&style)) return misuse(failure->text);
    const auto file = readSource(options.expectationFile, "file of expectations");
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&file)) return misuse(failure->text);

    const SourceFile& text = *std::get<0>(file);
    if (text.text().find('\0') != std::string_view::npos) {
        return misuse(fmt::format("{}: holds NUL bytes; a file of expectations is a text", text.path()));
    }
    const LoadedStyle& loaded = *std::get<0>(style);
    const ExpectationFile parsed = parseExpectations(text, loaded.styleIds());
    if (!parsed.problems.empty() || parsed.expectations.empty()) return misuse(problemsText(parsed, text));
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
    command
        ->add_option("--mapping", options->mappingDirectory,
                     "Directory of the mapping file CustomIndex; without it, feature type T has the style id 1000 + T")
        ->type_name("DIR");
    command->footer(
        std::string(expectationHelp()) +
        "\n\nExit status: 0 when all expectations hold, 1 when some do not, 2 for wrong usage and files that\n"
        "cannot be read.");
    return {command, [options] { return test(*options); }};
}

}  // namespace customstyle_tool
