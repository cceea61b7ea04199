// customstyle build: a style from a palette, a base, overlays and rules.
#include <memory>

#include "tools/build/StyleBuild.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Loading.h"

namespace customstyle_tool {
namespace {

struct BuildArguments {
    std::string file;
    std::string output = "-";
};

int build(const BuildArguments& arguments) {
    const auto built = builtStyle(arguments.file);
    if (const auto* problems = std::get_if<BuildProblems>(&built)) return complainOf(*problems);
    const auto& style = std::get<BuiltStyle>(built);
    for (const std::string& warning : style.warnings) complain(warning);
    return writeResult(arguments.output, std::string(style.file->text()), style.file->sources());
}

constexpr char kExample[] = R"(  base = "day.toml"             # a style or build file, whose rules come first
  overlays = ["winter.json"]    # then theirs
  [palette]
  road = "#a8772f"              # replaces the road of the base
  casing = "$road"              # a name may refer to another one
  [[rules]]                     # finally, rules of its own
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
            {"A build file is TOML. Its style has the rules of the base, then of the overlays in order, then its own:",
             kExample,
             "Paths are relative to the folder of the build file. Each styler value $NAME, in JSON files too, "
             "is replaced from the palettes: if several have the name, an overlay wins over the base, and the build "
             "file over both. Whole numbers need no quotes in TOML.",
             "Every command that reads a style also reads a build file, whose name ends with .toml. Findings and "
             "explanations then name the lines of the files that the style is made from."},
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
