#include "tools/customstyle/Conversion.h"

#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>
#include <variant>

#include "tools/customstyle/Arguments.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"
#include "tools/export/LegendReader.h"
#include "tools/host/Files.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

std::variant<std::unique_ptr<SourceFile>, ReadFailure> legendFile(const std::string& name) {
    if (auto file = builtInLegend(name)) return file;
    return readSource(name, fmt::format("legend, or write {}", eitherOf(builtInLegendNames())).c_str());
}

}  // namespace

void addLegendAndOutputs(std::vector<Option>& options, ConversionArguments& arguments) {
    options.push_back({.names = "--legend",
                       .value = "LEGEND",
                       .help = "What the tiles hold: openmaptiles, studio, or a legend file",
                       .target = &arguments.legend,
                       .offer = Offer::Files});
    options.push_back({.names = "-o,--output",
                       .value = "OUT",
                       .help = "Write the style to this file; - is standard output",
                       .target = &arguments.output,
                       .offer = Offer::Files});
    options.push_back({.names = "--report",
                       .value = "FILE",
                       .help = "Write what is lost to this file, as JSON",
                       .target = &arguments.report,
                       .offer = Offer::Files});
}

Option zoomOffsetOption(ConversionArguments& arguments) {
    return choiceOption("--zoom-offset", "N",
                        "Draw level L from zoom L - N on; 1 (the default) for renderers with tiles of 512 pixels, "
                        "such as MapLibre",
                        &arguments.zoomOffset, {"0", "1", "2"});
}

Option quietOption(ConversionArguments& arguments) {
    return {.names = "-q,--quiet", .help = "Do not report what is lost", .target = &arguments.quiet};
}

Glossary lossGlossary(std::span<const LossRow> rows) {
    Glossary codes{.title = "The losses are"};
    for (const LossRow& row : rows) codes.terms.push_back({std::string(row.code), std::string(row.text)});
    return codes;
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

bool haveOneTarget(const ConversionArguments& arguments) {
    if (!arguments.report) return false;
    std::error_code error;
    const auto real = [&](const fs::path& path) { return fs::weakly_canonical(fs::absolute(path, error), error); };
    const fs::path report = real(*arguments.report);
    // Empty where it cannot be found out; writing then fails for a reason of its own.
    return *arguments.report == arguments.output || (!report.empty() && report == real(arguments.output));
}

int writeConversion(const ConversionTexts& conversion, const ConversionArguments& arguments,
                    std::vector<std::string> inputs) {
    if (arguments.report) {
        if (const auto problem = problemOfTarget(*arguments.report, inputs)) return complain(*problem);
    }
    if (const int status = writeResult(arguments.output, conversion.style, inputs); status != kGood) return status;
    if (!arguments.quiet) fmt::print(stderr, "{}", conversion.losses);
    if (!arguments.report) return kGood;
    inputs.push_back(arguments.output);
    return writeResult(*arguments.report, conversion.report, inputs);
}

}  // namespace customstyle_tool
