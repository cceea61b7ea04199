// The command-line tool: lets a style author and an engine developer ask what the renderer would be told.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <new>
#include <system_error>

#include "tools/customstyle/Command.h"
#include "tools/customstyle/Console.h"
#include "tools/customstyle/Usage.h"

namespace {

using namespace customstyle_tool;

// What fails in the middle is nearly always the output: a full disk.
int runToTheEnd(const Command& command) {
    try {
        return withOutputWritten(command.run());
    } catch (const std::bad_alloc&) {
        return complain("there is not enough memory for this");
    } catch (const std::system_error& error) {
        const char* const what = std::ferror(stdout) != 0 ? "standard output cannot be written: " : "";
        return complain(what + error.code().message());
    }
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): without memory for its options the tool may as well end.
int main(int argumentCount, char** arguments) {
    CLI::App program("Custom map styles: what the renderer is told for its style ids.", "customstyle");
    program.require_subcommand(1);
    program.set_version_flag("--version", "customstyle " CUSTOMSTYLE_VERSION, "Print the version and exit");
    program.footer("Exit status: 0 good, 1 the files are not good, 2 wrong usage. Diagnostics go to standard error.");
    const Command commands[] = {
        checkCommand(program),   queryCommand(program),  dumpCommand(program),
        explainCommand(program), diffCommand(program),   testCommand(program),
        schemaCommand(program),  formatCommand(program), minifyCommand(program),
    };
    try {
        program.parse(argumentCount, arguments);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return withOutputWritten(program.exit(error));  // help and version
        fmt::print(stderr, "{}", usageProblem(program, error));
        return kMisuse;
    }
    const auto* const chosen =
        std::ranges::find_if(commands, [](const Command& each) { return each.options->parsed(); });
    return runToTheEnd(*chosen);
}
