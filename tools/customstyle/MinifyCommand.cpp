// customstyle minify: the smallest style with the same effect.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/ProgressLine.h"
#include "tools/host/AtomicFile.h"
#include "tools/host/LoadedMap.h"
#include "tools/layout/StyleText.h"
#include "tools/minify/Minifier.h"

namespace customstyle_tool {
namespace {

struct MinifyArguments : StyleArguments {
    std::string output = "-";
    bool toStandardOutput = false;
    bool quiet = false;
};

void report(const StyleSource& style, const Minified& result, const MinifyArguments& arguments) {
    const std::string where = arguments.mappingDirectory ? mappingFileIn(*arguments.mappingDirectory) : "every map";
    fmt::print(stderr, "{}: {} to {}, {} to {}; every answer is the same on {}\n", style.file().path(),
               counted(style.file().text().size(), "byte"), result.text.size(), counted(style.rules().size(), "rule"),
               result.rules, where);
    if (result.isComplete) return;
    fmt::print(stderr, "{}: not everything was tried, because of the number of rules\n", style.file().path());
}

Minified minifiedWithProgress(const StyleSource& style, const std::optional<std::string>& mapping) {
    const ProgressLine line(style.file().path());
    return minified(style, mapping, hostSurroundings().spread);
}

int minify(MinifyArguments arguments) {
    if (arguments.toStandardOutput && arguments.output != "-")
        return complain("--stdout and --output exclude each other");
    if (!findMapping(arguments, {arguments.style})) return kMisuse;
    auto read = readStyle(arguments.style);
    if (const auto* problems = std::get_if<std::vector<std::string>>(&read)) return complainOf(*problems);
    auto style = forRewriting(std::get<0>(std::move(read)));
    if (const auto* failure = std::get_if<ReadFailure>(&style)) return complainOf(*failure);
    auto& [file, document] = std::get<StyleText>(style);
    std::optional<std::string> mapping;
    if (arguments.mappingDirectory) {
        const std::optional<Mapping> loaded = mappingOrComplain(arguments.mappingDirectory);
        if (!loaded) return kMisuse;
        mapping = loaded->text();
    }
    const StyleSource source(*file, document);
    Minified result = minifiedWithProgress(source, mapping);
    if (file->text().ends_with('\n')) result.text += '\n';
    const int status = writeResult(arguments.output, result.text);
    if (status == kGood && !arguments.quiet) report(source, result, arguments);
    return status;
}

std::vector<Option> optionsOf(MinifyArguments& arguments) {
    std::vector<Option> options;
    addStyleArguments(options, arguments);
    options[1].help =
        "Directory of a mapping file CustomIndex: the answers stay the same on this map; without a "
        "mapping, on every map";
    options.push_back({.names = "-o,--output",
                       .value = "OUT",
                       .help = "Write the result to this file, which may be STYLE; - is standard output",
                       .target = &arguments.output,
                       .offer = Offer::Files});
    options.push_back({.names = "--stdout",
                       .help = "The same as --output -",
                       .target = &arguments.toStandardOutput,
                       .isHidden = true});
    options.push_back({.names = "-q,--quiet", .help = "Do not report the sizes", .target = &arguments.quiet});
    return options;
}

Command minifyCommand() {
    const auto arguments = std::make_shared<MinifyArguments>();
    return {.name = "minify",
            .purpose = Purpose::Write,
            .summary = "Print the smallest style with the same effect, proven",
            .description = {"Takes out rules, stylers and members without effect, joins rules for the same element and "
                            "shortens texts. Before anything is written, every answer to the renderer is compared: all "
                            "style ids, all levels, both backgrounds. The sizes are reported on standard error."},
            .options = optionsOf(*arguments),
            .statuses = {{0, "The result is written"}, {2, "Wrong usage, or a file that cannot be read or written"}},
            .examples = {{"make a style ready for delivery",
                          "customstyle minify night.json --mapping map -o build/night.json"}},
            .run = [arguments] { return minify(*arguments); }};
}

const Registration minifyRegistration(minifyCommand);

}  // namespace
}  // namespace customstyle_tool
