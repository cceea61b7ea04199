// customstyle check: what the component refuses, drops or changes in style files, and what has no effect.
#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/check/MappingCheck.h"
#include "tools/check/Report.h"
#include "tools/check/StyleCheck.h"
#include "tools/check/WhatIf.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/replay/MappingSource.h"
#include "tools/support/LoadedMap.h"

namespace customstyle_tool {
namespace {

struct CheckArguments {
    std::vector<std::string> files;
    std::optional<std::string> mappingDirectory;
    std::string format = "text";
    bool warningsAreErrors = false;
    bool effects = false;
    bool codes = false;
    bool codesMarkdown = false;
};

// A line on the terminal that shows how far the proofs have come.
class ProgressLine {
public:
    explicit ProgressLine(std::string path) : m_path(std::move(path)) {}
    ~ProgressLine() {
        if (m_isShown) fmt::print(stderr, "\r\x1b[K");
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(std::size_t done, std::size_t all) {
        if (::isatty(STDERR_FILENO) == 0) return;
        fmt::print(stderr, "\r{}: {} of {} proofs", m_path, done, all);
        std::fflush(stderr);
        m_isShown = true;
    }

private:
    std::string m_path;
    bool m_isShown = false;
};

class CheckRun {
public:
    explicit CheckRun(const CheckArguments& arguments) : m_arguments(arguments) {}

    int run() {
        readMapping();
        for (const std::string& path : m_arguments.files) checkFile(path);
        print();
        if (m_isUnreadable) return kMisuse;
        const auto [errors, warnings, notes] = countFindings(m_checked);
        return errors > 0 || (m_arguments.warningsAreErrors && warnings > 0) ? kFinding : kGood;
    }

private:
    std::unique_ptr<SourceFile> read(const std::string& path, const char* what) {
        auto source = readSource(path, what);
        if (const ReadFailure* failure = std::get_if<ReadFailure>(&source)) {
            complainOf(*failure);
            return nullptr;
        }
        return std::get<0>(std::move(source));
    }

    void complainOf(const ReadFailure& failure) {
        complain(failure.text);
        m_isUnreadable = true;
    }

    // Proofs are made over few style ids that speak for all, or, without an accepted mapping, over one for each type.
    void readMapping() {
        m_mapping = oneIdPerType();
        if (!m_arguments.mappingDirectory) return;
        if (const auto problem = problemOfMappingDirectory(*m_arguments.mappingDirectory)) return complainOf(*problem);
        std::unique_ptr<SourceFile> file = read(mappingFileIn(*m_arguments.mappingDirectory), "mapping file");
        if (file == nullptr) return;
        m_isMapped = isAcceptedMapping(file->text());
        if (m_isMapped) m_mapping = representativeMapping(file->text());
        std::vector<Finding> findings = checkMapping(*file, m_arguments.effects);
        m_checked.push_back({std::move(file), std::move(findings)});
    }

    void checkFile(const std::string& path) {
        std::unique_ptr<SourceFile> file = read(path, "style file");
        if (file == nullptr) return;
        ProgressLine line(path);
        const Progress progress = [&line](std::size_t done, std::size_t all) { line.show(done, all); };
        std::vector<Finding> findings = checkStyle(*file, m_mapping, {m_arguments.effects, progress});
        m_checked.push_back({std::move(file), std::move(findings)});
    }

    void print() const {
        if (m_arguments.format == "json") return fmt::print("{}", reportJson(m_checked));
        if (m_arguments.format == "sarif") return fmt::print("{}", reportSarif(m_checked));
        for (const CheckedFile& checked : m_checked) {
            for (const Finding& finding : checked.findings) fmt::print("{}", findingText(finding));
        }
        printSummary();
    }

    // Without findings there is nothing to say.
    void printSummary() const {
        const auto [errors, warnings, notes] = countFindings(m_checked);
        if (errors + warnings + notes == 0) return;
        const auto count = [](std::size_t number, const char* what) {
            return fmt::format("{} {}{}", number, what, number == 1 ? "" : "s");
        };
        fmt::print("{}: {}, {}, {}; effects proven for {}\n", count(m_checked.size(), "file"), count(errors, "error"),
                   count(warnings, "warning"), count(notes, "note"),
                   m_isMapped ? "every style id of the mapping at every level"
                              : "feature types only: give --mapping DIR to prove them for your style ids");
    }

    const CheckArguments& m_arguments;
    std::string m_mapping;
    bool m_isMapped = false;
    bool m_isUnreadable = false;
    std::vector<CheckedFile> m_checked;
};

int runCheck(const CheckArguments& arguments) {
    if (arguments.codes || arguments.codesMarkdown) {
        fmt::print("{}", arguments.codes ? codesText() : codesMarkdown());
        return kGood;
    }
    if (arguments.files.empty()) {
        return complain("check needs a style file; run customstyle check --help for more");
    }
    return CheckRun(arguments).run();
}

}  // namespace

Command checkCommand(CLI::App& program) {
    const auto arguments = std::make_shared<CheckArguments>();
    CLI::App* command =
        program.add_subcommand("check", "Find everything that is refused, dropped or changed in style files");
    command->add_option("FILE", arguments->files, "Style files");
    command
        ->add_option(
            "--mapping", arguments->mappingDirectory,
            "Directory of the mapping file CustomIndex: is checked too, and effects are proven for its style ids")
        ->type_name("DIR");
    addFormat(*command, arguments->format, {"text", "json", "sarif"}, "text: for people; json, sarif: for programs");
    command->add_flag("--werror", arguments->warningsAreErrors, "Exit with 1 for warnings too");
    command->add_flag(
        "--effects", arguments->effects,
        "Also note rules with an effect at some levels or on icons only, and style ids under several types");
    command->add_flag("--codes", arguments->codes, "Explain all findings, with an example of each, and exit");
    command->add_flag("--codes-markdown", arguments->codesMarkdown)->group("");
    command->footer(
        "Exit status: 0 no errors, 1 errors (or warnings with --werror), 2 wrong usage or unreadable files.");
    return {command, [arguments] { return runCheck(*arguments); }};
}

}  // namespace customstyle_tool
