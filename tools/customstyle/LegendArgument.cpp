#include "tools/customstyle/LegendArgument.h"

#include <fmt/format.h>

#include <memory>
#include <utility>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/export/LegendReader.h"
#include "tools/host/Files.h"

namespace customstyle_tool {
namespace {

std::variant<std::unique_ptr<SourceFile>, ReadFailure> legendFile(const std::string& name) {
    if (const auto text = builtInLegendText(name)) {
        return std::make_unique<SourceFile>("legend " + name, std::string(*text));
    }
    return readSource(name, fmt::format("legend, or write {}", eitherOf(builtInLegendNames())).c_str());
}

}  // namespace

Option legendOption(std::string& legend) {
    return {.names = "--legend",
            .value = "LEGEND",
            .help = "What the tiles hold: openmaptiles, studio, or a legend file",
            .target = &legend,
            .offer = Offer::Files};
}

Option zoomOffsetOption(std::string& zoomOffset) {
    return choiceOption("--zoom-offset", "N",
                        "Draw level L from zoom L - N on; 1 (the default) for renderers with tiles of 512 pixels, "
                        "such as MapLibre",
                        &zoomOffset, {"0", "1", "2"});
}

std::optional<Legend> legendOrComplain(const std::string& name) {
    const auto file = legendFile(name);
    if (const auto* failure = std::get_if<ReadFailure>(&file)) {
        complainOf(*failure);
        return {};
    }
    auto legend = readLegend(*std::get<0>(file));
    if (Legend* const read = std::get_if<Legend>(&legend)) return std::move(*read);
    for (const std::string& problem : std::get<LegendProblems>(legend)) complain(problem);
    return {};
}

}  // namespace customstyle_tool
