// The command-line tool: lets a style author and an engine developer ask what the renderer would be told.
#include <CLI/CLI.hpp>

#include "customstyle/Command.h"

int main(int argumentCount, char** arguments) {
    using namespace customstyle_tool;
    CLI::App program("Custom map styles: what the renderer is told for its style ids.", "customstyle");
    program.require_subcommand(1);
    program.footer("Exit status: 0 good, 1 the files are not good, 2 wrong usage. Diagnostics go to standard error.");
    const Command commands[] = {
        checkCommand(program),   queryCommand(program),  dumpCommand(program),
        explainCommand(program), diffCommand(program),   testCommand(program),
        schemaCommand(program),  formatCommand(program), minifyCommand(program),
    };
    try {
        program.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? kGood : kMisuse;
    }
    for (const Command& command : commands) {
        if (command.options->parsed()) return command.run();
    }
    return kMisuse;
}
