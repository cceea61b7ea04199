// customstyle format: lays out the text of a style file.
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/layout/Layout.h"
#include "tools/layout/StyleText.h"
#include "tools/support/AtomicFile.h"

namespace customstyle_tool {
namespace {

struct FormatOptions {
    std::string file;
    std::string output;
    bool check = false;
    bool toStandardOutput = false;
};

// The first byte that the layout changes.
std::size_t firstDifference(std::string_view left, std::string_view right) {
    return static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
}

int check(const SourceFile& file, const std::string& laidOutText) {
    if (file.text() == laidOutText) return kGood;
    return complain(fmt::format("{}: is laid out otherwise from here on; run: customstyle format {}",
                                file.place(firstDifference(file.text(), laidOutText)), file.path()),
                    kFinding);
}

int write(const FormatOptions& options, const SourceFile& file, const std::string& laidOutText) {
    if (options.toStandardOutput) {
        fmt::print("{}", laidOutText);
        return kGood;
    }
    const std::string& target = options.output.empty() ? file.path() : options.output;
    if (target == file.path() && file.text() == laidOutText) return kGood;
    const std::optional<std::string> problem = writeWhole(target, laidOutText);
    return problem ? complain(*problem) : kGood;
}

int format(const FormatOptions& options) {
    const auto read = readForRewriting(options.file);
    if (const auto* failure = std::get_if<ReadFailure>(&read)) return complain(failure->text);
    const auto& [file, document] = std::get<StyleText>(read);
    const std::string text = laidOut(document);
    return options.check ? check(*file, text) : write(options, *file, text);
}

}  // namespace

Command formatCommand(CLI::App& program) {
    const auto options = std::make_shared<FormatOptions>();
    CLI::App* command = program.add_subcommand("format", "Lay out a style file: a rule a line, members in columns");
    command->add_option("FILE", options->file, "Style file; laid out in place")->required();
    CLI::Option* check = command->add_flag("--check", options->check, "Write nothing; exit 1 if the layout is another");
    CLI::Option* toOutput = command->add_flag("--stdout", options->toStandardOutput, "Print instead of writing FILE");
    CLI::Option* output = command->add_option("-o,--output", options->output, "Write here instead of FILE");
    output->type_name("OUT")->check(isOutputFile())->excludes(toOutput)->excludes(check);
    toOutput->excludes(check);
    command->footer(
        "Keeps the rules, their members, all texts and numbers, and their order, byte for byte. Replaces the file\n"
        "as a whole or not at all. Exit status: 0 good, 1 laid out otherwise (--check), 2 wrong usage or a file that\n"
        "cannot be read or written.");
    return {command, [options] { return format(*options); }};
}

}  // namespace customstyle_tool
