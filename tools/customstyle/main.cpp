// The command-line tool: lets a style author and an engine developer ask what the renderer would be told.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "customstyle/DumpCommand.h"
#include "customstyle/QueryCommand.h"
#include "support/LoadedMap.h"

namespace {

using namespace customstyle_tool;
using _orvik_framework::CustomConfig;

constexpr int kGood = 0;
constexpr int kNotLoaded = 1;
constexpr int kWrongUsage = 2;

struct Files {
    std::string mappingDirectory;
    std::string styleFile;
};

void addFileOptions(CLI::App& command, Files& files) {
    command.add_option("--mapping", files.mappingDirectory, "Directory of the mapping file CustomIndex")
        ->type_name("DIR")
        ->required();
    command.add_option("--style", files.styleFile, "Style file")->type_name("FILE")->required();
}

int withLoadedMap(const Files& files, const std::function<void(const CustomConfig&)>& use) {
    const LoadedMap map = loadMap(files.mappingDirectory, files.styleFile);
    if (const LoadFailure* failure = std::get_if<LoadFailure>(&map)) {
        fmt::print(stderr, "customstyle: {}\n", failure->text);
        return kNotLoaded;
    }
    use(*std::get<0>(map));
    return kGood;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    CLI::App app("Custom map styles: what the renderer is told for its style ids.", "customstyle");
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 good, 1 the files could not be loaded, 2 wrong usage. Diagnostics go to standard error.");

    Files files;
    std::vector<unsigned int> styleIds;
    std::vector<int> levels;
    CLI::App* query = app.add_subcommand("query", "Print the style of a style id at a level; of several, as a table");
    addFileOptions(*query, files);
    query->add_option("--id", styleIds, "Style ids of the renderer, from 0 to 4294967295")->type_name("N")->required();
    query->add_option("--level", levels, "Zoom levels; rules can name 4 to 21")->type_name("L")->required();

    bool asJson = false;
    CLI::App* dump = app.add_subcommand("dump", "Print the styles of all style ids at all levels");
    addFileOptions(*dump, files);
    dump->add_flag("--json", asJson, "Print JSON instead of a table");

    try {
        app.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kGood : kWrongUsage;
    }
    if (query->parsed()) {
        return withLoadedMap(files,
                             [&](const CustomConfig& config) { printAnswers(stdout, config, styleIds, levels); });
    }
    return withLoadedMap(
        files, [&](const CustomConfig& config) { asJson ? printJson(stdout, config) : printTable(stdout, config); });
}
