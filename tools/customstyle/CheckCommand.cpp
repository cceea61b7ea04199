// customstyle check: what the component refuses, drops or changes in style files, and what has no effect.
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/check/MappingCheck.h"
#include "tools/check/Report.h"
#include "tools/check/StyleCheck.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/host/Files.h"
#include "tools/host/LoadLog.h"
#include "tools/host/LoadedMap.h"

namespace customstyle_tool {
namespace {

struct CheckArguments {
    std::vector<std::string> files;
    std::optional<std::string> mappingDirectory;
    std::string format = "text";
    bool warningsAreErrors = false;
    bool effects = false;
    std::string proofTime = "0";  // seconds; 0 for as long as it takes
    bool codes = false;
    bool codesMarkdown = false;
};

std::optional<unsigned int> secondsIn(const std::string& text) {
    unsigned int seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return seconds;
}

std::string problemOfSeconds(const std::string& text) {
    return secondsIn(text) ? "" : fmt::format("\"{}\" is no number of seconds", text);
}

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
        const auto now = Clock::now();
        if (::isatty(STDERR_FILENO) == 0 || now - m_shown < kInterval) return;
        m_shown = now;
        fmt::print(stderr, "\r{}: {} of {} proofs", m_path, done, all);
        std::fflush(stderr);
        m_isShown = true;
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kInterval{50};

    std::string m_path;
    Clock::time_point m_shown{};
    bool m_isShown = false;
};

class CheckRun {
public:
    explicit CheckRun(const CheckArguments& arguments) : m_arguments(arguments) {}

    int run() {
        const StyleFiles files = styleFilesIn(m_arguments.files);
        for (const std::string& problem : files.problems) report({problem});
        readMapping();
        for (const std::string& path : files.paths) checkFile(path);
        printFindings();
        if (!m_unreadable.empty()) return kMisuse;
        const auto [errors, warnings, notes] = countFindings(m_checked);
        return errors > 0 || (m_arguments.warningsAreErrors && warnings > 0) ? kFinding : kGood;
    }

private:
    std::unique_ptr<SourceFile> read(const std::string& path, const char* what) {
        auto source = readSource(path, what);
        if (const ReadFailure* failure = std::get_if<ReadFailure>(&source)) {
            report(*failure);
            return nullptr;
        }
        return std::get<0>(std::move(source));
    }

    void report(const ReadFailure& failure) {
        complainOf(failure);
        m_unreadable.push_back(failure.text);
    }

    // Without an accepted mapping proofs are made for every map.
    void readMapping() {
        if (!m_arguments.mappingDirectory) return;
        if (const auto problem = problemOfMappingDirectory(*m_arguments.mappingDirectory)) return report(*problem);
        std::unique_ptr<SourceFile> file = read(mappingFileIn(*m_arguments.mappingDirectory), "mapping file");
        if (file == nullptr) return;
        if (isAcceptedMapping(file->text())) m_mapping = Mapping::given(std::string(file->text()));
        std::vector<Finding> findings = checkMapping(*file, m_arguments.effects, logOfMapping);
        m_checked.push_back({std::move(file), std::move(findings)});
    }

    void checkFile(const std::string& path) {
        const std::shared_ptr<const SourceFile> file = read(path, "style file");
        if (file == nullptr) return;
        ProgressLine line(path);
        const CheckOptions options{.effects = m_arguments.effects,
                                   .progress = [&line](std::size_t done, std::size_t all) { line.show(done, all); },
                                   .isTimeUp = [this] { return isTimeUp(); }};
        CheckedStyle checked = checkStyle(file, m_mapping, options, hostSurroundings(), logOfStyle);
        m_checked.push_back({file, std::move(checked.findings), std::move(checked.study)});
    }

    bool isTimeUp() const {
        const std::chrono::seconds limit(secondsIn(m_arguments.proofTime).value_or(0));
        return limit.count() > 0 && std::chrono::steady_clock::now() - m_begin > limit;
    }

    bool isAnyBroken() const {
        return std::ranges::any_of(m_checked, [](const CheckedFile& checked) {
            return checked.study == nullptr ? false : !checked.study->source().isWhole();
        });
    }

    void printFindings() const {
        if (m_arguments.format == "json") return print(reportJson(m_checked, m_unreadable));
        if (m_arguments.format == "sarif") return print(reportSarif(m_checked, m_unreadable));
        for (const CheckedFile& checked : m_checked) {
            for (const Finding& finding : checked.findings) fmt::print("{}", findingText(finding));
        }
        printSummary();
    }

    // Without findings there is nothing to say.
    void printSummary() const {
        const auto [errors, warnings, notes] = countFindings(m_checked);
        if (errors + warnings + notes == 0) return;
        fmt::print("{}: {}, {}, {}; effects proven for {}{}\n", counted(m_checked.size(), "file"),
                   counted(errors, "error"), counted(warnings, "warning"), counted(notes, "note"),
                   m_mapping.kind() == Mapping::Kind::Given ? "every style id of the mapping at every level"
                                                            : "every map: give --mapping DIR to prove them for yours",
                   isAnyBroken() ? ", except in files that are not JSON" : "");
    }

    const CheckArguments& m_arguments;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    Mapping m_mapping = Mapping::everyMap();
    std::vector<std::string> m_unreadable;
    std::vector<CheckedFile> m_checked;
};

int check(const CheckArguments& arguments) {
    if (arguments.codes || arguments.codesMarkdown) {
        fmt::print("{}", arguments.codes ? codesText() : codesMarkdown());
        return kGood;
    }
    if (arguments.files.empty()) {
        return complain("check needs STYLE; run customstyle check --help for more");
    }
    return CheckRun(arguments).run();
}

std::vector<Option> optionsOf(CheckArguments& arguments) {
    return {
        {.names = "STYLE",
         .help = "Style file; a folder stands for all files *.json in it, and - for standard input",
         .target = &arguments.files,
         .offer = Offer::Files},
        {.names = "--mapping",
         .value = "DIR",
         .help = "Directory of the mapping file CustomIndex: it is checked, too, and effects are proven for its "
                 "style ids",
         .target = &arguments.mappingDirectory,
         .offer = Offer::Directories},
        formatOption(arguments.format,
                     {{"text", "for people"}, {"json", "for programs"}, {"sarif", "for code scanning"}}),
        {.names = "--werror", .help = "Exit with 1 for warnings, too", .target = &arguments.warningsAreErrors},
        {.names = "--effects",
         .help = "Also note rules with an effect at some levels or on icons only, and style ids under several types",
         .target = &arguments.effects},
        {.names = "--proof-time",
         .value = "SECONDS",
         .help = "End the proofs after so many seconds and say how many are missing; 0 for as long as it takes",
         .target = &arguments.proofTime,
         .problem = problemOfSeconds},
        {.names = "--codes",
         .help = "Explain all findings, with an example of each, and exit",
         .target = &arguments.codes},
        {.names = "--codes-markdown", .target = &arguments.codesMarkdown, .isHidden = true}};
}

Command checkCommand() {
    const auto arguments = std::make_shared<CheckArguments>();
    return {.name = "check",
            .purpose = Purpose::Judge,
            .summary = "Find everything that is refused, dropped or changed in style files",
            .description = {"Each finding has its position, a stable code, what happens at run time, and a remedy. For "
                            "each rule and each styler it is proven whether it has an effect."},
            .options = optionsOf(*arguments),
            .statuses = {{0, "No errors"},
                         {1, "Errors, or warnings with --werror"},
                         {2, "Wrong usage, or a file that cannot be read"}},
            .examples = {{"check all styles of a folder as a build step",
                          "customstyle check --werror --mapping map styles"}},
            .run = [arguments] { return check(*arguments); }};
}

const Registration registration(checkCommand);

}  // namespace
}  // namespace customstyle_tool
