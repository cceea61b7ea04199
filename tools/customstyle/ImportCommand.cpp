// customstyle import: a style to start from, from another renderer's style.
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Conversion.h"
#include "tools/customstyle/Loading.h"
#include "tools/host/Files.h"
#include "tools/host/LoadedMap.h"
#include "tools/import/ImportLosses.h"
#include "tools/import/ImportTexts.h"

namespace customstyle_tool {
namespace {

struct ImportArguments : MappingArguments, ConversionArguments {
    std::string mapStyle;
    std::string source = kMapLibre;
};

// The files that must not be overwritten.
std::vector<std::string> inputsOf(const ImportArguments& arguments) {
    std::vector<std::string> inputs{arguments.mapStyle, arguments.legend};
    if (arguments.mappingDirectory) inputs.push_back(mappingFileIn(*arguments.mappingDirectory));
    return inputs;
}

int importStyle(ImportArguments arguments) {
    if (haveOneTarget(arguments)) return complain("--report and --output name the same file");
    if (!findMapping(arguments, {arguments.mapStyle})) return kMisuse;
    const std::optional<Legend> legend = legendOrComplain(arguments.legend);
    const auto mapping = legend ? mappingOrComplain(arguments.mappingDirectory) : std::nullopt;
    if (!mapping) return kMisuse;
    const auto mapStyle = readSource(arguments.mapStyle, "style of another renderer");
    if (const auto* failure = std::get_if<ReadFailure>(&mapStyle)) return complainOf(*failure);
    const auto imported = importTexts(*std::get<0>(mapStyle), *legend, *mapping, arguments.zoomOffset.front() - '0',
                                      {arguments.mapStyle, arguments.legend});
    if (const auto* failure = std::get_if<ReadFailure>(&imported)) return complainOf(*failure);
    return writeConversion(std::get<ConversionTexts>(imported), arguments, inputsOf(arguments));
}

std::vector<std::string> importDescription() {
    return {
        "Writes the colours, widths and sizes of a style for MapLibre renderers as rules: a style to start from. A "
        "legend assigns the features of the tiles to feature types, as for customstyle export.",
        "The rules say what the map style draws for a feature with the properties that the legend asks for, and no "
        "others. What a style cannot express is listed on standard error and in the file that --report names. Values "
        "that are not understood are left out; nothing is guessed. The component's answers are compared with what the "
        "map style draws."};
}

std::vector<Option> optionsOf(ImportArguments& arguments) {
    std::vector<Option> options{{.names = "MAP_STYLE",
                                 .help = "Style of the other renderer; - is standard input",
                                 .target = &arguments.mapStyle,
                                 .offer = Offer::Files,
                                 .isRequired = true}};
    addMappingOptions(options, arguments);
    options.push_back(choiceOption("--from", "SOURCE", "The renderer: maplibre", &arguments.source, {kMapLibre}));
    addLegendAndOutputs(options, arguments);
    options.push_back(zoomOffsetOption(arguments));
    options.push_back(quietOption(arguments));
    return options;
}

Command importCommand() {
    const auto arguments = std::make_shared<ImportArguments>();
    return {
        .name = "import",
        .purpose = Purpose::Write,
        .summary = "Make a style to start from, from another renderer's style",
        .description = importDescription(),
        .options = optionsOf(*arguments),
        .glossary = lossGlossary(importLossRows()),
        .statuses = {{0, "The style is written"}, {2, "Wrong usage, or a file that cannot be read or written"}},
        .examples = {{"the colours of a map style for tiles with the OpenMapTiles schema",
                      "customstyle import map-style.json -o mine.json"},
                     {"shorter, with the same answers", "customstyle import map-style.json | customstyle minify -"}},
        .run = [arguments] { return importStyle(*arguments); }};
}

const Registration importRegistration(importCommand);

}  // namespace
}  // namespace customstyle_tool
