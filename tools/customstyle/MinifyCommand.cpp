// customstyle minify: the smallest style with the same effect.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/host/AtomicFile.h"
#include "tools/host/LoadedMap.h"
#include "tools/layout/StyleText.h"
#include "tools/minify/Minifier.h"

namespace customstyle_tool {
namespace {

struct MinifyArguments {
    std::string file;
    std::optional<std::string> mappingDirectory;
    std::string output = "-";
    bool toStandardOutput = false;
    bool quiet = false;
};

void report(const StyleSource& style, const Minified& result) {
    fmt::print(stderr, "{}: {} to {}, {} to {}; every answer is the same\n", style.file().path(),
               counted(style.file().text().size(), "byte"), result.text.size(), counted(style.rules().size(), "rule"),
               result.rules);
    if (result.isComplete) return;
    fmt::print(stderr, "{}: not everything was tried, because of the number of rules\n", style.file().path());
}

int write(const std::string& target, const std::string& text) {
    if (target == "-") {
        print(text);
        return withOutputWritten(kGood);
    }
    const std::optional<std::string> problem = writeWhole(target, text);
    return problem ? complain(*problem) : kGood;
}

int minify(const MinifyArguments& arguments) {
    if (arguments.toStandardOutput && arguments.output != "-")
        return complain("--stdout and --output exclude each other");
    auto read = readForRewriting(arguments.file);
    if (const auto* failure = std::get_if<ReadFailure>(&read)) return complainOf(*failure);
    auto& [file, document] = std::get<StyleText>(read);
    std::optional<std::string> mapping;
    if (arguments.mappingDirectory) {
        const std::optional<Mapping> loaded = mappingOrComplain(arguments.mappingDirectory);
        if (!loaded) return kMisuse;
        mapping = loaded->text();
    }
    const StyleSource style(*file, document);
    Minified result = minified(style, mapping, hostSurroundings().spread);
    if (file->text().ends_with('\n')) result.text += '\n';
    const int status = write(arguments.output, result.text);
    if (status == kGood && !arguments.quiet) report(style, result);
    return status;
}

Command minifyCommand() {
    const auto arguments = std::make_shared<MinifyArguments>();
    Option mapping = mappingOption(arguments->mappingDirectory);
    mapping.help =
        "Directory of a mapping file CustomIndex: the answers stay the same on this map; without it, on "
        "every map";
    return {.name = "minify",
            .purpose = Purpose::Write,
            .summary = "Print the smallest style with the same effect, proven",
            .description = {"Takes out rules, stylers and members without effect, joins rules for the same element and "
                            "shortens texts. Before anything is written, every answer to the renderer is compared: all "
                            "style ids, all levels, both backgrounds. The sizes are reported on standard error."},
            .options = {styleOption(arguments->file),
                        mapping,
                        {.names = "-o,--output",
                         .value = "OUT",
                         .help = "Write the result to this file, which may be STYLE; - is standard output",
                         .target = &arguments->output,
                         .offer = Offer::Files},
                        {.names = "--stdout",
                         .help = "The same as --output -",
                         .target = &arguments->toStandardOutput,
                         .isHidden = true},
                        {.names = "-q,--quiet", .help = "Do not report the sizes", .target = &arguments->quiet}},
            .statuses = {{0, "The result is written"}, {2, "Wrong usage, or a file that cannot be read or written"}},
            .examples = {{"make a style ready for delivery",
                          "customstyle minify night.json --mapping map -o build/night.json"}},
            .run = [arguments] { return minify(*arguments); }};
}

const Registration minifyRegistration(minifyCommand);

}  // namespace
}  // namespace customstyle_tool
