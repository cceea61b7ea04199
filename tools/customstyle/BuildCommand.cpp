// customstyle build: a style from a palette, a base, overlays and rules.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

#include "tools/build/StyleBuild.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

struct BuildArguments {
    std::string file;
    std::string output = "-";
};

bool isSourceOf(const BuiltStyle& style, const std::string& target) {
    return std::ranges::any_of(style.sources, [&](const std::string& source) {
        std::error_code error;
        return fs::equivalent(source, target, error);
    });
}

int build(const BuildArguments& arguments) {
    const auto built = builtStyle(arguments.file);
    if (const auto* problems = std::get_if<BuildProblems>(&built)) return complainOf(*problems);
    const auto& style = std::get<BuiltStyle>(built);
    for (const std::string& warning : style.warnings) complain(warning);
    if (isSourceOf(style, arguments.output))
        return complain(fmt::format("{}: the style is made of this file; write it to another one", arguments.output));
    return writeResult(arguments.output, std::string(style.file->text()));
}

constexpr char kExample[] = R"(  base = "day.toml"             # a style or build file, whose rules come first
  overlays = ["winter.json"]    # then theirs
  [palette]
  road = "#a8772f"              # instead of the road of the base
  casing = "$road"              # a name may stand for another one
  [[rules]]                     # and at last rules of its own
  featureType = "highway"
  elementType = "geometry.fill"
  stylers = { color = "$road", weight = 6 })";

Command buildCommand() {
    const auto arguments = std::make_shared<BuildArguments>();
    return {
        .name = "build",
        .purpose = Purpose::Write,
        .summary = "Build a style file from a palette, a base, overlays and rules",
        .description =
            {"A build file is TOML. Its style has the rules of the base, of the overlays in their order, and its own:",
             kExample,
             "Paths are relative to the folder of the build file. Each value $NAME among the stylers, of JSON files "
             "too, is replaced from the palettes: where several have a name, that of an overlay wins over that of the "
             "base, and that of the build file over both. Whole numbers need no quotes in TOML.",
             "Every command that reads a style takes a build file, whose name ends with .toml, in its place. Findings "
             "and explanations then name the lines of the files that the style is made of."},
        .options = {{.names = "FILE",
                     .help = "Build file",
                     .target = &arguments->file,
                     .offer = Offer::Files,
                     .isRequired = true},
                    {.names = "-o,--output",
                     .value = "OUT",
                     .help = "Write the style to this file; - is standard output",
                     .target = &arguments->output,
                     .offer = Offer::Files}},
        .statuses = {{0, "The style is written"}, {2, "Wrong usage, or a file that cannot be read or written"}},
        .examples = {{"write the night variant of a style", "customstyle build night.toml -o build/night.json"},
                     {"what is wrong with a variant, and where", "customstyle check night.toml"},
                     {"how two variants differ on the map", "customstyle diff day.toml night.toml"}},
        .run = [arguments] { return build(*arguments); }};
}

const Registration buildRegistration(buildCommand);

}  // namespace
}  // namespace customstyle_tool
