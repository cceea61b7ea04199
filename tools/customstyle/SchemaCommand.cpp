// customstyle schema: a JSON Schema for editors.
#include <fmt/format.h>

#include <cstdio>

#include "tools/customstyle/Command.h"
#include "tools/schema/StyleSchema.h"

namespace customstyle_tool {
namespace {

int printSchema() {
    fmt::print("{}\n", styleSchema().dump(2));
    return kGood;
}

}  // namespace

Command schemaCommand(CLI::App& program) {
    CLI::App* command = program.add_subcommand("schema", "Print a JSON Schema of style files for your editor");
    command->footer(
        "Save it and name it in the editor's settings; the editor then completes names and underlines mistakes.\n"
        "For Visual Studio Code, in .vscode/settings.json:\n"
        "  \"json.schemas\": [{\"fileMatch\": [\"styles/*.json\"], \"url\": \"./style.schema.json\"}]\n"
        "The draft is 2020-12. What only shows among several rules is found by customstyle check.");
    return {command, printSchema};
}

}  // namespace customstyle_tool
