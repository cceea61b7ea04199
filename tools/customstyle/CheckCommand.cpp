// customstyle check: what the component refuses, drops or changes in style files, and what has no effect.
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/build/StyleBuild.h"
#include "tools/check/Edits.h"
#include "tools/check/MappingCheck.h"
#include "tools/check/Report.h"
#include "tools/check/StyleCheck.h"
#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Configuration.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/FindingFilter.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/ProgressLine.h"
#include "tools/customstyle/UnifiedDiff.h"
#include "tools/host/AtomicFile.h"
#include "tools/host/LoadLog.h"
#include "tools/host/LoadedMap.h"
#include "tools/support/Numbers.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

constexpr int kMostRounds = 10;

struct CheckArguments {
    std::vector<std::string> files;
    std::optional<std::string> mappingDirectory;
    std::string format = "text";
    std::string color = "auto";
    std::vector<std::string> select;
    std::vector<std::string> ignore;
    std::optional<std::string> configuration;
    std::optional<std::string> baseline;
    std::optional<std::string> newBaseline;
    bool withoutConfiguration = false;
    bool fix = false;
    bool diff = false;
    bool warningsAreErrors = false;
    bool effects = false;
    bool quiet = false;
    std::string proofTime = "0";  // seconds; 0 for as long as it takes
    bool codes = false;
    bool codesMarkdown = false;
};

std::string problemOfSeconds(const std::string& text) {
    return numberIn<unsigned int>(text) ? "" : fmt::format("\"{}\" is not a number of seconds", text);
}

// What the proofs about the styles of a run were made for, and how far they got.
class ProofScope {
public:
    /// @param isMappingNamed  also where that mapping was refused
    void add(const CheckedStyle& checked, bool isMappingNamed) {
        m_isAnyWithoutName |= !isMappingNamed;
        if (checked.study == nullptr || !checked.study->source().isWhole()) {
            m_isAnyBroken = true;
            return;
        }
        const bool isMapped = checked.study->mapping().kind() == Mapping::Kind::Given;
        (isMapped ? m_isAnyMapped : m_isAnyForEveryMap) = true;
        m_isAnyStopped |=
            std::ranges::find(checked.findings, Code::EffectsUnproven, &Finding::code) != checked.findings.end();
    }

    std::string text() const {
        return fmt::format("effects proven for {}{}{}", where(), m_isAnyBroken ? kBroken : "",
                           m_isAnyStopped ? ", except where the time ran out" : "");
    }

private:
    static constexpr const char* kBroken = ", except in files that are not JSON";

    std::string where() const {
        const std::string mapped = "every style id of the mapping at every level";
        std::string everyMap =
            m_isAnyWithoutName ? "every map: give --mapping DIR to prove them for yours" : "every map";
        if (!m_isAnyMapped) return everyMap;
        return m_isAnyForEveryMap ? fmt::format("{}; for styles without a mapping, for {}", mapped, everyMap) : mapped;
    }

    bool m_isAnyMapped = false;
    bool m_isAnyForEveryMap = false;
    bool m_isAnyWithoutName = false;
    bool m_isAnyBroken = false;
    bool m_isAnyStopped = false;
};

// Prints findings in a format, those of one file after the other where the format allows it.
class Reporter {
public:
    explicit Reporter(const CheckArguments& arguments)
        : m_arguments(arguments), m_isColored(arguments.format == "text" && isColored(arguments.color)) {}

    void report(CheckedFile checked) {
        const auto [errors, warnings, notes] = countFindings(checked.findings);
        m_counts = {m_counts.errors + errors, m_counts.warnings + warnings, m_counts.notes + notes};
        ++m_fileCount;
        if (m_arguments.quiet) {
            std::erase_if(checked.findings, [](const Finding& each) { return severityOf(each) != Severity::Error; });
        }
        if (isWhole()) {
            m_checked.push_back(std::move(checked));
            return;
        }
        for (const Finding& finding : checked.findings) print(textOf(finding, checked.study.get()));
    }

    /// @param unreadable  why files could not be read
    void finish(const ProofScope& scope, const std::vector<std::string>& unreadable) {
        if (m_arguments.format == "json") print(reportJson(m_checked, unreadable));
        if (m_arguments.format == "sarif") print(reportSarif(m_checked, unreadable));
        const bool isQuiet = m_arguments.quiet || m_arguments.format != "text";
        if (!isQuiet && m_counts.errors + m_counts.warnings + m_counts.notes > 0) printSummary(scope);
    }

    const FindingCounts& counts() const { return m_counts; }

private:
    // Whether the format is one document.
    bool isWhole() const { return m_arguments.format == "json" || m_arguments.format == "sarif"; }

    std::string textOf(const Finding& finding, const StyleStudy* study) {
        if (m_arguments.format == "line") return lineReport(finding);
        if (m_arguments.format == "jsonl") return jsonLineReport(finding, study);
        if (m_arguments.format == "github") return githubReport(finding);
        if (m_arguments.format == "text") return findingText(finding, m_isColored);
        const std::string head = m_hasHead ? "" : markdownHead();
        m_hasHead = true;
        return head + markdownReport(finding);
    }

    void printSummary(const ProofScope& scope) const {
        fmt::print("{}: {}, {}, {}; {}\n", counted(m_fileCount, "file"), counted(m_counts.errors, "error"),
                   counted(m_counts.warnings, "warning"), counted(m_counts.notes, "note"), scope.text());
    }

    const CheckArguments& m_arguments;
    bool m_isColored;
    bool m_hasHead = false;
    std::size_t m_fileCount = 0;
    FindingCounts m_counts;
    std::vector<CheckedFile> m_checked;
};

class CheckRun {
public:
    explicit CheckRun(const CheckArguments& arguments)
        : m_arguments(arguments),
          m_filter(codesIn(arguments.select), codesIn(arguments.ignore)),
          m_reporter(arguments) {}

    int run() {
        if (!readBaseline(m_arguments.baseline)) return kMisuse;
        const StyleFiles files = styleFilesIn(m_arguments.files);
        for (const std::string& problem : files.problems) report({problem});
        if (m_arguments.mappingDirectory) mappingIn(*m_arguments.mappingDirectory, {});
        for (const std::string& path : files.paths) checkFile(path);
        m_reporter.finish(m_scope, m_unreadable);
        if (m_arguments.newBaseline && !writeBaseline()) return kMisuse;
        if (m_hasFailed) return kMisuse;
        return m_hasChanges || isFaulty(m_reporter.counts()) || isFaulty(m_unshown) ? kFinding : kGood;
    }

private:
    bool isFaulty(const FindingCounts& counts) const {
        return counts.errors > 0 || (m_warningsAreErrors && counts.warnings > 0);
    }

    void report(const ReadFailure& failure) {
        complainOf(failure);
        m_unreadable.push_back(failure.text);
        m_hasFailed = true;
    }

    std::unique_ptr<SourceFile> read(const std::string& path, const char* what) {
        auto source = readSource(path, what);
        if (const ReadFailure* failure = std::get_if<ReadFailure>(&source)) {
            report(*failure);
            return nullptr;
        }
        return std::get<0>(std::move(source));
    }

    // The settings for a style; none after a complaint.
    const Configuration* configurationOf(const std::string& style) {
        if (m_arguments.withoutConfiguration) return &m_configurations[""];
        const std::string path =
            m_arguments.configuration ? *m_arguments.configuration : configurationFor(style).value_or("");
        if (path.empty() || m_configurations.contains(path)) return &m_configurations[path];
        m_inputs.push_back(path);
        auto read = readConfiguration(path);
        if (const auto* problem = std::get_if<ConfigurationProblem>(&read)) {
            if (m_brokenConfigurations.insert(path).second) report({problem->text});
            return nullptr;
        }
        Configuration& configuration = m_configurations[path] = std::get<Configuration>(std::move(read));
        if (!m_arguments.baseline && !readBaseline(configuration.baseline)) m_hasFailed = true;
        return &configuration;
    }

    // A baseline that is about to be written need not exist yet.
    bool readBaseline(const std::optional<std::string>& path) {
        if (!path || m_arguments.newBaseline) return true;
        const std::unique_ptr<SourceFile> file = read(*path, "baseline");
        if (file == nullptr) return false;
        const std::optional<std::size_t> line = m_filter.readBaseline(*path, std::string(file->text()));
        if (!line) return true;
        complain(fmt::format("{}:{}: not an entry of a baseline; write it with --write-baseline", *path, *line));
        return false;
    }

    bool writeBaseline() {
        const std::string& path = *m_arguments.newBaseline;
        std::optional<std::string> problem = problemOfTarget(path, m_inputs);
        if (!problem) problem = writeWhole(path, m_filter.baselineText(path));
        if (problem) complain(*problem);
        return !problem;
    }

    // Without an accepted mapping proofs are made for every map.
    const Mapping& mappingIn(const std::string& directory, const Configuration& configuration) {
        const auto [known, isNew] = m_mappings.try_emplace(directory, Mapping::everyMap());
        Mapping& mapping = known->second;
        if (!isNew) return mapping;
        if (const auto problem = problemOfMappingDirectory(directory)) {
            report(*problem);
            return mapping;
        }
        std::unique_ptr<SourceFile> file = read(mappingFileIn(directory), "mapping file");
        if (file == nullptr) return mapping;
        m_inputs.push_back(file->path());
        if (isAcceptedMapping(file->text())) mapping = Mapping::given(std::string(file->text()));
        std::vector<Finding> findings = checkMapping(*file, m_arguments.effects || configuration.effects, logOfMapping);
        m_filter.apply(findings, configuration, nullptr);
        m_reporter.report({std::move(file), std::move(findings)});
        return mapping;
    }

    const Mapping& mappingFor(const Configuration& configuration) {
        if (m_arguments.mappingDirectory) return mappingIn(*m_arguments.mappingDirectory, configuration);
        if (!configuration.mappingDirectory) return m_everyMap;
        const bool isNew = !m_mappings.contains(*configuration.mappingDirectory);
        const auto problem = isNew ? problemOfMapping(configuration) : std::nullopt;
        if (!problem) return mappingIn(*configuration.mappingDirectory, configuration);
        report(*problem);
        return m_mappings.emplace(*configuration.mappingDirectory, Mapping::everyMap()).first->second;
    }

    void checkFile(const std::string& path) {
        const Configuration* const configuration = configurationOf(path);
        if (configuration == nullptr) return;
        const Mapping& mapping = mappingFor(*configuration);
        std::shared_ptr<const SourceFile> file = readStyleFile(path);
        if (file == nullptr) return;
        CheckedStyle checked = checkedText(file, mapping, *configuration);
        if (m_arguments.fix) {
            const std::shared_ptr<const SourceFile> original = file;
            const std::size_t count = fixAll(file, checked, mapping, *configuration);
            deliver(path, *original, *file, count);
        }
        m_scope.add(checked, &mapping != &m_everyMap);
        const StyleSource* const style = checked.study == nullptr ? nullptr : &checked.study->source();
        for (const std::string& problem : m_filter.apply(checked.findings, *configuration, style)) report({problem});
        m_warningsAreErrors |= m_arguments.warningsAreErrors || configuration->warningsAreErrors;
        // Where a text has gone to standard output, findings would spoil it.
        if (m_arguments.fix && (m_arguments.diff || path == "-")) return count(checked.findings);
        reportByFile(file, std::move(checked));
    }

    void count(const std::vector<Finding>& findings) {
        const auto [errors, warnings, notes] = countFindings(findings);
        m_unshown = {m_unshown.errors + errors, m_unshown.warnings + warnings, m_unshown.notes + notes};
    }

    std::shared_ptr<const SourceFile> readStyleFile(const std::string& path) {
        if (m_arguments.fix && isBuildFile(path)) {
            report({fmt::format("{}: --fix writes style files only; edit the sources of a build file yourself", path)});
            return nullptr;
        }
        auto style = readStyle(path);
        if (const auto* problems = std::get_if<std::vector<std::string>>(&style)) {
            for (const std::string& problem : *problems) report({problem});
            return nullptr;
        }
        std::shared_ptr<const SourceFile> file = std::get<0>(std::move(style));
        std::ranges::copy(file->sources(), std::back_inserter(m_inputs));
        return file;
    }

    // The findings about a style that was built are about the files that it is made of.
    void reportByFile(const std::shared_ptr<const SourceFile>& file, CheckedStyle checked) {
        const std::shared_ptr<const StyleStudy> study = std::move(checked.study);
        if (!file->isBuilt()) return m_reporter.report({file, std::move(checked.findings), study});
        std::vector<CheckedFile> files;
        for (Finding& finding : checked.findings) {
            auto known =
                std::ranges::find_if(files, [&](const CheckedFile& each) { return each.file.get() == finding.file; });
            if (known == files.end())
                known = files.insert(files.end(), {std::shared_ptr<const SourceFile>(file, finding.file), {}, study});
            known->findings.push_back(std::move(finding));
        }
        if (files.empty()) files.push_back({file, {}, study});
        for (CheckedFile& each : files) m_reporter.report(std::move(each));
    }

    CheckedStyle checkedText(const std::shared_ptr<const SourceFile>& file, const Mapping& mapping,
                             const Configuration& configuration) const {
        ProgressLine line(file->path());
        const CheckOptions options{.effects = m_arguments.effects || configuration.effects,
                                   .progress = [&line](std::size_t done, std::size_t all) { line.show(done, all); },
                                   .isTimeUp = [this] { return isTimeUp(); }};
        return checkStyle(file, mapping, options, hostSpread(), logOfStyle);
    }

    bool isTimeUp() const {
        const std::chrono::seconds limit(numberIn<unsigned int>(m_arguments.proofTime).value_or(0));
        return limit.count() > 0 && std::chrono::steady_clock::now() - m_begin > limit;
    }

    // One remedy may lead to another, so the style is checked again after each round.
    std::size_t fixAll(std::shared_ptr<const SourceFile>& file, CheckedStyle& checked, const Mapping& mapping,
                       const Configuration& configuration) const {
        std::size_t count = 0;
        for (int round = 0; round < kMostRounds && checked.study != nullptr && checked.study->source().isWhole();
             ++round) {
            FindingFilter filter = m_filter;
            std::vector<Finding> wanted = checked.findings;
            filter.apply(wanted, configuration, &checked.study->source());
            const std::vector<Edit> edits = jointEdits(wanted, *checked.study);
            if (edits.empty()) break;
            count += edits.size();
            file = std::make_shared<const SourceFile>(file->path(), edited(file->text(), edits));
            checked = checkedText(file, mapping, configuration);
        }
        return count;
    }

    void deliver(const std::string& path, const SourceFile& before, const SourceFile& after, std::size_t count) {
        if (m_arguments.diff) {
            print(unifiedDiff(before.path(), before.text(), after.text(), isColored(m_arguments.color)));
            m_hasChanges |= before.text() != after.text();
        } else if (path == "-") {
            print(after.text());
        } else if (before.text() != after.text()) {
            const std::optional<std::string> problem = writeWhole(path, after.text());
            if (problem) return report({*problem});
            if (!m_arguments.quiet) fmt::print(stderr, "{}: {} made\n", escapedText(path), counted(count, "edit"));
        }
    }

    const CheckArguments& m_arguments;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    FindingFilter m_filter;
    Reporter m_reporter;
    const Mapping m_everyMap = Mapping::everyMap();
    std::map<std::string, Configuration> m_configurations;
    std::set<std::string> m_brokenConfigurations;
    std::map<std::string, Mapping> m_mappings;
    std::vector<std::string> m_unreadable;
    std::vector<std::string> m_inputs;  // that a baseline must not replace
    ProofScope m_scope;
    bool m_warningsAreErrors = false;
    bool m_hasFailed = false;
    bool m_hasChanges = false;  ///< that are shown
    FindingCounts m_unshown;
};

int check(const CheckArguments& arguments) {
    if (arguments.codes || arguments.codesMarkdown) {
        print(arguments.codes ? codesText() : codesMarkdown());
        return kGood;
    }
    if (arguments.diff && !arguments.fix) return complain("--diff shows what --fix would do; give both");
    if (arguments.files.empty()) return complain("check needs STYLE; run customstyle check --help for more");
    return CheckRun(arguments).run();
}

Option codesOption(std::string names, std::string help, std::vector<std::string>& words) {
    Option option{.names = std::move(names),
                  .value = "CODES",
                  .help = std::move(help),
                  .target = &words,
                  .offer = Offer::Choices,
                  .problem = problemOfCodes};
    for (const CodeInfo& info : codeInfos()) option.choices.emplace_back(info.name);
    return option;
}

Option fileOption(std::string names, std::string help, std::optional<std::string>& path) {
    return {
        .names = std::move(names), .value = "FILE", .help = std::move(help), .target = &path, .offer = Offer::Files};
}

std::vector<Option> reportOptions(CheckArguments& arguments) {
    return {formatOption(arguments.format, {{"text", "for people"},
                                            {"line", "one line each, for editors"},
                                            {"json", "for programs"},
                                            {"jsonl", "one JSON object per line"},
                                            {"sarif", "for code scanning"},
                                            {"github", "for workflows on GitHub"},
                                            {"markdown", "a table"}}),
            colorOption(arguments.color),
            {.names = "-q,--quiet",
             .help = "Print errors only: no warnings, notes and summary",
             .target = &arguments.quiet},
            {.names = "--werror", .help = "Exit with 1 for warnings as well", .target = &arguments.warningsAreErrors},
            {.names = "--effects",
             .help = "Also report rules that have an effect only at some levels or only on icons, and style ids of "
                     "several types",
             .target = &arguments.effects},
            {.names = "--proof-time",
             .value = "SECONDS",
             .help = "Stop proving after this many seconds and report how many proofs are missing; 0 for no limit",
             .target = &arguments.proofTime,
             .problem = problemOfSeconds}};
}

std::vector<Option> filterOptions(CheckArguments& arguments) {
    return {codesOption("--select", "Report these codes only, separated by commas", arguments.select),
            codesOption("--ignore", "Do not report these codes", arguments.ignore),
            fileOption("--baseline", "Do not report the findings that this file lists", arguments.baseline),
            fileOption("--write-baseline", "Write all findings into this file, as a baseline", arguments.newBaseline)};
}

std::vector<Option> optionsOf(CheckArguments& arguments) {
    std::vector<Option> options = {
        {.names = "STYLE",
         .help = "Style file; a folder means all files *.json in it, and - means standard input",
         .target = &arguments.files,
         .offer = Offer::Files},
        {.names = "--mapping",
         .value = "DIR",
         .help =
             "Directory of the mapping file CustomIndex: it is checked as well, and effects are proven for its style "
             "ids",
         .target = &arguments.mappingDirectory,
         .offer = Offer::Directories}};
    options.push_back({.names = "--fix",
                       .help = "Apply the known remedies: correct values and names, and remove what has no effect; "
                               "report the remaining findings",
                       .target = &arguments.fix});
    options.push_back({.names = "--diff",
                       .help = "With --fix: write nothing, print what would change, and exit with 1 if anything would",
                       .target = &arguments.diff});
    for (Option& option : reportOptions(arguments)) options.push_back(std::move(option));
    for (Option& option : filterOptions(arguments)) options.push_back(std::move(option));
    addSettingsOptions(options, arguments.configuration, arguments.withoutConfiguration, "all styles");
    options.push_back({.names = "--codes",
                       .help = "Explain all findings, with an example of each, and exit",
                       .target = &arguments.codes});
    options.push_back({.names = "--codes-markdown", .target = &arguments.codesMarkdown, .isHidden = true});
    return options;
}

constexpr char kSettings[] = R"(  mapping = "map"               # folder of CustomIndex; paths are relative to this file
  select = ["level-clamped"]    # report these codes only
  ignore = ["color-name"]       # do not report these
  effects = true                # as --effects
  werror = true                 # as --werror
  baseline = "known-findings"   # as --baseline
  [severity]
  no-effect = "error"           # error, warning, note or off)";

constexpr char kFindings[] =
    "Each finding has a position, a stable code, what happens at run time, and a remedy. For each rule and each "
    "styler, check proves whether it has an effect.";

Command checkCommand() {
    const auto arguments = std::make_shared<CheckArguments>();
    return {
        .name = "check",
        .purpose = Purpose::Judge,
        .summary = "Find everything that is refused, ignored or changed in style files",
        .description = {kFindings, "Settings are in the file customstyle.toml beside the styles or in a folder above:",
                        kSettings, "A rule can silence codes for itself:",
                        "  {\"note\": \"customstyle-ignore: no-effect\", \"featureType\": ...}"},
        .options = optionsOf(*arguments),
        .statuses = {{0, "No errors"},
                     {1, "Errors, or warnings with --werror"},
                     {2, "Wrong usage, or a file that cannot be read"}},
        .examples = {{"check all styles of a folder as a build step",
                      "customstyle check --werror --mapping map styles"},
                     {"thousands of files on all processors, with GNU parallel",
                      "find styles -name '*.json' | parallel -X customstyle check --format jsonl > findings.jsonl"},
                     {"what the known remedies would change", "customstyle check --fix --diff night.json"},
                     {"report only new findings from now on",
                      "customstyle check --write-baseline known-findings styles"}},
        .run = [arguments] { return check(*arguments); }};
}

const Registration checkRegistration(checkCommand);

}  // namespace
}  // namespace customstyle_tool
