// customstyle explain: why the renderer receives what it receives, and what was lost on the way.
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/explain/ExplanationText.h"
#include "tools/support/Spelling.h"

namespace customstyle_tool {
namespace {

struct ExplainOptions {
    std::optional<std::string> mappingDirectory;
    std::string styleFile;
    unsigned int styleId = 0;
    int level = 0;
    std::string field;
    std::string format = "text";
};

std::string fieldNames() {
    std::vector<std::string> names;
    for (const TopicName& topic : topicNames()) names.push_back(topic.name);
    return fmt::format("{}", fmt::join(names, ", "));
}

// CLI11 takes an empty text for "good".
std::string problemOfField(const std::string& name) {
    if (findTopic(name) != nullptr) return {};
    const auto nearest = nearestTopic(name);
    const std::string remedy = nearest ? didYouMean(nearest) : "; the fields are " + fieldNames();
    return fmt::format("there is no field \"{}\"{}", name, remedy);
}

int explain(const ExplainOptions& options) {
    const StyleOrFailure loaded = loadStyle(options.styleFile, options.mappingDirectory);
    if (const ReadFailure* failure = std::get_if<ReadFailure>(&loaded)) return complain(failure->text);
    Explainer explainer(*std::get<0>(loaded), {options.styleId});
    const Explanation explanation = explainer.explain(options.styleId, options.level);
    const TopicName* const only = options.field.empty() ? nullptr : findTopic(options.field);
    if (options.format == "json") {
        fmt::print("{}\n", explanationJson(explainer, explanation, only));
    } else {
        fmt::print("{}", explanationText(explainer, explanation, only, swatchesForOutput()));
    }
    return kGood;
}

}  // namespace

Command explainCommand(CLI::App& program) {
    const auto options = std::make_shared<ExplainOptions>();
    CLI::App* command = program.add_subcommand(
        "explain", "Tell for one style id and level which rules made each value, and what was lost");
    addMapping(*command, options->mappingDirectory);
    command->add_option("--style", options->styleFile, "Style file")->type_name("FILE")->required();
    command->add_option("--id", options->styleId, "Style id of the renderer, from 0 to 4294967295")
        ->type_name("N")
        ->check(isStyleId())
        ->required();
    command->add_option("--level", options->level, "Zoom level; rules can name 4 to 21")
        ->type_name("L")
        ->check(isLevel())
        ->required();
    command->add_option("--field", options->field, "Tell about this one only: " + fieldNames())
        ->type_name("NAME")
        ->check(CLI::Validator(problemOfField, ""));
    addFormat(*command, options->format, {"text", "json"},
              "text: for people, with colours in a terminal; json: for programs");
    command->footer(
        "Values are lost where a later rule writes them again, where a rule for one level starts over from\n"
        "the style for all levels, and where another feature type answers for the style id.\n"
        "Exit status: 0 good, 2 wrong usage or a file that cannot be read.");
    return {command, [options] { return explain(*options); }};
}

}  // namespace customstyle_tool
