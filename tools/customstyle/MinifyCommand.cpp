// customstyle minify: the smallest style with the same effect.
#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/layout/StyleText.h"
#include "tools/minify/Minifier.h"
#include "tools/replay/LoadedStyle.h"
#include "tools/support/AtomicFile.h"

namespace customstyle_tool {
namespace {

struct MinifyOptions {
    std::string file;
    std::optional<std::string> mappingDirectory;
    std::string output;
    bool toStandardOutput = false;
};

void report(const StyleSource& style, const Minified& result) {
    fmt::print(stderr, "{}: {} bytes to {}, {} rules to {}; every answer is the same\n", style.file().path(),
               style.file().text().size(), result.text.size(), style.rules().size(), result.rules);
    if (result.isComplete) return;
    fmt::print(stderr, "{}: not everything was tried, because of the number of rules\n", style.file().path());
}

int write(const MinifyOptions& options, const std::string& text) {
    if (!options.toStandardOutput) {
        const std::optional<std::string> problem = writeWhole(options.output, text);
        return problem ? complain(*problem) : kGood;
    }
    fmt::print("{}", text);
    return kGood;
}

int minify(const MinifyOptions& options) {
    if (!options.toStandardOutput && options.output.empty()) return complain("minify needs -o OUT or --stdout");
    auto read = readForRewriting(options.file);
    if (const auto* failure = std::get_if<ReadFailure>(&read)) return complain(failure->text);
    auto& [file, document] = std::get<StyleText>(read);
    std::optional<std::string> mapping;
    if (options.mappingDirectory) {
        const StyleOrFailure loaded = loadStyle(options.file, options.mappingDirectory);
        if (const auto* failure = std::get_if<ReadFailure>(&loaded)) return complain(failure->text);
        mapping = std::get<0>(loaded)->mapping();
    }
    const StyleSource style(*file, document);
    Minified result = minified(style, mapping);
    if (file->text().ends_with('\n')) result.text += '\n';
    const int status = write(options, result.text);
    if (status == kGood) report(style, result);
    return status;
}

}  // namespace

Command minifyCommand(CLI::App& program) {
    const auto options = std::make_shared<MinifyOptions>();
    CLI::App* command =
        program.add_subcommand("minify", "Make a style file as small as it can be with the same effect, proven");
    command->add_option("FILE", options->file, "Style file")->required();
    command
        ->add_option("--mapping", options->mappingDirectory,
                     "Directory of a mapping file CustomIndex: the effect stays the same on this map. Without it, on "
                     "every map")
        ->type_name("DIR");
    CLI::Option* toOutput = command->add_flag("--stdout", options->toStandardOutput, "Print the result");
    command->add_option("-o,--output", options->output, "Write the result to this file, which may be FILE")
        ->type_name("OUT")
        ->check(isOutputFile())
        ->excludes(toOutput);
    command->footer(
        "Takes out rules, stylers and members without effect, puts rules for the same element together and shortens\n"
        "texts. Before anything is written, every answer to the renderer is compared: all style ids, all levels, both\n"
        "backgrounds. Exit status: 0 good, 2 wrong usage or a file that cannot be read or written.");
    return {command, [options] { return minify(*options); }};
}

}  // namespace customstyle_tool
