// customstyle schema: a JSON Schema for editors.
#include <memory>
#include <nlohmann/json.hpp>

#include "tools/customstyle/Command.h"
#include "tools/customstyle/Console.h"
#include "tools/schema/StyleSchema.h"

namespace customstyle_tool {
namespace {

int printSchema(SchemaWords words) {
    print(styleSchema(words).dump(2) + "\n");
    return kGood;
}

Command schemaCommand() {
    const auto isForEditor = std::make_shared<bool>(false);
    return {.name = "schema",
            .purpose = Purpose::SetUp,
            .summary = "Print a JSON Schema of style files for your editor",
            .description = {"Save it and refer to it in the editor's settings; the editor then completes names and "
                            "underlines mistakes. The draft is 2020-12. Mistakes that involve several rules are found "
                            "by customstyle check.",
                            "For Visual Studio Code, in .vscode/settings.json:",
                            "  \"json.schemas\": [{\"fileMatch\": [\"styles/*.json\"], \"url\": "
                            "\"./style.schema.json\"}]",
                            "Without --editor the schema has standard keywords only, so that strict validators accept "
                            "it. Both forms accept the same styles."},
            .options = {{.names = "--editor",
                         .help = "Add keywords for editors with VS Code's JSON service: colour pickers, a remedy in "
                                 "each message, descriptions of values, and a new rule",
                         .target = isForEditor.get()}},
            .statuses = {{0, "The schema is printed"}, {2, "Wrong usage"}},
            .examples = {{"make a schema file for an editor", "customstyle schema --editor > style.schema.json"},
                         {"for a validator", "customstyle schema > style.schema.json"}},
            .run = [isForEditor] { return printSchema(*isForEditor ? SchemaWords::Editors : SchemaWords::Standard); }};
}

const Registration schemaRegistration(schemaCommand);

}  // namespace
}  // namespace customstyle_tool
