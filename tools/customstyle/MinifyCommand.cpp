// customstyle minify: a smaller style with the same effect.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/customstyle/ProgressLine.h"
#include "tools/host/LoadedMap.h"
#include "tools/layout/StyleText.h"
#include "tools/minify/Minifier.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {
namespace {

struct MinifyArguments : StyleArguments {
    std::string output = "-";
    bool toStandardOutput = false;
    bool quiet = false;
};

// The sentence for each Thoroughness.
constexpr std::string_view kSentences[] = {
    "", "not everything was tried, because of the number of rules",
    "each rule is shortened by itself; nothing shorter was proven to have the same effect",
    "only white space was removed; nothing shorter was proven to have the same effect",
    "the style stays as it is; nothing shorter was proven to have the same effect"};

void report(const StyleSource& style, const Minified& result, const MinifyArguments& arguments) {
    const std::string where = arguments.mappingDirectory ? mappingFileIn(*arguments.mappingDirectory) : "every map";
    const std::string path = escapedText(style.file().path());
    fmt::print(stderr, "{}: {} to {}, {} to {}; every answer is the same on {}\n", path,
               counted(style.file().text().size(), "byte"), result.text.size(), counted(style.rules().size(), "rule"),
               result.rules, escapedText(where));
    const std::string_view sentence = kSentences[static_cast<std::size_t>(result.thoroughness)];
    if (!sentence.empty()) fmt::print(stderr, "{}: {}\n", path, sentence);
}

Minified minifiedWithProgress(const StyleSource& style, const std::optional<std::string>& mapping) {
    const ProgressLine line(style.file().path());
    return minified(style, mapping, hostSpread());
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
    std::vector<std::string> inputs = file->isBuilt() ? file->sources() : std::vector<std::string>();
    std::optional<std::string> mapping;
    if (arguments.mappingDirectory) {
        inputs.push_back(mappingFileIn(*arguments.mappingDirectory));
        const std::optional<Mapping> loaded = mappingOrComplain(arguments.mappingDirectory);
        if (!loaded) return kMisuse;
        mapping = loaded->text();
    }
    const StyleSource source(*file, document);
    Minified result = minifiedWithProgress(source, mapping);
    if (file->text().ends_with('\n')) result.text += '\n';
    const int status = writeResult(arguments.output, result.text, inputs);
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
            .summary = "Print a smaller style, proven to have the same effect",
            .description = {"Removes rules, stylers and members without effect, joins rules for the same element and "
                            "shortens the text. Before it writes anything, it compares every answer to the renderer: "
                            "all style ids at all levels, icons, both backgrounds. It reports the sizes on standard "
                            "error."},
            .options = optionsOf(*arguments),
            .statuses = {{0, "The result is written"}, {2, "Wrong usage, or a file that cannot be read or written"}},
            .examples = {{"make a style ready for delivery",
                          "customstyle minify night.json --mapping map -o build/night.json"}},
            .run = [arguments] { return minify(*arguments); }};
}

const Registration minifyRegistration(minifyCommand);

}  // namespace
}  // namespace customstyle_tool
