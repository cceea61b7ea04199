// customstyle schema: a JSON Schema for editors.
#include <nlohmann/json.hpp>

#include "tools/customstyle/Command.h"
#include "tools/customstyle/Console.h"
#include "tools/schema/StyleSchema.h"

namespace customstyle_tool {
namespace {

int printSchema() {
    print(styleSchema().dump(2) + "\n");
    return kGood;
}

Command schemaCommand() {
    return {
        .name = "schema",
        .purpose = Purpose::SetUp,
        .summary = "Print a JSON Schema of style files for your editor",
        .description = {"Save it and name it in the editor's settings; the editor then completes names and "
                        "underlines mistakes. The draft is 2020-12. What only shows among several rules is found by "
                        "customstyle check.",
                        "For Visual Studio Code, in .vscode/settings.json:",
                        "  \"json.schemas\": [{\"fileMatch\": [\"styles/*.json\"], \"url\": "
                        "\"./style.schema.json\"}]"},
        .statuses = {{0, "The schema is printed"}, {2, "Wrong usage"}},
        .examples = {{"make a schema file", "customstyle schema > style.schema.json"}},
        .run = printSchema};
}

const Registration schemaRegistration(schemaCommand);

}  // namespace
}  // namespace customstyle_tool
