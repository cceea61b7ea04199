// customstyle export: a style for other renderers, made of the component's answers.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Conversion.h"
#include "tools/customstyle/Loading.h"
#include "tools/export/ExportTexts.h"
#include "tools/host/LoadedMap.h"

namespace customstyle_tool {
namespace {

struct ExportArguments : StyleArguments, ConversionArguments {
    std::string target = kMapLibre;
    ExportOptions options;
};

int exportStyle(ExportArguments arguments) {
    if (haveOneTarget(arguments)) return complain("--report and --output name the same file");
    if (!findMapping(arguments, {arguments.style})) return kMisuse;
    const std::optional<Legend> legend = legendOrComplain(arguments.legend);
    if (!legend) return kMisuse;
    const auto study = loadOrComplain(arguments.style, arguments.mappingDirectory);
    if (study == nullptr) return kMisuse;
    std::vector<std::string> inputs = study->source().file().sources();
    inputs.push_back(arguments.legend);
    if (arguments.mappingDirectory) inputs.push_back(mappingFileIn(*arguments.mappingDirectory));
    ExportOptions options = arguments.options;
    options.zoomOffset = arguments.zoomOffset.front() - '0';
    return writeConversion(exportTexts(*study, *legend, options, {arguments.style, arguments.legend}), arguments,
                           inputs);
}

std::vector<std::string> description() {
    return {
        "Writes a style for MapLibre renderers. Its values are the component's answers for each style id at each "
        "level; what a style does not set has the look of the legend.",
        "A legend says which features of the tiles belong to which feature type. Two are included: openmaptiles, for "
        "tiles with the OpenMapTiles schema, and studio, for the studio's tiles. docs/export.md describes legend "
        "files.",
        "What MapLibre cannot show is listed on standard error, in the style's metadata and in the file that --report "
        "names."};
}

Option urlOption(std::string names, std::string help, std::optional<std::string>& url) {
    return {.names = std::move(names), .value = "URL", .help = std::move(help), .target = &url};
}

Command exportCommand() {
    const auto arguments = std::make_shared<ExportArguments>();
    Command command{
        .name = "export",
        .purpose = Purpose::Write,
        .summary = "Write the style for another renderer, with a list of what is lost",
        .description = description(),
        .glossary = lossGlossary(lossRows()),
        .statuses = {{0, "The style is written"}, {2, "Wrong usage, or a file that cannot be read or written"}},
        .examples = {{"a style for your own tiles with the OpenMapTiles schema",
                      "customstyle export night.json --tiles https://example.org/tiles.json -o night-map.json"},
                     {"the same with walls and roofs, for tiles of your own",
                      "customstyle export night.json --mapping map --legend mine.json --raised -o night-map.json"}},
        .run = [arguments] { return exportStyle(*arguments); }};
    addStyleArguments(command.options, *arguments);
    std::vector<Option>& options = command.options;
    options.push_back(choiceOption("--to", "TARGET", "The renderer: maplibre", &arguments->target, {kMapLibre}));
    addLegendAndOutputs(options, *arguments);
    options.push_back(
        {.names = "--raised", .help = "Draw buildings with walls and roofs", .target = &arguments->options.isRaised});
    options.push_back(zoomOffsetOption(*arguments));
    options.push_back(urlOption("--tiles", "Take the tiles from this TileJSON, or template with {z}, {x} and {y}",
                                arguments->options.tiles));
    options.push_back(urlOption("--glyphs", "Take the glyphs of texts from this URL", arguments->options.glyphs));
    options.push_back(urlOption("--sprite", "Take the icons from this URL", arguments->options.sprite));
    options.push_back(quietOption(*arguments));
    return command;
}

const Registration exportRegistration(exportCommand);

}  // namespace
}  // namespace customstyle_tool
