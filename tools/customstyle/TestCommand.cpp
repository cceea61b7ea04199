// customstyle test: whether a style does what its author expects.
#include <fmt/format.h>

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/TestReport.h"
#include "tools/expectations/ExpectationCheck.h"
#include "tools/expectations/Recording.h"
#include "tools/host/Files.h"

namespace customstyle_tool {
namespace {

struct TestArguments : StyleArguments {
    std::string expectations;
    std::string format = "text";
    std::string color = "auto";
    bool record = false;
    bool quiet = false;
};

class TestRun {
public:
    explicit TestRun(TestArguments arguments) : m_arguments(std::move(arguments)) {}

    int run() {
        if (!findMapping(m_arguments, {m_arguments.style})) return kMisuse;
        m_style = loadOrComplain(m_arguments.style, m_arguments.mappingDirectory);
        if (m_style == nullptr) return kMisuse;
        if (m_arguments.record) return record();
        auto read = readSource(m_arguments.expectations, "file of expectations");
        if (const ReadFailure* failure = std::get_if<ReadFailure>(&read)) return complainOf(*failure);
        m_file = std::get<0>(std::move(read));
        return judge();
    }

private:
    int record() const {
        print(recording(*m_style));
        return kGood;
    }

    int judge() {
        if (m_file->text().find('\0') != std::string_view::npos) {
            return complain(fmt::format("{}: has NUL bytes; a file of expectations is plain text", m_file->path()));
        }
        ExpectationFile parsed = parseExpectations(*m_file, m_style->mapping());
        if (!parsed.problems.empty()) return complainOfProblems(parsed.problems);
        if (parsed.expectations.empty()) {
            return complain(fmt::format("{}: has no expectation; \"customstyle test --help\" shows how to write them",
                                        m_file->path()));
        }
        std::vector<Expectation> all;
        for (const Expectation& each : parsed.expectations) {
            if (!addMeant(all, each)) return kMisuse;
        }
        return report(parsed.expectations, all);
    }

    int complainOfProblems(const std::vector<ExpectationProblem>& problems) const {
        for (const ExpectationProblem& problem : problems) {
            complain(fmt::format("{}: {}", m_file->place(problem.offset), problem.text));
        }
        if (problems.size() < kMostProblems) return kMisuse;
        return complain(fmt::format("{}: too many problems; the rest is not read", m_file->path()));
    }

    // What an expectation means: itself, or all answers of another style.
    bool addMeant(std::vector<Expectation>& all, const Expectation& expectation) {
        if (expectation.aspect != Aspect::AsIn) {
            all.push_back(expectation);
            return true;
        }
        const StyleStudy* const other = otherStyle(expectation.otherStyle);
        if (other == nullptr) return false;
        const std::vector<Expectation> meant = recorded(expectation, *other);
        all.insert(all.end(), meant.begin(), meant.end());
        return true;
    }

    // Beside the file of expectations, and loaded once; null after a complaint.
    const StyleStudy* otherStyle(const std::string& name) {
        const std::string path = (std::filesystem::path(m_file->path()).parent_path() / name).string();
        const auto [known, isNew] = m_others.try_emplace(path);
        if (isNew) known->second = loadOrComplain(path, m_arguments.mappingDirectory);
        return known->second.get();
    }

    int report(const std::vector<Expectation>& lines, const std::vector<Expectation>& all) const {
        const std::vector<ExpectationFailure> failures = failuresOf(all, *m_style);
        if (m_arguments.format == "junit") {
            print(junitReport(lines, failures, *m_file, *m_style));
            return failures.empty() ? kGood : kFinding;
        }
        const Swatches swatches = isColored(m_arguments.color) ? Swatches::Shown : Swatches::None;
        print(failuresText(failures, *m_file, *m_style, swatches));
        std::set<std::size_t> failed;
        for (const ExpectationFailure& failure : failures) failed.insert(failure.expectation->offset);
        if (!m_arguments.quiet || !failures.empty()) {
            fmt::print("{} of {} {}\n", lines.size() - failed.size(), lines.size(),
                       lines.size() == 1 ? "expectation holds" : "expectations hold");
        }
        return failures.empty() ? kGood : kFinding;
    }

    TestArguments m_arguments;
    std::unique_ptr<StyleStudy> m_style;
    std::unique_ptr<SourceFile> m_file;
    std::map<std::string, std::unique_ptr<StyleStudy>> m_others;
};

int test(const TestArguments& arguments) {
    if (arguments.record != arguments.expectations.empty()) {
        return complain(arguments.record ? "--record prints expectations and takes no file of them"
                                         : "test needs EXPECTATIONS; run customstyle test --help for more");
    }
    return TestRun(arguments).run();
}

std::vector<Option> optionsOf(TestArguments& arguments) {
    std::vector<Option> options{styleOption(arguments.style),
                                {.names = "EXPECTATIONS",
                                 .help = "File of expectations",
                                 .target = &arguments.expectations,
                                 .offer = Offer::Files}};
    addMappingOptions(options, arguments);
    options.push_back({.names = "--record",
                       .help = "Do not test; print expectations for all answers of STYLE",
                       .target = &arguments.record});
    options.push_back(formatOption(arguments.format, {{"text", "for people"}, {"junit", "XML for build servers"}}));
    options.push_back(colorOption(arguments.color));
    options.push_back(
        {.names = "-q,--quiet", .help = "Print nothing when all expectations hold", .target = &arguments.quiet});
    return options;
}

Command testCommand() {
    const auto arguments = std::make_shared<TestArguments>();
    return {.name = "test",
            .purpose = Purpose::Judge,
            .summary = "Test a style file against a file of expectations",
            .description = {expectationHelp()},
            .options = optionsOf(*arguments),
            .statuses = {{0, "All expectations hold"},
                         {1, "Some do not"},
                         {2, "Wrong usage, or a file that cannot be read"}},
            .examples = {{"whether the night style still does what it should",
                          "customstyle test night.json night.expectations --mapping map"},
                         {"keep what a style does today",
                          "customstyle test night.json --mapping map --record > night.expectations"}},
            .run = [arguments] { return test(*arguments); }};
}

const Registration testRegistration(testCommand);

}  // namespace
}  // namespace customstyle_tool
