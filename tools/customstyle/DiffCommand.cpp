// customstyle diff: what changes on the map between two styles.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/diff/DiffText.h"

namespace customstyle_tool {
namespace {

struct DiffOptions {
    std::string before;
    std::string after;
    std::optional<std::string> mappingDirectory;
    std::string format = "text";
};

int diff(const DiffOptions& options) {
    const StyleOrFailure before = loadStyle(options.before, options.mappingDirectory);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&before)) return complain(failure->text);
    const StyleOrFailure after = loadStyle(options.after, options.mappingDirectory);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&after)) return complain(failure->text);

    const std::vector<JoinedChange> changes = differenceOf(*std::get<0>(before), *std::get<0>(after));
    fmt::print("{}", options.format == "json" ? diffJson(changes) + "\n" : diffText(changes));
    return changes.empty() ? kGood : kFinding;
}

}  // namespace

Command diffCommand(CLI::App& program) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* command = program.add_subcommand("diff", "Print what changes on the map between two style files");
    command->add_option("A", options->before, "Style file before")->type_name("FILE")->required();
    command->add_option("B", options->after, "Style file after")->type_name("FILE")->required();
    addMapping(*command, options->mappingDirectory);
    addFormat(*command, options->format, {"text", "json"}, "text: a line for each change; json: for programs");
    command->footer(
        "Exit status: 0 when every answer for every style id at every level is the same, 1 when some differ,\n"
        "2 for wrong usage and files that cannot be read. A change that holds for some style ids of a\n"
        "feature type only lists them.");
    return {command, [options] { return diff(*options); }};
}

}  // namespace customstyle_tool
