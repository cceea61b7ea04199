// customstyle format: lays out the text of style files.
#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/UnifiedDiff.h"
#include "tools/layout/Layout.h"
#include "tools/layout/StyleText.h"

namespace customstyle_tool {
namespace {

struct FormatArguments {
    std::vector<std::string> files;
    std::string output;
    bool check = false;
    bool diff = false;
    bool toStandardOutput = false;
    bool quiet = false;
    std::string color = "auto";
};

// The first byte that the layout changes.
std::size_t firstDifference(std::string_view left, std::string_view right) {
    return static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
}

class FormatRun {
public:
    explicit FormatRun(const FormatArguments& arguments) : m_arguments(arguments) {}

    int run() {
        const StyleFiles files = styleFilesIn(m_arguments.files);
        for (const std::string& problem : files.problems) fail(complain(problem));
        if (files.paths.size() != 1 && (m_arguments.toStandardOutput || !m_arguments.output.empty())) {
            return complain("--output and --stdout take one file");
        }
        for (const std::string& path : files.paths) format(path);
        return m_status;
    }

private:
    void fail(int status) { m_status = std::max(m_status, status); }

    void format(const std::string& path) {
        const auto read = readForRewriting(path);
        if (const auto* failure = std::get_if<ReadFailure>(&read)) return fail(complainOf(*failure));
        const auto& [file, document] = std::get<StyleText>(read);
        const std::string text = laidOut(document);
        if (m_arguments.check || m_arguments.diff)
            compare(*file, text);
        else
            fail(write(path, *file, text));
    }

    void compare(const SourceFile& file, const std::string& text) {
        if (file.text() == text) return;
        fail(kFinding);
        if (m_arguments.diff) {
            print(unifiedDiff(file.path(), file.text(), text, isColored(m_arguments.color)));
        } else if (!m_arguments.quiet) {
            complain(fmt::format("{}: not formatted; the first difference is here; run: customstyle format {}",
                                 file.place(firstDifference(file.text(), text)), file.path()));
        }
    }

    std::string targetFor(const std::string& path) const {
        if (m_arguments.toStandardOutput) return "-";
        return m_arguments.output.empty() ? path : m_arguments.output;
    }

    int write(const std::string& path, const SourceFile& file, const std::string& text) const {
        const std::string target = targetFor(path);
        if (target == path && target != "-" && file.text() == text) return kGood;
        return writeResult(target, text, {});
    }

    const FormatArguments& m_arguments;
    int m_status = kGood;
};

int format(const FormatArguments& arguments) {
    const int targets = (arguments.check || arguments.diff ? 1 : 0) + (arguments.toStandardOutput ? 1 : 0) +
                        (arguments.output.empty() ? 0 : 1);
    if (targets > 1) return complain("--check or --diff, --stdout and --output exclude each other");
    return FormatRun(arguments).run();
}

std::vector<Option> optionsOf(FormatArguments& arguments) {
    return {{.names = "STYLE",
             .help = "Style file, formatted in place; a folder means all files *.json in it, and - formats standard "
                     "input and prints it",
             .target = &arguments.files,
             .offer = Offer::Files,
             .isRequired = true},
            {.names = "--check",
             .help = "Write nothing; exit with 1 if a file is not formatted",
             .target = &arguments.check},
            {.names = "--diff",
             .help = "Write nothing; print what would change, and exit with 1 if anything would",
             .target = &arguments.diff},
            {.names = "-o,--output",
             .value = "OUT",
             .help = "Write to this file instead; - is standard output",
             .target = &arguments.output,
             .offer = Offer::Files},
            {.names = "--stdout", .help = "The same as --output -", .target = &arguments.toStandardOutput},
            {.names = "-q,--quiet",
             .help = "With --check: do not name the files that are not formatted",
             .target = &arguments.quiet},
            colorOption(arguments.color)};
}

Command formatCommand() {
    const auto arguments = std::make_shared<FormatArguments>();
    return {.name = "format",
            .purpose = Purpose::Write,
            .summary = "Format style files: one rule per line, members in columns",
            .description = {"Keeps the rules, their members, all strings and numbers, and their order, byte for byte. "
                            "Each file is replaced as a whole or not at all and keeps its permissions; symbolic links "
                            "are followed. A file is refused if it is not JSON, starts with a byte order mark, or has "
                            "text after its end."},
            .options = optionsOf(*arguments),
            .statuses = {{0, "All files are formatted"},
                         {1, "A file is not formatted (--check, --diff)"},
                         {2, "Wrong usage, or a file that cannot be read or written"}},
            .examples = {{"format all styles of a folder", "customstyle format styles"},
                         {"what would change", "customstyle format --diff night.json"},
                         {"in an editor that pipes the text", "customstyle format -"}},
            .run = [arguments] { return format(*arguments); }};
}

const Registration formatRegistration(formatCommand);

}  // namespace
}  // namespace customstyle_tool
